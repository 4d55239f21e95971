#include "KVUtils/Source/plots/PlotWindow.h"
#include "KVUtils/Tests/plots/PlotRecord.h"
#include "SV/core/International.h"

#include <gtest/gtest.h>

#include <array>

namespace kv::test {

namespace {

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
