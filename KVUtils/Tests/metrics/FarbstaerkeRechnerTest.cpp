#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

class FarbstaerkeTest : public ContextTest {
  protected:
    FarbstaerkeTest() {
        CMetry::SetCMetry(IllumClass(IllumType::D65), ObserverClass(ObserverType::TenDegrees));
    }
    static KSSpectrum Plain(Spectrum const& sample) { return {sample, Flat(1), KSFarbartType::KubelkaMunk}; }
};

TEST_F(FarbstaerkeTest, RatiosToTheReference) {
    Spectrum reference = Flat(0.5F), sample = Flat(0.25F);  // K/S 0.25 and 1.125
    reference[12] = reference[20] = 0.25F;
    sample[12] = 0.5F;
    FarbstaerkeRechner const byMaximum(Plain(reference), KSMethodeType::Maximum);
    EXPECT_EQ(byMaximum.GetMaxWellenlaenge(), 500) << "the first of equals";
    EXPECT_EQ(byMaximum.DS(reference), 1.0F);
    EXPECT_NEAR(byMaximum.DS(sample), 0.25 / 1.125, 1e-6) << "not at the sample's own maximum";
    FarbstaerkeRechner const byMean(Plain(Flat(0.5F)), KSMethodeType::WeightedMean);
    EXPECT_EQ(byMean.GetMaxWellenlaenge(), 0);
    EXPECT_NEAR(byMean.DS(Flat(0.25F)), 4.5, 1e-5);
    // Rated on the reference's paper and by its model: (ln 4 / ln 2)^(1 / 0.61).
    KSSpectrum const onGrey(Flat(0.4F), Flat(0.8F), KSFarbartType::Power);
    EXPECT_NEAR(FarbstaerkeRechner(onGrey, KSMethodeType::Maximum).DS(Flat(0.2F)), 3.115242, 1e-5);
}

TEST_F(FarbstaerkeTest, FloorOfTheReferenceAndCeilingOfTheStrength) {
    for (KSMethodeType const method : {KSMethodeType::Maximum, KSMethodeType::WeightedMean}) {
        FarbstaerkeRechner const white(Plain(Flat(1)), method);
        EXPECT_EQ(white.GetMaxWellenlaenge(), method == KSMethodeType::Maximum ? 380 : 0);
        EXPECT_NEAR(white.DS(Flat(0.98F)), 0.0002040816 / 0.0001, 1e-5) << "the reference counts as 0.0001";
        EXPECT_EQ(white.DS(Flat(0.5F)), 9.999F);
    }
    // K/S of 9.99 and 10.01 times 0.25: r = 1 + K/S - sqrt(K/S (K/S + 2)).
    FarbstaerkeRechner const grey(Plain(Flat(0.5F)), KSMethodeType::Maximum);
    EXPECT_NEAR(grey.DS(Flat(0.1460069F)), 9.99, 1e-5);
    EXPECT_EQ(grey.DS(Flat(0.1457894F)), 9.999F);
}

}  // namespace kv::test
