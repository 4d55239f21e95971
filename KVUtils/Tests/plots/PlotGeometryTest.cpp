#include "KVUtils/Source/plots/detail/PlotGeometry.h"
#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {
namespace {

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
