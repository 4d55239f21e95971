#include "KVUtils/Source/plots/detail/AutoScale.h"
#include "KVUtils/Source/plots/detail/PlotGeometry.h"
#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {
namespace {

constexpr float Huge = std::numeric_limits<float>::max();
constexpr sv::Color Red(65535, 0, 0);

Curve CurveOf(std::vector<fPoint> const& points) {
    Curve curve(nullptr, nullptr, 0, Red, DIAGRAM_LINE);
    for (fPoint const& point : points) curve.AddPoint(&point, sv::Container::End);
    return curve;
}

TEST(fPoint, Arithmetic) {
    EXPECT_EQ(fPoint(sv::Point(-32768, 7)), fPoint(-32768, 7));
    EXPECT_EQ(fPoint(1, 2) + fPoint(3, 5) - fPoint(2, 2), fPoint(2, 5));
    EXPECT_EQ(fPoint(1, 2) * 3 / 2, fPoint(1.5F, 3));
    EXPECT_EQ(fPoint(1, 2) / 0, fPoint(std::numeric_limits<float>::infinity(), 1 / 0.0F));
    EXPECT_EQ(fPoint(1, 2).Distance({4, -2}), 5.0F);
    EXPECT_EQ(fPoint(-3e38F, 0).Distance({0, 0}), 3e38F) << "squares beyond a float";
}

TEST(Curve, EquidistantPoints) {
    float const y[] = {5, 6, 7, 8};
    Curve const curve(400, 401, y, 4, Red, DIAGRAM_CROSSES);
    ASSERT_EQ(curve.Count(), 4U);
    float const third = 1.0F / 3;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(curve.GetPoint(i), fPoint(float(i * double{third} + 400), y[i]));
    EXPECT_EQ(curve.GetCurveColor(), Red);
    EXPECT_EQ(curve.GetCurveType(), DIAGRAM_CROSSES);

    Curve const single(400, 700, y, 1, Red, DIAGRAM_LINE);
    EXPECT_TRUE(std::isnan(single.GetPoint(0).X()));
    EXPECT_EQ(single.GetPoint(0).Y(), 5);
    for (int const count : {0, -1, std::numeric_limits<int>::min()})
        EXPECT_EQ(Curve(400, 700, y, count, Red, DIAGRAM_LINE).Count(), 0U);
}

TEST(Curve, Extremes) {
    struct Row {
        std::vector<fPoint> points;
        fPoint minX, maxX, minY, maxY;
    };
    for (Row const& row : {Row{{}, {Huge, Huge}, {}, {Huge, Huge}, {}},
                           Row{{{1, -3}, {2, -1}}, {1, -3}, {2, -1}, {1, -3}, {0, 0}},
                           Row{{{1, 2}, {2, 5}, {2, 5.5F}, {3, 5.5F}}, {1, 2}, {3, 5.5F}, {1, 2}, {2, 5.5F}},
                           Row{{{-1, 4}, {-1, 3}}, {-1, 4}, {0, 0}, {-1, 3}, {-1, 4}}}) {
        Curve const curve = CurveOf(row.points);
        EXPECT_EQ(curve.GetMinXPoint(), row.minX);
        EXPECT_EQ(curve.GetMaxXPoint(), row.maxX);
        EXPECT_EQ(curve.GetMinYPoint(), row.minY);
        EXPECT_EQ(curve.GetMaxYPoint(), row.maxY);
    }
}

TEST(Curve, ValueIsLookedUpNotInterpolated) {
    Curve const curve = CurveOf({{450, 0.5F}, {451, 0.7F}, {450, 0.9F}});
    EXPECT_EQ(curve.GetFktVal(450), 0.5F);
    EXPECT_EQ(curve.GetFktVal(451), 0.7F);
    EXPECT_TRUE(std::isnan(curve.GetFktVal(450.5F)));
    EXPECT_TRUE(std::isnan(curve.GetFktVal(std::numeric_limits<float>::quiet_NaN())));
}

TEST(Curve, CopiesAreDeepAndAssignmentsAreNot) {
    Curve target = CurveOf({{9, 9}});
    fPoint const& before = target.GetPoint(0);
    {
        Curve source = CurveOf({{1, 1}, {2, 2}});
        Curve copy = source;
        copy.GetPoint(0).Y() = 7;
        EXPECT_EQ(source.GetPoint(0), fPoint(1, 1));
        target = source;
        source = target;  // shared in a circle
        target.GetPoint(1).Y() = 7;
        EXPECT_EQ(source.GetPoint(1), fPoint(2, 7));
        fPoint const first(0, 0);
        source.AddPoint(&first, 0);
        EXPECT_EQ(source.Count(), 3U);
    }
    ASSERT_EQ(target.Count(), 2U);
    EXPECT_EQ(target.GetPoint(0), fPoint(1, 1)) << "outlives the curve that made it";
    EXPECT_EQ(before, fPoint(9, 9));
}

TEST(CurveList, KeepsOrderAndOwnsNothing) {
    Curve a = CurveOf({}), b = CurveOf({}), c = CurveOf({});
    CurveList list;
    list.Insert(&b, sv::Container::End);
    list.Insert(&a, &b);
    EXPECT_EQ(list.First(), &a);
    EXPECT_EQ(list.Next(), &b);
    EXPECT_EQ(list.Next(), nullptr);
    EXPECT_EQ(list.Replace(&c, &b), &b);
    EXPECT_EQ(list.GetPos(&c), 1U);
    EXPECT_EQ(list.Remove(&a), &a);
    EXPECT_EQ(list.GetObject(0), &c);
    EXPECT_EQ(list.GetObject(1), nullptr);
}

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

using namespace detail;

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

AxisData Axis(float minimum, float maximum, float step, int subdivisions, int offset = 0) {
    AxisData axis(minimum, maximum, step, subdivisions);
    axis.SetPixelOffset(offset);
    return axis;
}

TEST(PlotGeometry, LogicToPixel) {
    for (auto const& [axis, extent, value, pixel] :
         Rows<AxisData, int, float, int>{{{}, 100, 0.5F, 50},
                                         {{}, 100, 0, 0},
                                         {{}, 100, 1, 100},
                                         {{}, 100, 0.999F, 99},
                                         {{}, 100, -0.005F, 0},  // toward zero
                                         {{}, 100, -0.015F, -1},
                                         {Axis(400, 700, 50, 4, 7), 300, 450, 57},
                                         {{}, 1024, 40, -24576},  // 40960, in 16 bits
                                         {{}, 1024, 64.001F, 1},  // and once round
                                         {{}, 1, 1e30F, 0},       // a multiple of 65536
                                         {Axis(3, 3, 1, 4, 7), 100, 5, 7},
                                         {Axis(385, 1, 1, 4, 7), 100, 400, 7},
                                         {Axis(0, 2e-7F, 1, 4, 7), 128, 1e-7F, 71},
                                         {Axis(0, 1e-7F, 1, 4, 7), 128, 1e-7F, 7},  // scale not above 1e-9
                                         {Axis(0, 1, 1, 4, 7), 0, 0.5F, 7},
                                         {Axis(1, 1, 1, 4, 7), 0, 1, 7},
                                         {Axis(0, 1, 1, 4, 7), 100, NotANumber, 7},
                                         {Axis(0, 1, 1, 4, 7), 100, Infinity, 7}}) {
        EXPECT_EQ(LogicToPixel(axis, extent, value), pixel) << value << " of " << extent;
    }
}

TEST(PlotGeometry, Ticks) {
    struct Row {
        AxisData axis;
        int extent;
        std::vector<Tick> ticks;
    };
    for (Row const& row : {
             Row{Axis(0, 2, 1, 1), 100, {{0, 10}, {25, 5}, {50, 10}, {75, 5}, {100, 10}}},
             Row{Axis(-0.5F, 0.5F, 1, 1), 100, {{-50, 10}, {0, 5}, {50, 10}, {100, 5}}},
             Row{Axis(0.25F, 1, 0.5F, 0, 3), 75, {{-22, 10}, {28, 10}, {78, 10}}},
             Row{Axis(0, 1, 1, -5), 8, {{0, 10}, {8, 10}}}, Row{Axis(0, 1, 0, 4), 100, {}},
             Row{Axis(0, 1, 0.9e-9F, 4), 100, {}}, Row{Axis(0, 1, NotANumber, 4), 100, {}},
             Row{Axis(385, 1, 1, 4), 100, {}},
             Row{Axis(1e9F, 2e9F, 1, 4), 100, {{0, 10}}},  // the step is lost in the value's last digit
         }) {
        std::vector<Tick> const ticks = Ticks(row.axis, row.extent);
        ASSERT_EQ(ticks.size(), row.ticks.size()) << row.axis.GetMinimum() << ' ' << row.axis.GetStep();
        for (std::size_t i = 0; i < ticks.size(); ++i)
            EXPECT_EQ(ticks[i], row.ticks[i]) << i << ": " << ticks[i].position << ' ' << ticks[i].halfLength;
    }
}

TEST(PlotGeometry, TickValuesGrowByFloatAddition) {
    // Fifty additions of 0.02 miss 1.0, by how much only `float` knows.
    float value = 0;
    std::size_t count = 0;
    for (; value <= 1; value += 0.02F) ++count;
    EXPECT_EQ(Ticks(Axis(0, 1, 0.1F, 4), 100).size(), count);
}

TEST(PlotGeometry, LabelsAndTheirPositions) {
    struct Row {
        AxisData axis;
        int decimals;
        std::vector<std::pair<std::string, int>> labels;
    };
    for (Row const& row :
         {Row{Axis(-5, 105, 100, 4), 0, {{"0", 4}, {"100", 95}}},
          Row{Axis(-0.5F, 1, 0.5F, 4, 2), 1, {{"-0.5", 2}, {"0.0", 35}, {"0.5", 68}, {"1.0", 102}}},
          Row{Axis(385, 1, 1, 4), 0, {}}, Row{Axis(0, 1, 1e-9F, 4), 0, {}},
          Row{Axis(0, 1, NotANumber, 4), 0, {}}}) {
        std::vector<TickLabel> const labels = TickLabels(row.axis, 100, row.decimals);
        ASSERT_EQ(labels.size(), row.labels.size());
        for (std::size_t i = 0; i < labels.size(); ++i) {
            EXPECT_EQ(Text(labels[i].text), Localised(row.labels[i].first));
            EXPECT_EQ(labels[i].position, row.labels[i].second) << row.labels[i].first;
        }
    }
    TickLabel const label{0, "0", 50};
    EXPECT_EQ(XLabelPosition(label, 21), sv::Point(80, 2));
    EXPECT_EQ(YLabelPosition(label, 21), sv::Point(11, 62));
}

TEST(PlotGeometry, TheDiagramWithinItsWindow) {
    DiagramArea const area = DiagramWithin({190, 138});
    EXPECT_EQ(area.position, sv::Point(40, 18));
    EXPECT_EQ(area.size, sv::Size(100, 100));
    EXPECT_EQ(DiagramWithin({10, 10}).size, sv::Size(-80, -28));
    EXPECT_EQ(XTitlePosition({100, 90}), sv::Point(148, 15));
    EXPECT_EQ(YTitlePosition({100, 90}), sv::Point(37, 113));
}

TEST(PlotGeometry, TheValueAtAPixel) {
    EXPECT_FLOAT_EQ(PixelToLogic(Axis(380, 730, 50, 4), 350, 170), 550);
    EXPECT_FLOAT_EQ(PixelToLogic(Axis(0, 1, 1, 4, 10), 100, 35), 0.25F);
    EXPECT_EQ(PixelToLogic(Axis(5, 1, 1, 4), 100, 35), 5) << "a reversed range has one pixel";
    EXPECT_EQ(PixelToLogic(Axis(0, 1, 1, 4), 0, 35), 0) << "nor has a window without extent";
}

}  // namespace
}  // namespace kv::test
