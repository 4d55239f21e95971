#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

TEST(Spectrum, ArithmeticChangesTheLeftSideAndNoConditions) {
    Spectrum spectrum(0.25F, SomeCondition);
    spectrum + Flat(0.5F);
    EXPECT_EQ(spectrum.Summe(), 27.0F);
    spectrum / 3;
    EXPECT_EQ(spectrum.Summe(), 9.0F);
    spectrum.Init(2);  // above 1 and kept
    EXPECT_EQ(spectrum[35], 2.0F);
    EXPECT_EQ(Text(static_cast<PhysicalConditions const&>(spectrum)), "[Pol,Pap]");
    // The stored 1/36 is 6e-9 of itself too large.
    EXPECT_NEAR(Flat(1).mean(), 1.0F, 6e-8F);
    // Gathered in double: 35 times 2^-24 would be lost one by one beside the 1.
    Spectrum small = Flat(0x1p-24F);
    small[0] = 1;
    EXPECT_GT(small.Summe(), 1.000001F);
}

TEST(Spectrum, MaximumIsTheFirstOfEqualsAndAtLeastZero) {
    Spectrum equal = Flat(0.1F), last = Flat(0);
    equal[5] = equal[9] = 0.7F;
    last[35] = 1e-30F;
    for (auto const& [spectrum, maximum, wavelength] : Rows<Spectrum, float, int>{
             {equal, 0.7F, 430}, {last, 1e-30F, 730}, {Flat(-1), 0, 380}, {Flat(0), 0, 380}}) {
        int nm = -1;
        EXPECT_EQ(spectrum.Maximum(nm), maximum);
        EXPECT_EQ(nm, wavelength);
        EXPECT_EQ(spectrum.Maximum(), maximum);
    }
}

TEST(Spectrum, RampOfEighteenGetsItsSlopeAndHalfOfItAtTheEnds) {
    Spectrum18 ramp;
    for (unsigned short j = 0; j < Spectrum18::Points; ++j) ramp[j] = j;
    Spectrum const spectrum(ramp);
    for (int k = 0; k < SpectralPoints; ++k) {
        float const slope = k < 2 || k > 33 ? 0.125F : 0.25F;
        EXPECT_EQ(spectrum[k], static_cast<float>(k / 2) + (k % 2 == 0 ? -slope : slope)) << k;
    }
}

}  // namespace kv::test
