#include "KVUtils/Source/controls/detail/NumberLadder.h"
#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {
namespace {

using namespace detail;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double MinimalStep = 0.0001F;  // a hair below the rung 0.0001

TEST(NumberLadder, RungsAreTypedNumbers) {
    for (auto const& [index, value] : Rows<int, double>{{0, 1},
                                                        {1, 1.25},
                                                        {13, 9},
                                                        {14, 10},
                                                        {15, 12.5},
                                                        {-1, 0.9},
                                                        {-3, 0.7},
                                                        {-14, 0.1},
                                                        {-15, 0.09},
                                                        {-56, 0.0001},
                                                        {27 * 14 + 10, 6e27},
                                                        {-40 * 14 + 3, 1.75e-40},
                                                        {308 * 14 + 4, Infinity},
                                                        {-330 * 14, 0}}) {
        EXPECT_EQ(LadderValue(index), value) << index;
    }
}

TEST(NumberLadder, OneStep) {
    struct Row {
        double from, up, down;
    };
    for (Row const& row : {Row{1, 1.25, 0.9},
                           {1.25, 1.5, 1},
                           {9, 10, 8},
                           {10, 12.5, 9},
                           {1.3, 1.5, 1.25},
                           {2, 2.5, 1.75},
                           {0.7, 0.8, 0.6},
                           {0.1, 0.125, 0.09},
                           {1000, 1250, 900},
                           {-1, -0.9, -1.25},
                           {-1.3, -1.25, -1.5},
                           {0, 0.0001, -0.0001},
                           {0.0001, 0.000125, 0.00009},
                           {0.00009, 0.0001, -0.0001},
                           {-0.00009, 0.0001, -0.0001},
                           {Infinity, Infinity, Infinity},
                           {1e308, 1.25e308, 9e307}}) {
        EXPECT_EQ(NextOnLadder(row.from, StepDirection::Up, MinimalStep), row.up) << row.from;
        EXPECT_EQ(NextOnLadder(row.from, StepDirection::Down, MinimalStep), row.down) << row.from;
    }
    EXPECT_EQ(NextOnLadder(0, StepDirection::Up, 0), 0);
    EXPECT_EQ(NextOnLadder(5e-324, StepDirection::Down, 0), 0);
    EXPECT_TRUE(std::isnan(NextOnLadder(std::nan(""), StepDirection::Up, MinimalStep)));
}

TEST(NumberLadder, EveryStepGoesTheRightWayAndBack) {
    for (int index = -100; index < 100; ++index) {
        double const rung = LadderValue(index);
        ASSERT_EQ(NextOnLadder(rung, StepDirection::Up, 0), LadderValue(index + 1));
        ASSERT_EQ(NextOnLadder(rung, StepDirection::Down, 0), LadderValue(index - 1));
        ASSERT_EQ(NextOnLadder(std::nextafter(rung, 0), StepDirection::Up, 0), rung);
        ASSERT_EQ(NextOnLadder(std::nextafter(rung, Infinity), StepDirection::Down, 0), rung);
    }
}

TEST(NumberLadder, IntegersAndLimits) {
    EXPECT_EQ(NextInteger(2.7, StepDirection::Up), 3);
    EXPECT_EQ(NextInteger(2.7, StepDirection::Down), 1);
    EXPECT_EQ(NextInteger(-0.5, StepDirection::Down), -1);
    for (auto const& [value, minimum, maximum, clamped] : Rows<double, double, double, double>{
             {90, 0, 100, 90}, {125, 0, 100, 100}, {-0.0001, 0, 100, 0}, {5, 9, 3, 9}})
        EXPECT_EQ(ClampStep(value, minimum, maximum), clamped) << value;
}

}  // namespace
}  // namespace kv::test
