#include "KVUtils/Tests/TestSupport.h"

#include <limits>

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

TEST(Spectrum18, TakesTheMeanOfPairsAndComesBack) {
    Random random(18);
    for (int round = 0; round < 200; ++round) {
        Spectrum const fine = random.Reflectances(0, 1.2);
        Spectrum18 coarse(fine), again{Spectrum(coarse)};
        for (unsigned short j = 0; j < Spectrum18::Points; ++j) {
            EXPECT_EQ(coarse[j], static_cast<float>((double{fine[2 * j]} + double{fine[2 * j + 1]}) / 2));
            // Two samples are rounded on the way: half a unit of float each, values below 2.
            EXPECT_NEAR(again[j], coarse[j], 1.2e-7F) << "seed 18, round " << round;
        }
    }
    EXPECT_EQ(Text(Spectrum18(Spectrum(0.0F, SomeCondition))), "[Pol,Pap]");
}

TEST(SpezFloatWord, EveryRangeAndItsEnds) {
    for (auto const& [value, word] : Rows<float, unsigned int>{
             {-1, 0x7F},
             {-0.0F, 0x7F},
             {0, 0x7F},
             {std::numeric_limits<float>::quiet_NaN(), 0x7F},
             // below 2^-20: the value times 2^36 with its last seven bits 1
             {0x1p-36F, 0x7F},
             {0x1p-29F, 0xFF},
             {0x1.fffffep-21F, 0xFFFF},
             // from 2^-20: nine bits of mantissa, then 14 to 0 for the exponent, then 111
             {0x1p-20F, 0x77},
             {0x1.8p-20F, 0x8077},
             {0x1.ff8p-20F, 0xFFF7},
             {0x1.fffffep-6F, 0xFF87},
             // from 1/32: the value times 2^18 in steps of 8, then 011
             {0x1p-5F, 0x2003},
             {0x1.001p-5F, 0x2003},
             {0x1.004p-5F, 0x200B},
             {0x1.fffffep-3F, 0xFFFB},
             // from 1/4: times 2^16 in steps of 4, then 01
             {0.25F, 0x4001},
             {0.5F, 0x8001},
             {0x1.fffffep-1F, 0xFFFD},
             // from 1: times 2^14 in steps of 2
             {1, 0x4000},
             {0x1.0001p0F, 0x4000},
             {0x1.0008p0F, 0x4002},
             {3.998F, 0xFFDE},
             {3.9999F, 0xFFFE},
             {4, 0xFFFE},
             {1e30F, 0xFFFE},
             {std::numeric_limits<float>::infinity(), 0xFFFE}}) {
        EXPECT_EQ(SpezFloatWord::floatToFloatWord(value) & 0xFFFFU, word) << value;
    }
    Spectrum18 spectrum;
    spectrum[17] = 0.5F;
    EXPECT_EQ(spectrum.GetFloatWord(17), 0x8001U);
}

}  // namespace kv::test
