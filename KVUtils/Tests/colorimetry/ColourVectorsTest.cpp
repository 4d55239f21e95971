#include "KVUtils/Tests/TestSupport.h"

#include <algorithm>
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

class XYZVectorTest : public ContextTest {};

TEST_F(XYZVectorTest, WeightedSumsOverTheSumOfTheYWeights) {
    CMetryFilter weights = Weights(IllumClass(IllumType::F11), ObserverType::TenDegrees);
    Spectrum const spectrum = Random(2).Reflectances(0, 1);
    Triple sums{};
    double sumOfY = 0;
    for (int k = 0; k < SpectralPoints; ++k) {
        sumOfY += weights[1].Weights()[k];
        for (unsigned short i = 0; i < 3; ++i) sums[i] += double{weights[i].Weights()[k]} * spectrum[k];
    }
    for (double& sum : sums) sum *= 100 / sumOfY;
    ExpectNear(XYZVector(weights, spectrum), sums, 2e-4);  // 36 roundings of the sum of weights: 2e-6 of 100
}

TEST_F(XYZVectorTest, ComesBackFromLab) {
    CMetry::SetCMetry(IllumClass(IllumType::D50), ObserverClass(ObserverType::TenDegrees));
    XYZVector const white(Flat(1));
    ExpectNear(XYZVector(Lab(100, 0, 0)), {white[0], white[1], white[2]},
               2e-5);  // the stored 0.00862069 is 1/116
    Random random(1976);
    for (int round = 0; round < 5000; ++round) {
        // A third of them dark, where the function is linear.
        double const most = round % 3 == 0 ? 1.5 : 110;
        XYZVector const xyz(random.Float(0, most), random.Float(0, most), random.Float(0, most), {});
        XYZVector const back{LABVector(xyz)};
        // L*, a*, b* of up to 500 lose 3e-5 in float, which is 6e-8 of a root and thrice that of its cube;
        // below the limit the slope 7.787 and its inverse agree to 5e-5.
        for (int i = 0; i < 3; ++i)
            ASSERT_NEAR(back[i], xyz[i], 2e-5 * xyz[i] + 5e-5) << "seed 1976, " << round;
    }
}

TEST_F(XYZVectorTest, ChromaticityOfGreyIsThatOfWhiteAndOfBlackNone) {
    xyYVector const white(Flat(1));
    ExpectNear(xyYVector(Flat(0.18F)), {white[0], white[1], 18}, 1e-5);
    EXPECT_TRUE(std::isnan(xyYVector(Flat(0))[0]));
}

TEST(LABVector, OnesAreWhiteUnderEveryLight) {
    Random random(5);
    for (int type = 0; type < 36; ++type) {
        IllumClass const illuminant(static_cast<IllumType>(type), 55);
        if (Lichtart(illuminant).GetFilter().isDefined() == 0) continue;
        CMetryFilter weights = Weights(illuminant, ObserverType::TenDegrees);
        // Sums in double above and in float below: 36 roundings, a third of them in the root, times 500.
        ExpectNear(LABVector(weights, Flat(1)), {100, 0, 0}, 4e-4);
        ExpectNear(LABVector(weights, Flat(0.2F)), {51.8372, 0, 0}, 4e-4);  // 116 cbrt(0.2) - 16
        Spectrum const spectrum = random.Reflectances(0, 0.1);
        LABVector const direct(weights, spectrum);
        // By way of XYZ t differs by a unit of float; the steepest slope is 7.787 x 500, at t of some 0.01.
        ExpectNear(LABVector(weights, XYZVector(weights, spectrum)), {direct[0], direct[1], direct[2]}, 1e-4);
    }
}

TEST(LABVector, LimitItselfAndNegativeRatiosAreLinear) {
    float point[SpectralPoints] = {1};  // in all three channels, so that t is the sample itself
    Filter const filters[] = {Filter(point), Filter(point), Filter(point)};
    CMetryFilter weights(filters);
    float const limit = 0.008856F, above = std::nextafter(limit, 1.0F);
    // 116 (7.787 t + 16/116) - 16 = 903.292 t; on the other side 116 cbrt(t) - 16, which is 2.4e-4 less
    // there.
    for (auto const& [t, L] : Rows<float, double>{{limit, 903.292 * double{limit}},
                                                  {above, 116 * std::cbrt(double{above}) - 16},
                                                  {0.001F, 0.903292},
                                                  {0, 0},
                                                  {-0.001F, -0.903292}}) {
        EXPECT_NEAR(LABVector(weights, Flat(t))[0], L, 2e-6) << t;
    }
}

TEST(LChVector, HueLiesAboveZeroUpTo360) {
    for (auto const& [a, b, C, h] : Rows<double, double, double, double>{{0, 0, 0, 360},
                                                                         {1e-6, 0, 1e-6, 360},
                                                                         {9.9e-6, -9.9e-6, 1.4e-5, 360},
                                                                         {0, 1.1e-5, 1.1e-5, 90},
                                                                         {10, 0, 10, 360},
                                                                         {10, 1e-4, 10, 0.000573},
                                                                         {10, -1e-4, 10, 359.999427},
                                                                         {3, 4, 5, 53.130102},
                                                                         {-5, -0.0, 5, 180},
                                                                         {0, -2, 2, 270}}) {
        LChVector const lch(Lab(42, a, b));
        ExpectNear(lch, {42, C, h}, 2e-5);  // half a unit of float at 360
        EXPECT_TRUE(lch[2] > 0 && lch[2] <= 360) << lch[2];
    }
}

TEST(LChVector, NaNHasNoHue) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (auto const& [a, b] : Rows<double, double>{{nan, 0}, {0, nan}, {nan, nan}, {nan, 1}}) {
        EXPECT_TRUE(std::isnan(LChVector(Lab(50, a, b))[2])) << a << ' ' << b;
        EXPECT_TRUE(std::isnan(LCHmgVector(LABmgVector(LCHmgVector(Lab(50, a, b))))[2])) << a << ' ' << b;
    }
}

TEST(LChVector, ComesBackToLab) {
    Random random(7);
    for (int round = 0; round < 5000; ++round) {
        LABVector const lab = random.Lab();
        LABVector const back{LChVector(lab)};
        // Half a unit of hue at 360 is 1.5e-5 degrees, of chroma 140 it is 4e-5.
        for (int i = 0; i < 3; ++i) ASSERT_NEAR(back[i], lab[i], 6e-5) << "seed 7, round " << round;
    }
}

static LCHmgVector Mg(double L, double C, double h) { return LCHmgVector(LABVector(LCh(L, C, h))); }

TEST(LCHmgVector, ScaleIsTheIntegralOfTheCmcWeights) {
    for (auto const& [L, mg] :
         Rows<double, double>{{0, 0}, {15.99999, 31.3111}, {16, 31.3111}, {100, 112.2186}})
        EXPECT_NEAR(Mg(L, 0, 0)[0], mg, 1e-3) << L;
    EXPECT_NEAR(Mg(0, 0, 0)[1], 0, 5e-4);  // constants of five decimals
    for (double x = 2; x < 98; x += 4) {
        double const SL = x < 16 ? 0.511 : 0.040975 * x / (1 + 0.01765 * x);
        double const SC = 0.0638 * x / (1 + 0.0131 * x) + 0.638;
        // Over a step of 1; the curvature adds up to 2e-3 at small chroma.
        EXPECT_NEAR(Mg(x + 0.5, 0, 0)[0] - Mg(x - 0.5, 0, 0)[0], 1 / SL, 2e-3) << x;
        EXPECT_NEAR(Mg(50, x + 0.5, 90)[1] - Mg(50, x - 0.5, 90)[1], 1 / SC, 2e-3) << x;
    }
    // Worked out from the series; at 90 degrees 0.13893 + 0.04029 + 0.06742 + 0.00587 + 0.17914 radians are
    // added.
    for (auto const& [h, mg] : Rows<double, double>{{360, 360},
                                                    {22.5, 22.602747},
                                                    {45, 52.803231},
                                                    {90, 114.731723},
                                                    {180, 180 + 0.23518 * 57.29578}})
        EXPECT_NEAR(Mg(50, 20, h)[2], mg, 1e-3) << h;
    for (double h = 1; h < 360; ++h)
        EXPECT_GT(Mg(50, 20, h)[2], Mg(50, 20, h - 0.5)[2]) << "the series rises";
    ExpectNear(LABmgVector(LCHmgVector(50, 10, 120, {})), {50, -5, 8.660254}, 1e-5);
    ExpectNear(LCHmgVector(LABmgVector(1, 0, 0, {})), {1, 0, 360}, 0);
}

TEST(LCHmgVector, SearchComesBackToAThousandthOfTheScale) {
    Random random(1984);
    double most = 0, mostHue = 0;
    for (int round = 0; round < 2000; ++round) {
        LCHmgVector const mg = Mg(random(0, 100), random(1, 150), random(0.5, 359));
        LCHmgVector const again{LABVector(LChVector(mg))};
        for (int i = 0; i < 3; ++i) {
            double const miss = std::fabs(double{again[i]} - mg[i]);
            // The search ends at 0.001; a hue and a chroma pass through a* and b* on the way.
            ASSERT_LE(miss, 0.0012) << "seed 1984, round " << round << ", component " << i;
            most = std::max(most, miss);
        }
        // Just below 360 its float variables miss by up to 0.45 degrees.
        double const h = random(359, 360);
        double const missed = std::fabs(std::remainder(LChVector(Mg(50, 30, h))[2] - h, 360.0));
        ASSERT_LE(missed, 0.45) << "seed 1984, round " << round;
        mostHue = std::max(mostHue, missed);
    }
    RecordProperty("largestDeviation", std::to_string(most));
    RecordProperty("largestHueDeviationBelow360", std::to_string(mostHue));
    EXPECT_EQ(LChVector(LCHmgVector(50, 20, 0, {}))[2], 0.0F) << "a hue that was searched can be 0";
}

TEST(dLCHVector, FirstMinusSecondWithTheSenseOfRotation) {
    for (auto const& [first, second, d] : Rows<LABVector, LABVector, Triple>{
             {Lab(50, 3, 4), Lab(50, 3, 4), {0, 0, 0}},
             {Lab(60, 0, 10), Lab(50, 10, 0), {10, 0, 14.142136}},
             {Lab(50, 10, 0), Lab(60, 0, 10), {-10, 0, -14.142136}},
             {Lab(50, 10, 1), Lab(50, 10, -1), {0, 0, 2}},   // across the end of the circle
             {Lab(50, -10, 0), Lab(50, 10, 0), {0, 0, 20}},  // opposite: not negated
             {Lab(50, 0, 0), Lab(50, 3, -4), {0, -5, 0}}}) {
        ExpectNear(dLCHVector(first, second), d, 2e-6);
    }
    EXPECT_FALSE(std::signbit(dLCHVector(Lab(50, 3, 4), Lab(50, 3, 4))[2]));
}

TEST(dLCHVector, PartsMakeUpTheWholeAndEqualHuesShowLittle) {
    Random random(11);
    for (int round = 0; round < 5000; ++round) {
        LABVector const first = random.Lab(), second = random.Lab();
        dLCHVector const d(first, second);
        double const whole = DeltaE::CIELAB(first, second);
        ASSERT_NEAR(d.Length(), whole, 4e-7 * whole) << "seed 11, round " << round;
        double const turn = std::remainder(double{LChVector(first)[2]} - LChVector(second)[2], 360.0);
        if (std::fabs(turn) > 0.01 && std::fabs(turn) < 179.99) {
            ASSERT_EQ(d[2] > 0, turn > 0) << "seed 11, round " << round;
        }
        // A quarter of a and b: exactly the same hue. Delta C is stored as a float, and its rounding e leaves
        // sqrt(2 dC e), e being half a unit at 100, 4e-6.
        dLCHVector const radial(first, LABVector(first[0], first[1] / 4, first[2] / 4, {}));
        ASSERT_LE(std::fabs(radial[2]), std::sqrt(2 * double{radial[1]} * 4e-6))
            << "seed 11, round " << round;

        LCHmgVector const m1(first), m2(second);
        dLCHmgVector const mg(first, second);
        double const halfTurn = (double{m1[2]} - m2[2]) * 3.14159265358979 / 360;
        double const dH = 2 * std::sqrt(double{m1[1]} * m2[1]) * std::fabs(std::sin(halfTurn));
        ExpectNear(mg, {double{m1[0]} - m2[0], double{m1[1]} - m2[1], mg[2]}, 2e-5);
        ASSERT_NEAR(mg[2] * mg[2], dH * dH, 4e-3) << "seed 11, round " << round;
    }
}

}  // namespace kv::test
