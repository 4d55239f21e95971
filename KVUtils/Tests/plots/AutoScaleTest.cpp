#include "KVUtils/Source/plots/detail/AutoScale.h"
#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {
namespace {

using namespace detail;

/// A list that owns curves with these Y, at X 400, 700, ...
class Curves {
  public:
    explicit Curves(std::vector<std::vector<float>> const& values) {
        for (std::vector<float> const& y : values) {
            curves_.push_back(
                std::make_unique<Curve>(400.0F, 400.0F + 300.0F * static_cast<float>(y.size() - 1), y.data(),
                                        static_cast<int>(y.size()), sv::Color(), DIAGRAM_LINE));
            list.Insert(curves_.back().get(), sv::Container::End);
        }
    }
    CurveList list;

  private:
    std::vector<std::unique_ptr<Curve>> curves_;
};

// The values are decimal, the results `float`: 1e-6 of the size is some units of the last place.
void ExpectAxis(AxisData const& axis, double minimum, double maximum, double step, int decimals) {
    EXPECT_NEAR(axis.GetMinimum(), minimum, std::fabs(minimum) * 1e-6);
    EXPECT_NEAR(axis.GetMaximum(), maximum, std::fabs(maximum) * 1e-6);
    EXPECT_EQ(axis.GetStep(), static_cast<float>(step));
    EXPECT_EQ(axis.GetSubdivisions(), 4);
    EXPECT_EQ(axis.GetPixelOffset(), 0);
    EXPECT_EQ(LabelDecimals(axis), decimals);
}

TEST(AutoScale, OneCurve) {
    Curves const curves({{0.2F, 0.4F}, {-2, -1}});
    Curve const& curve = *curves.list.GetObject(0);
    ExpectAxis(AutoScaleX(curve, AUTOSCALE_MIN), 385, 1, 1, 1);
    ExpectAxis(AutoScaleX(curve, AUTOSCALE_MAX), 0, 715, 100, 0);
    ExpectAxis(AutoScaleY(curve, AUTOSCALE_BOTH), 0.19, 0.41, 0.1, 2);
    ExpectAxis(AutoScaleY(curve, static_cast<AutoScaleType>(3)), 0, 1, 1, 1);
    Curve const& negative = *curves.list.GetObject(1);  // whose maximum counts as 0
    ExpectAxis(AutoScaleY(negative, AUTOSCALE_BOTH), -2.1, 0.1, 0.1, 2);
    ExpectAxis(AutoScaleY(Curve(nullptr, nullptr, 0, {}, DIAGRAM_LINE), AUTOSCALE_MAX), 0,
               0.05 * double{std::numeric_limits<float>::max()}, 1e37, 0);
}

TEST(AutoScale, AllCurves) {
    struct Row {
        std::vector<std::vector<float>> curves;
        AutoScaleType type;
        double minimum, maximum, step;
        int decimals;
    };
    double const huge = std::numeric_limits<float>::max();
    for (Row const& row : {Row{{{0.2F, 0.4F}}, AUTOSCALE_BOTH, 0.19, 0.42, 0.1, 2},
                           Row{{{0, 0.4F}}, AUTOSCALE_BOTH, 0, 0.42, 0.1, 2},
                           Row{{{0.2F, 40}, {-1, 3}}, AUTOSCALE_BOTH, -1.05, 42, 10, 0},
                           Row{{{0.2F, 40}, {-1, 3}}, AUTOSCALE_MIN, -1.05, 1, 1, 1},
                           Row{{{0.2F, 40}, {-1, 3}}, AUTOSCALE_MAX, 0, 42, 10, 0},
                           Row{{{-3, -1}, {-2, -1}}, AUTOSCALE_MAX, 0, 0.001, 0.001, 4},
                           Row{{{5, 6}}, static_cast<AutoScaleType>(3), 0, 1, 1, 1},
                           Row{{}, AUTOSCALE_BOTH, huge, 0.001, 0.001, 4}}) {
        SCOPED_TRACE(row.maximum);
        Curves const curves(row.curves);
        ExpectAxis(AutoScaleY(curves.list, row.type), row.minimum, row.maximum, row.step, row.decimals);
    }
}

TEST(AutoScale, TheHighestCurveAndGivenEnds) {
    // Of the two that reach 10 the first decides, and the lowest of all takes no part.
    ExpectAxis(AutoScaleY(Curves({{-50, 5}, {2, 10}, {0, 10}}).list), 1.6, 10.4, 10, 0);
    ExpectAxis(AutoScaleY(CurveList()), 0, 1, 1, 1);
    ExpectAxis(AutoScaleYMax(Curves({{0, 3}, {0, 20}}).list, 1), 0, 21, 10, 0);
    ExpectAxis(AutoScaleYMax(CurveList(), 0), -0.00005, 0.001, 0.001, 4);
    ExpectAxis(ScaleY(0, 100), -5, 105, 100, 0);
    ExpectAxis(ScaleY(20, 37.5F), 19.125, 38.375, 10, 0);
}

TEST(AutoScale, MaximaWithoutAScale) {
    AxisData const zero = ScaleY(0, 0);
    EXPECT_EQ(zero.GetStep(), 0);
    EXPECT_EQ(LabelDecimals(zero), 0);
    AxisData const negative = ScaleY(-10, -5);
    EXPECT_TRUE(std::isnan(negative.GetStep()));
    EXPECT_EQ(LabelDecimals(negative), 1) << "of the maximum's size";
    EXPECT_EQ(LabelDecimals(AxisData(0, std::numeric_limits<float>::infinity(), 1, 4)), 0);
}

}  // namespace
}  // namespace kv::test
