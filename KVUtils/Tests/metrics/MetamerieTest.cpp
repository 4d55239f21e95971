#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

TEST(Metamerie, TextNamesTheLights) {
    EXPECT_EQ(Text(Metamerie(1.25F, IllumClass(IllumType::D65), IllumClass(IllumType::Dxx1, 50))),
              Localised(" 1.3 (D65->D50)"));
}

TEST(Metamerie, IndexIsTheDifferenceAfterTheCorrection) {
    Random random(16);
    CMetryFilter d65 = Weights(IllumClass(IllumType::D65), ObserverType::TenDegrees);
    CMetryFilter a = Weights(IllumClass(IllumType::A), ObserverType::TenDegrees);
    for (int round = 0; round < 100; ++round) {
        Spectrum const standard = random.Reflectances(0.02, 1), sample = random.Reflectances(0.02, 1);
        Spectrum darker = standard;
        darker / 2;
        XYZVector const reference(d65, standard), under(d65, sample);
        XYZVector corrected(a, sample);
        for (int i = 0; i < 3; ++i)
            corrected[i] = static_cast<float>(double{corrected[i]} * reference[i] / under[i]);
        float const expected = DeltaE::CIELAB(LABVector(a, corrected), LABVector(a, standard));
        // A few units of float in tristimulus values, each up to 1e-5 in b*.
        MetamerieRechner rechner(standard, d65, a), same(standard, a, a);
        EXPECT_NEAR(rechner.RechneMetamerie(sample).GetIndex(), expected, 1e-4) << "seed 16, round " << round;
        EXPECT_NEAR(rechner.RechneMetamerie(standard).GetIndex(), 0, 1e-4) << "the standard itself";
        EXPECT_NEAR(rechner.RechneMetamerie(darker).GetIndex(), 0, 1e-4) << "the correction takes it out";
        EXPECT_NEAR(same.RechneMetamerie(sample).GetIndex(), 0, 1e-4) << "one light";
    }
}

TEST(Metamerie, AZeroUnderTheReferenceLightIsNotCorrected) {
    MetamerieRechner rechner(Flat(0.5F), IllumClass(IllumType::D65), IllumClass(IllumType::A),
                             ObserverClass(ObserverType::TenDegrees));
    EXPECT_NEAR(rechner.RechneMetamerie(Flat(0)).GetIndex(), 76.0693, 1e-3);  // L* of 0.5
    Spectrum red = Flat(0);  // Z alone is 0: the 10 degree observer has no z at 600 nm and up
    for (int k = 22; k < SpectralPoints; ++k) red[k] = 0.5F;
    CMetryFilter& test = *rechner.FilterTestlicht();
    float const expected = DeltaE::CIELAB(LABVector(test, red), LABVector(test, Flat(0.5F)));
    EXPECT_NEAR(rechner.RechneMetamerie(red).GetIndex(), expected, 1e-4);
    EXPECT_EQ(IllumType(test.GetIllum()), IllumType::A);
}

}  // namespace kv::test
