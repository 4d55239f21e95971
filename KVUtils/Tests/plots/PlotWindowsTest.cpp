#include "KVUtils/Source/plots/GraficWindow.h"
#include "KVUtils/Source/plots/PlotWindow.h"
#include "KVUtils/Tests/plots/PlotRecord.h"
#include "SV/core/International.h"

#include <gtest/gtest.h>

#include <array>

namespace kv::test {
namespace {

using Drawing = std::vector<std::string>;

constexpr sv::Color Green(0, 0xFFFF, 0);

class GraficWindowTest : public testing::Test {
  protected:
    GraficWindowTest() {
        plot.SetPosSizePixel({0, 0}, {100, 100});
        // Without a step there are no ticks.
        plot.ChangeXAxisData(AxisData(0, 1, 0, 0));
        plot.ChangeYAxisData(AxisData(0, 1, 0, 0));
    }
    void AddCurve(DiagramType type) {
        std::array<float, 3> const x = {0, 0.5F, 1};
        std::array<float, 3> const y = {0, 0.25F, 1};
        plot.AddCurve(Curve(x.data(), y.data(), 3, Green, type));
    }

    sv::Window frame{nullptr};
    GraficWindow plot{&frame};
};

TEST_F(GraficWindowTest, StandsShownOnWhite) {
    EXPECT_TRUE(plot.IsVisible());
    EXPECT_EQ(sv::headless::Render(plot).At(50, 50), sv::BitmapPixel(255, 255, 255));
    EXPECT_EQ(plot.GetLogicToPixel({0.5F, 0.5F}), sv::Point(50, 50));
    EXPECT_EQ(plot.GetLogicToPixel({2, -1}), sv::Point(200, -100)) << "nothing is clipped";
}

TEST_F(GraficWindowTest, DrawsAxesBelowCurvesBelowTheCursor) {
    AxisData x(-0.5F, 0.5F, 1, 1);
    x.SetPixelOffset(7);
    plot.ChangeXAxisData(x);
    AxisData y(0, 1, 0, 4);
    y.SetPixelOffset(20);
    plot.ChangeYAxisData(y);
    AddCurve(DIAGRAM_LINE);
    plot.SetCursor(0, CURSOR_LINE, 0);
    Drawing const expected = {
        "line 0,20 100,20",  // the X axis, where Y has its offset
        "line -43,10 -43,30", "line 7,15 7,25",
        "line 57,10 57,30",   "line 107,15 107,25",   // -1 -0.5 0 0.5
        "line 7,0 7,100",                             // the Y axis, which has no ticks
        "line 57,20 107,45",  "line 107,45 157,120",  // the curve
        "line 57,0 57,100",                           // the cursor
    };
    EXPECT_EQ(Drawn(plot), expected);
}

TEST_F(GraficWindowTest, DrawsCurvesByTheirTypes) {
    struct Row {
        DiagramType type;
        Drawing drawn;
    };
    std::vector<Row> const rows = {
        {DIAGRAM_CROSSES,
         {"line -3,0 3,0", "line 0,-3 0,3", "line 47,25 53,25", "line 50,22 50,28", "line 97,100 103,100",
          "line 100,97 100,103"}},
        {DIAGRAM_WIDE, {}},
        {DIAGRAM_LINE, {"line 0,0 50,25", "line 50,25 100,100"}},
        {static_cast<DiagramType>(9), {}},
    };
    for (Row const& row : rows) {
        plot.DeleteAllCurve();
        AddCurve(row.type);
        EXPECT_EQ(Drawn(plot), row.drawn) << row.type;
    }
    EXPECT_EQ(plot.GetPen(), sv::Pen()) << "the pen is back";
}

TEST_F(GraficWindowTest, DrawsTheCursorOnItsCurve) {
    AddCurve(DIAGRAM_WIDE);
    struct Row {
        float x;
        CursorType type;
        int curve;
        Drawing drawn;
    };
    std::vector<Row> const rows = {
        {0.5F, CURSOR_NONE, 0, {}},
        {0.3F, CURSOR_LINE, 7, {"line 30,0 30,100"}},
        {0.5F, CURSOR_MARKER, 0, {"rect 46,28 53,21"}},
        {0.5F, CURSOR_CROSS, 0, {"line 50,0 50,100", "line 0,25 100,25"}},
        {0.5F, CURSOR_MARKER, 1, {}},
        {0.5F, CURSOR_CROSS, -1, {}},
        {0.3F, CURSOR_CROSS, 0, {}},  // no point of the curve
    };
    for (Row const& row : rows) {
        plot.SetCursor(row.x, row.type, row.curve);
        EXPECT_TRUE(sv::headless::IsInvalid(plot));
        EXPECT_EQ(Drawn(plot), row.drawn) << row.type << ' ' << row.x << ' ' << row.curve;
    }
    plot.SetCursor(0.5F, CURSOR_CROSS, 0);
    auto const calls = sv::headless::Record(plot);
    EXPECT_EQ(calls.back().pen, sv::Pen(Green, 1, sv::PenStyle::Dash));
}

TEST_F(GraficWindowTest, OwnsItsCurves) {
    std::array<float, 2> y = {1, 2};
    Curve curve(0, 1, y.data(), 2, Green, DIAGRAM_LINE);
    plot.AddCurve(curve);
    curve.GetPoint(0).Y() = 9;
    EXPECT_EQ(plot.GetCurve(0)->GetPoint(0).Y(), 1);
    EXPECT_EQ(plot.GetCurve(1), nullptr);
    EXPECT_EQ(plot.GetCurve(-1), nullptr);
    plot.DeleteAllCurve();
    plot.DeleteAllCurve();
    EXPECT_EQ(plot.GetCurveList()->Count(), 0U);
}

class PlotWindowTest : public testing::Test {
  protected:
    PlotWindowTest() { plot.SetPosSizePixel({0, 0}, {190, 138}); }
    void AddCurve(std::array<float, 2> y) {
        plot.AddCurve(Curve(400, 700, y.data(), 2, sv::Color(), DIAGRAM_LINE));
    }

    sv::Window frame{nullptr};
    PlotWindow plot{&frame, AxisText("nm", 0), AxisText("R", 1)};
};

TEST_F(PlotWindowTest, PutsTheDiagramBetweenItsMargins) {
    ASSERT_EQ(plot.GetChildren().size(), 1U);
    sv::Window const& diagram = *plot.GetChildren()[0];
    EXPECT_EQ(diagram.GetPosPixel(), sv::Point(40, 18));
    EXPECT_EQ(diagram.GetSizePixel(), sv::Size(100, 100));
}

TEST_F(PlotWindowTest, WritesLabelsAtMajorTicksAndTheTitles) {
    plot.ChangeXAxisData(AxisData(400, 700, 100, 4));
    plot.ChangeYAxisData(AxisData(0, 1, 0.5F, 4));
    // A letter is 7 pixels wide.
    std::string const point(1, sv::International::GetNumDecimalSep());
    std::vector<std::string> const expected = {
        "text 30,2 400",
        "text 63,2 500",
        "text 96,2 600",
        "text 130,2 700",
        "text 148,15 nm",
        "text 11,12 0" + point + "0",
        "text 11,62 0" + point + "5",
        "text 11,112 1" + point + "0",
        "text 37,123 R",
    };
    EXPECT_EQ(Drawn(plot), expected);
}

TEST_F(PlotWindowTest, FitsAxesToTheData) {
    AddCurve({0.2F, 0.4F});
    AddCurve({0.1F, 0.3F});
    plot.YAutoScale(0, AUTOSCALE_BOTH, 1);
    EXPECT_FLOAT_EQ(plot.GetYAxisData()->GetMinimum(), 0.19F);
    EXPECT_FLOAT_EQ(plot.GetYAxisData()->GetMaximum(), 0.41F);
    EXPECT_EQ(plot.GetYAxisText().GetDecimals(), 2);
    EXPECT_TRUE(sv::headless::IsInvalid(plot));

    plot.YAutoScale(AUTOSCALE_BOTH, 0);
    EXPECT_FLOAT_EQ(plot.GetYAxisData()->GetMinimum(), 0.095F);
    EXPECT_FLOAT_EQ(plot.GetYAxisData()->GetMaximum(), 0.42F);
    EXPECT_EQ(plot.GetYAxisText().GetDecimals(), 2) << "kept";

    plot.YScale(0, 100, 1);
    EXPECT_EQ(*plot.GetYAxisData(), AxisData(-5, 105, 100, 4));
    EXPECT_EQ(plot.GetYAxisText().GetDecimals(), 0);

    plot.XAutoScale(0, AUTOSCALE_MIN, 0);
    EXPECT_EQ(*plot.GetXAxisData(), AxisData(385, 1, 1, 4)) << "reversed: no labels, all at the left";
    AxisData const before = *plot.GetXAxisData();
    plot.XAutoScale(7, AUTOSCALE_BOTH, 1);
    EXPECT_EQ(*plot.GetXAxisData(), before) << "no such curve";

    plot.YAutoScale(static_cast<unsigned char>(1));
    EXPECT_FLOAT_EQ(plot.GetYAxisData()->GetMinimum(), 0.19F) << "the highest curve decides";
    plot.YMaxAutoScale(0.1F, 0);
    EXPECT_FLOAT_EQ(plot.GetYAxisData()->GetMinimum(), 0.1F - 0.32F * 0.05F);
}

}  // namespace
}  // namespace kv::test
