#include "KVUtils/Source/metrics/detail/DisplayMatrix.h"
#include "KVUtils/Tests/TestSupport.h"

#include <algorithm>

namespace kv::test {

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

}  // namespace kv::test
