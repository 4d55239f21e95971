#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

class KSSpectrumTest : public ContextTest {};

// With r = sample / paper: power (-0.387446726 ln r)^(1 / 0.61); plain (1 - r)^2 / 2r; corrected the same of
// r / (0.6 r + 0.384), which is 1 / 0.984 for the paper itself. Reflectances are clamped to [0.0001, 1].
TEST_F(KSSpectrumTest, EachModel) {
    for (auto const& [sample, paper, values] :
         Rows<float, float, Triple>{{0.5F, 1, {0.1158766, 0.04949708, 0.25}},
                                    {0.4F, 0.8F, {0.1158766, 0.04949708, 0.25}},
                                    {0.8F, 0.8F, {0, 0.0001300813, 0}},
                                    {0.8F, 0.4F, {0, 0.02731313, 0.25}},  // lighter than its paper: r = 2
                                    {0, 1, {8.048547, 1919.300, 4999.000}},
                                    {-3, 2, {8.048547, 1919.300, 4999.000}}}) {
        for (int kind = 0; kind < 4; ++kind) {  // any other kind is plain
            KSSpectrum const ks(Flat(sample), Flat(paper), static_cast<KSFarbartType>(kind));
            double const expected = values[std::min(kind, 2)];
            EXPECT_NEAR(ks[20], expected, 1e-6 * (1 + expected))
                << sample << " on " << paper << ", kind " << kind;
        }
    }
    KSSpectrum const ks(Spectrum(0.5F, SomeCondition), Flat(1.5F), KSFarbartType::Power);
    EXPECT_EQ(ks.GetPapierSpektrum()[0], 1.0F);
    EXPECT_EQ(ks.GetKSFarbart(), KSFarbartType::Power);
}

TEST_F(KSSpectrumTest, RatingIsMaximumOrMeanOverTheObserver) {
    CMetry::SetCMetry(IllumClass(IllumType::D65), ObserverClass(ObserverType::TwoDegrees));
    Spectrum sample = Flat(1);
    sample[7] = 0.5F;  // 450 nm: x + y + z = 2.14631 of 32.04454
    KSSpectrum const ks(sample, Flat(1), KSFarbartType::KubelkaMunk);
    EXPECT_EQ(ks.KS(KSMethodeType::Maximum), 0.25F);
    EXPECT_EQ(ks.KS(static_cast<KSMethodeType>(9)), 0.25F);
    EXPECT_NEAR(ks.KS(KSMethodeType::WeightedMean), 0.25 * 2.14631 / 32.04454, 1e-7);
    float* const weights = CMetry::xyzSumme;
    static_cast<void>(CMetry::xyzSumme.FilterSumme());
    weights[8] += 1000;  // not noticed by the filter, but the mean forms the sum anew
    EXPECT_NEAR(ks.mean(), 0.25 * 2.14631 / 1032.04454, 1e-8);
}

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
