#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

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
