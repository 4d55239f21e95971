#include "KVUtils/Tests/TestSupport.h"

#include <algorithm>
#include <limits>

namespace kv::test {

class DensityVectorTest : public ContextTest {};

static void ExpectDensities(DensityVector const& d, std::array<double, 4> expected, double tolerance) {
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(d[i], expected[i], tolerance) << "channel " << i;
}

TEST_F(DensityVectorTest, OfEveryStandard) {
    for (int standard = 0; standard < 10; ++standard) {
        SCOPED_TRACE(standard);
        DStdClass const density(static_cast<DStdType>(standard));
        CMetry::SetDensityStandard(density);
        double const tenth = standard <= 4 ? 1 : 0;  // the others have no filters
        // Weights sum to 1 within 2e-5, that is 1e-5 in density. Without a white, relative is absolute.
        ExpectDensities(DensityVector(Flat(1), false), {0, 0, 0, 0}, 1e-5);
        ExpectDensities(DensityVector(Flat(0.1F), true), {1, tenth, tenth, tenth}, 1e-5);
        ExpectDensities(DensityVector(Flat(0), true), {2, 0, 0, 0}, 0);
        EXPECT_EQ(DensityVector(Flat(0.1F), false).AutoFilter(), 0);
        EXPECT_EQ(Text(MeasuringCondition(DensityVector(Spectrum(1.0F, SomeCondition), false))),
                  "[" + Text(density) + ",Pol,Pap]");
    }
}

TEST_F(DensityVectorTest, ChannelsLookAtTheirOwnPoints) {
    CMetry::SetDensityStandard(DStdClass(DStdType::DinNb));
    Spectrum spectrum = Flat(0.5F);
    spectrum[24] = 0.01F;  // 620 nm, red: a cyan ink
    spectrum[15] = 0.1F;   // 530 nm, green
    spectrum[5] = 0;       // 430 nm, blue: a sum of exactly 0 reads as clear
    // Visual: 50 less 0.49 x 5.07202 and 0.4 x 6.32252 and 0.5 x 0.0265258, of 100.
    ExpectDensities(DensityVector(spectrum, false), {0.347054, 2, 1, 0}, 1e-5);
    EXPECT_EQ(DensityVector(spectrum, false).AutoFilter(), 1);
    spectrum[5] = -0.1F;
    EXPECT_TRUE(std::isnan(DensityVector(spectrum, false)[3]));
}

TEST_F(DensityVectorTest, RelativeToTheWhite) {
    Spectrum paper = Flat(0.8F);
    for (int k = 0; k < 10; ++k) paper[k] = 0.6F;
    Spectrum tenth = paper;
    tenth / 10;
    CMetry::EnterWhite(paper);
    ExpectDensities(DensityVector(paper, true), {0, 0, 0, 0}, 1e-7);
    ExpectDensities(DensityVector(tenth, true), {1, 1, 1, 1}, 3e-7);
    ExpectDensities(DensityVector(Flat(0), true), {0, 0, 0, 0}, 0);
    EXPECT_NEAR(DensityVector(paper, false)[1], 0.0969100, 1e-6);

    for (int k = 0; k < 10; ++k) paper[k] = 0;  // no blue at all
    CMetry::EnterWhite(paper);
    EXPECT_EQ(DensityVector(Flat(0.5F), true)[3], -std::numeric_limits<float>::infinity());
}

TEST_F(DensityVectorTest, AutoFilter) {
    for (auto const& [visual, red, green, blue, channel] :
         Rows<float, float, float, float, int>{{0, 10, 7, 7, 1},  // exactly 70 percent is still a colour
                                               {0, 1.0F, 1.0F, 0.71F, 0},  // above it is not
                                               {0, 0.5F, 0.5F, 0.1F, 1},   // of equals the lower
                                               {0, 0.1F, 0.5F, 0.5F, 2},
                                               {0, 0.1F, 0.2F, 0.9F, 3},
                                               {5, 0.005F, 0.002F, 0.001F, 0},
                                               {0, 0.01F, 0.002F, 0.001F, 1},  // exactly 0.01 is not too weak
                                               {0, 0.0099999F, 0.002F, 0.001F, 0},
                                               {0, 1.0F, -0.5F, 0.9F, 1}}) {
        EXPECT_EQ(DensityVector(visual, red, green, blue, {}).AutoFilter(), channel) << red << ' ' << blue;
    }
}

TEST(DichteFilter, SumsAndPeaksOfEveryStandard) {
    // The peaks in nm: red, green, blue; none where those filters are empty.
    for (auto const& [standard, peaks] : Rows<int, std::array<int, 3>>{{0, {620, 530, 440}},
                                                                       {1, {600, 530, 460}},
                                                                       {2, {620, 530, 430}},
                                                                       {3, {620, 530, 430}},
                                                                       {4, {620, 540, 430}},
                                                                       {6, {}},
                                                                       {8, {}},
                                                                       {77, {}},
                                                                       {-1, {}}}) {
        DichteFilter const filter(static_cast<DStdType>(standard));
        EXPECT_EQ(static_cast<int>(DStdType(filter.GetDStd())), standard);
        for (int i = 0; i < 4; ++i) {
            Filter channel = filter[i];
            auto const& weights = channel.Weights();
            int const peak = i == 0 ? 570 : peaks[i - 1];
            // The printed tables sum to 100 and 1 to their own rounding.
            EXPECT_NEAR(channel.FilterSumme(),
                        peak == 0 ? 0
                        : i == 0  ? 100
                                  : 1,
                        i == 0 ? 1e-3 : 3e-5)
                << standard << i;
            if (peak == 0) continue;
            EXPECT_EQ(380 + 10 * (std::ranges::max_element(weights) - weights.begin()), peak)
                << standard << i;
        }
    }
}

TEST(DichteFilter, DinIsSevenPointsAndNarrowBandOne) {
    double const heights[] = {0.0405405, 0.108108, 0.216216, 0.27027, 0.216216, 0.108108, 0.0405405};
    DichteFilter const din(DStdType::Din), narrow(DStdType::DinNb);
    for (auto const& [channel, centre] : Rows<int, int>{{1, 24}, {2, 15}, {3, 5}}) {
        for (int k = 0; k < SpectralPoints; ++k) {
            int const j = k - centre + 3;
            EXPECT_NEAR(din[channel].Weights()[k], j >= 0 && j < 7 ? heights[j] : 0.0,
                        5e-7);  // six printed digits
            EXPECT_EQ(narrow[channel].Weights()[k], k == centre ? 1.0F : 0.0F);
        }
    }
}

class PhiTest : public ContextTest {};

TEST_F(PhiTest, MurrayDaviesThroughEveryFilter) {
    CMetry::EnterWhite(Flat(0.8F));
    for (auto const& [tone, solid, area] :
         Rows<float, float, double>{{0.8F, 0.2F, 0},
                                    {0.5F, 0.2F, 0.5},
                                    {0.2F, 0.2F, 1},
                                    {0.1F, 0.2F, 7.0 / 6},
                                    {0.9F, 0.2F, -1.0 / 6},
                                    {0.5F, 0.8F, 0},     // solid equal to the white
                                    {0.5F, 0.9F, 0}}) {  // and lighter than it
        for (int filter = 0; filter < 4; ++filter)
            EXPECT_NEAR(Phi(filter, Flat(tone), Flat(solid)), area, 1e-6)
                << tone << ' ' << solid << ' ' << filter;
    }
}

TEST_F(PhiTest, WhiteIsThatOfTheLastEntry) {
    CMetry::SetDensityStandard(DStdClass(DStdType::DinNb));
    Spectrum paper = Flat(0.8F);
    paper[24] = 0.6F;  // 620 nm, red
    CMetry::EnterWhite(paper);
    CMetry::EnterWhite(Flat(0));  // withdrawn, and the factors still hold
    EXPECT_NEAR(Phi(1, Flat(0.4F), Flat(0.2F)), 0.5, 1e-6);
    EXPECT_NEAR(Phi(2, Flat(0.4F), Flat(0.2F)), 2.0 / 3, 1e-6);
    CMetry::SetDensityStandard(DStdClass(DStdType::AnsiM));  // an empty red filter against the old white
    EXPECT_EQ(Phi(1, Flat(0.4F), Flat(0.2F)), 1.0F);
}

}  // namespace kv::test
