#include "KVUtils/Tests/TestSupport.h"

#include <type_traits>

namespace kv::test {

static_assert(!std::is_polymorphic_v<ColorVector> && !std::is_default_constructible_v<ColorVector>);
static_assert(sizeof(LABVector) == sizeof(ColorVector) && sizeof(dLCHmgVector) == sizeof(ColorVector));

class ColorVectorTest : public ContextTest {};

TEST_F(ColorVectorTest, ArithmeticIsByComponentAndLeavesTheConditions) {
    LABVector v(1, 2, -3, SomeCondition);
    LABVector const w = Lab(2, 4, 8);
    ExpectNear(v += w, {3, 6, 5}, 0);
    ExpectNear(v *= w, {6, 24, 40}, 0);
    ExpectNear(v -= w, {4, 20, 32}, 0);
    ExpectNear(v /= w, {2, 5, 4}, 0);
    ExpectNear((v *= 3.0F) /= 6.0F, {1, 2.5, 2}, 0);
    EXPECT_EQ(Text(v.GetIllum()), "A");
    EXPECT_EQ(Lab(2, -3, 6).Length(), 7.0F);
    EXPECT_TRUE(std::isinf((v /= Lab(0, 0, 0))[0]));
    EXPECT_EQ(std::string(Lab(1, 2.5, -3).operator sv::String().View()),
              "{" + Localised("1.00") + ", " + Localised("2.50") + ", " + Localised("-3.00") + "}");
}

// The weights in force are those of F7 and 10 degrees, the spectrum was measured with a polarisation filter
// against paper, and the vectors are of SomeCondition.
TEST_F(ColorVectorTest, ConditionsOfEveryConversion) {
    CMetry::SetCMetry(IllumClass(IllumType::F7), ObserverClass(ObserverType::TenDegrees));
    CMetryFilter a = Weights(IllumClass(IllumType::A), ObserverType::TwoDegrees);
    Spectrum const spectrum(0.5F, SomeCondition);
    LABVector const lab(50, 10, 20, SomeCondition);
    XYZVector const xyz(20, 20, 20, SomeCondition);
    char const* const inForce = "[F7,10\xB0,Pol,Pap]";
    char const* const ofArgument = "[A,2\xB0,Pol,Pap]";
    char const* const ofVector = SomeConditionText;
    for (auto const& [what, condition, expected] : Rows<char const*, MeasuringCondition, char const*>{
             {"XYZ of spectrum", XYZVector(spectrum), inForce},
             {"XYZ of weights", XYZVector(a, spectrum), ofArgument},
             {"XYZ of Lab", XYZVector(lab), ofVector},
             {"Lab of spectrum", LABVector(spectrum), inForce},
             {"Lab of weights", LABVector(a, spectrum), ofArgument},
             {"Lab of XYZ", LABVector(xyz), ofVector},
             {"Lab of weights and XYZ", LABVector(a, xyz), ofVector},
             {"Lab of LCh", LABVector(LChVector(lab)), ofVector},
             {"xyY of spectrum", xyYVector(spectrum), "[,Abs]"},
             {"LCh of spectrum", LChVector(spectrum), inForce},
             {"LCh of XYZ", LChVector(xyz), ofVector},
             {"LCh of mg", LChVector(LCHmgVector(lab)), ofVector},
             {"mg, rectangular, and back", LCHmgVector(LABmgVector(LCHmgVector(lab))), ofVector},
             {"difference", dLCHVector(lab, Lab(1, 2, 3)), ofVector},
             {"difference, exchanged", dLCHVector(Lab(1, 2, 3), lab), "[,Abs]"},
             {"difference in mg", dLCHmgVector(lab, Lab(1, 2, 3)), ofVector}}) {
        EXPECT_EQ(Text(condition), expected) << what;
    }
}

// A write that a filter has not noticed has no effect on its sum, though the weights count.
TEST_F(ColorVectorTest, SumsThatAreCurrentAreNotFormedAnew) {
    float* const weights = CMetry::LXYZFilter[1];
    float const sum = CMetry::LXYZFilter[1].FilterSumme();
    float const more = weights[18];
    weights[18] += more;
    EXPECT_NEAR(XYZVector(Flat(1))[1], 100.0 * (sum + more) / sum,
                1e-4);  // weights of some 1000, summed in float
    EXPECT_GT(LABVector(Flat(1))[0], 102.0F);
    CMetry::LXYZFilter[1].CalculateSumme();
    EXPECT_NEAR(XYZVector(Flat(1))[1], 100, 5e-5);
    weights[18] -= more;
}

}  // namespace kv::test
