#include "KVUtils/Source/metrics/detail/DisplayMatrix.h"
#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

#include <algorithm>
#include <limits>

namespace kv::test {
namespace {

class RGBVectorTest : public ContextTest {
  protected:
    RGBVectorTest() { CMetry::SetMeasuringConditions(daylight_); }

    MeasuringCondition daylight_{IllumClass(IllumType::D65), ObserverClass(ObserverType::TwoDegrees),
                                 DStdClass(DStdType::Din), PhysicalConditions()};
};

TEST_F(RGBVectorTest, Greys) {
    // Under the display's own light the matrix makes a perfect white 1.0006, 1.0008 and 1.0008.
    for (auto const& [reflectance, percent] :
         Rows<float, double>{{-0.1F, 0},
                             {0, 0},
                             {0.2F, 123 / 2.55},  // 0.2^0.45 is 123.6 / 255
                             {0.9F, 243 / 2.55},
                             {1, 100},
                             {1.5F, 100}}) {
        ExpectNear(RGBVector(Flat(reflectance)), {percent, percent, percent}, 1e-5);
    }
    CMetry::SetCMetry(IllumClass(IllumType::A), ObserverClass(ObserverType::TenDegrees));
    ExpectNear(RGBVector(Flat(0.2F)), {123 / 2.55, 123 / 2.55, 123 / 2.55}, 1e-5);  // still that light
}

TEST_F(RGBVectorTest, LevelsAreTheInverseOfTheGamma) {
    Random random(255);
    for (int round = 0; round < 2000; ++round) {
        LABVector const lab = random.Lab();
        XYZVector const xyz(lab);
        RGBVector const rgb(lab);
        for (std::size_t i = 0; i < 3; ++i) {
            double linear = 0;
            for (std::size_t k = 0; k < 3; ++k)
                linear += double{detail::DisplayMatrix[3 * i + k]} * xyz[static_cast<int>(k)];
            double const level = 255 * std::pow(std::clamp(linear, 0.0, 1.0), 0.45);
            // Truncated to half levels, then to levels; a value within rounding of a level may fall to
            // either.
            double const found = rgb[static_cast<int>(i)] * 2.55;
            ASSERT_NEAR(found, std::round(found), 1e-4) << "seed 255, round " << round;
            ASSERT_TRUE(found > level - 1.001 && found < level + 0.001)
                << found << " for " << level << ", seed 255, round " << round;
        }
    }
}

TEST_F(RGBVectorTest, Conditions) {
    EXPECT_EQ(Text(MeasuringCondition(RGBVector(Spectrum(1.0F, SomeCondition)))), "[D65,2\xB0,Pol,Pap]");
    EXPECT_EQ(Text(MeasuringCondition(RGBVector(LABVector(50, 0, 0, SomeCondition)))), SomeConditionText);
}

constexpr std::uint16_t Full = 65535;

/// A colour whose hue is counted as `h` degrees, of which there are 57 to a radian, truncated in each
/// quadrant toward the a axis.
LABVector AtHue(int h, double c, double L) {
    bool const isLeft = h > 90 && h < 270;
    int const fromAxis = isLeft ? h - 180 : h - (h > 180 ? 360 : 0);
    double const angle = (fromAxis + ((isLeft ? h >= 180 : h < 180) ? 0.5 : -0.5)) / 57;
    double const sign = isLeft ? -1 : 1;
    return Lab(L, sign * c * std::cos(angle), sign * c * std::sin(angle));
}

TEST(ColorConverter, InksAreTakenFromTheLight) {
    for (auto const& [c, m, y, k, color] : Rows<float, float, float, float, sv::Color>{
             {0, 0, 0, 0, {Full, Full, Full}},
             {100, 0, 0, 0, {0, Full, Full}},
             {25, 50, 75, 0, {49152, 32768, 16384}},
             {25, 50, 75, 50, {16384, 0, 0}},
             {0, 0, 0, 99.999F, {0, 0, 0}},  // less than 1 is left
             {-10, 0.001F, 200, 0, {Full, Full, 0}},
             {std::numeric_limits<float>::quiet_NaN(), 0, 0, 0, {0, Full, Full}}}) {
        float const inks[] = {c, m, y, k};
        EXPECT_EQ(ColorConverter::CMYKToColor(inks), color) << c << ' ' << m << ' ' << y << ' ' << k;
    }
}

TEST(ColorConverter, ChannelsOfTheScreen) {
    RGBVector rgb(Flat(0));
    for (auto const& [percent, channel] :
         Rows<float, int>{{100, Full}, {99.999F, 65535}, {50, 32768}, {0.001F, 0}, {-1, 0}, {1000, Full}}) {
        rgb[0] = percent;
        rgb[1] = 0;
        rgb[2] = 50;
        EXPECT_EQ(ColorConverter::RGBToColor(rgb), sv::Color(static_cast<std::uint16_t>(channel), 0, 32768));
    }
    Spectrum const grey = Flat(0.2F);
    EXPECT_EQ(ColorConverter::SpectrumToColor(grey), ColorConverter::RGBToColor(RGBVector(grey)));
    EXPECT_EQ(ColorConverter::ConvertSpectrumToColor(grey), ColorConverter::SpectrumToColor(grey));
}

TEST_F(RGBVectorTest, ColoursOfTheScreenHaveKind29) {
    EXPECT_EQ(ColorConverter::RGBToColor(RGBVector(Flat(0.5F))).GetKind(), 29);
    EXPECT_EQ(sv::Color(29, 1, 2, 3), sv::Color(1, 2, 3)) << "the kind takes no part in comparisons";
}

TEST(ColorConverter, Neutrals) {
    for (auto const& [L, a, b, number] : Rows<double, double, double, int>{{50, 0, 0, 14},
                                                                           {90, 0, 0, 13},
                                                                           {20, 0, 0, 15},
                                                                           {80, 0, 0, 14},
                                                                           {80.001, 0, 0, 13},
                                                                           {30, 0, 0, 15},
                                                                           {-1, 0, 0, 13},
                                                                           {101, 0, 0, 13},
                                                                           {0, 10, 0, 15},
                                                                           {0, 10.01, 0, 0},
                                                                           {75, -7, 0, 14},
                                                                           {75, -7.01, 0, 4},
                                                                           {100, 0, 5, 13},
                                                                           {100, 0, 5.01, 8}}) {
        EXPECT_EQ(ColorConverter::FarbNummer(Lab(L, a, b)), number) << L << ' ' << a << ' ' << b;
    }
}

TEST(ColorConverter, HuesFromLimitToLimit) {
    for (auto const& [from, to, c, L, number] : Rows<int, int, double, double, int>{
             {335, 359, 60, 50, 0}, {0, 19, 60, 50, 0},    {300, 334, 60, 50, 1}, {271, 299, 60, 50, 2},
             {260, 269, 60, 50, 2}, {210, 259, 60, 50, 3}, {175, 209, 60, 50, 4}, {135, 174, 60, 50, 5},
             {110, 134, 49, 49, 6}, {110, 134, 51, 49, 7}, {110, 134, 49, 51, 7}, {91, 109, 49, 66, 8},
             {91, 109, 69, 64, 6},  {91, 109, 49, 64, 6},  {91, 109, 71, 64, 10}, {91, 109, 60, 66, 10},
             {80, 89, 60, 64, 9},   {80, 89, 49, 66, 8},   {80, 89, 71, 64, 10},  {80, 89, 60, 66, 10},
             {45, 79, 69, 66, 8},   {45, 79, 71, 64, 11},  {45, 79, 69, 64, 9},   {20, 44, 39, 49, 9},
             {20, 44, 56, 49, 12},  {36, 44, 50, 64, 9},   {20, 35, 50, 64, 12},  {36, 44, 50, 66, 12}}) {
        for (int const h : {from, to})
            EXPECT_EQ(ColorConverter::FarbNummer(AtHue(h, c, L)), number) << h << ", c " << c << ", L " << L;
    }
    for (auto const& [L, b, number] :
         Rows<double, double, int>{{50, 60, 6}, {65, 50, 10}, {65, 49.9, 8}, {50, 70, 10}, {50, -60, 2}})
        EXPECT_EQ(ColorConverter::FarbNummer(Lab(L, 0, b)), number) << L << ' ' << b;
    double const none = std::numeric_limits<double>::quiet_NaN();
    double const infinite = std::numeric_limits<double>::infinity();
    for (auto const& [a, b] : Rows<double, double>{{none, 1}, {1, none}, {infinite, -infinite}})
        EXPECT_EQ(ColorConverter::FarbNummer(Lab(50, a, b)), 0);
}

class ColorConverterTest : public FrameTest {};

TEST_F(ColorConverterTest, NamesStandInTheTexts) {
    EXPECT_EQ(ColorConverter::Farbzuordnung(Lab(50, 0, 0)), "");
    std::string texts = "{Other}\n[x]\n{FarbTexte}\n";
    for (int i = 0; i < 16; ++i) texts += "[name " + std::to_string(i) + "]\n";
    kv::Text::LoadText(Write("colours.lng", texts));
    EXPECT_EQ(ColorConverter::Farbzuordnung(Lab(50, 0, 0)), "name 14");
    EXPECT_EQ(ColorConverter::Farbzuordnung(Lab(50, 60, 0)), "name 0");
    EXPECT_EQ(ColorConverter::Farbzuordnung(Flat(1)), "name 13");
}

TEST(ColorConverter, Swatches) {
    LABVector const lab = Lab(60, 40, 20);
    sv::Color const color = ColorConverter::LabToBrush(lab).GetColor();
    EXPECT_EQ(color, ColorConverter::RGBToColor(RGBVector(lab)));
    EXPECT_EQ(ColorConverter::SpectrumToBrush(Flat(0.5F)),
              sv::Brush(ColorConverter::SpectrumToColor(Flat(0.5F))));
    sv::Bitmap const swatch = ColorConverter::LabToBitmap(lab, {12, 8});
    EXPECT_EQ(swatch.GetSizePixel(), sv::Size(12, 8));
    constexpr sv::BitmapPixel white(255, 255, 255);
    for (auto const& [x, y, pixel] : Rows<int, int, sv::BitmapPixel>{{0, 0, white},
                                                                     {11, 7, white},
                                                                     {1, 1, {0, 0, 0}},
                                                                     {10, 6, {0, 0, 0}},
                                                                     {2, 2, sv::BitmapPixel(color)},
                                                                     {9, 5, sv::BitmapPixel(color)}}) {
        EXPECT_EQ(swatch.At(x, y), pixel) << x << ", " << y;
    }
    EXPECT_EQ(ColorConverter::ColorToBitmap(color, {2, 8}), sv::Bitmap(sv::Size(2, 8), white)) << "no room";
    EXPECT_EQ(ColorConverter::SpectrumToBitmap(Flat(0.5F)).GetSizePixel(), ColorConverter::SwatchSize);
}

}  // namespace
}  // namespace kv::test
