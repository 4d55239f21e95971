#include "Apps/Tests/kvcolor/Program.h"
#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Swatch.h"

#include <map>
#include <sstream>

namespace kvcolor::test {

namespace {

ColourDepth DepthWith(bool isTerminal, std::map<std::string, std::string> const& variables) {
    std::ostringstream sink;
    auto const variable = [&](char const* name) {
        auto const found = variables.find(name);
        return found == variables.end() ? std::string() : found->second;
    };
    return DepthOf(Environment{.out = sink, .err = sink, .outIsTerminal = isTerminal, .variable = variable});
}

}  // namespace

TEST(SwatchTest, DepthFollowsTheTerminal) {
    EXPECT_EQ(DepthWith(true, {{"TERM", "xterm"}, {"COLORTERM", "truecolor"}}), ColourDepth::TrueColour);
    EXPECT_EQ(DepthWith(true, {{"TERM", "xterm-256color"}}), ColourDepth::Palette256);
    EXPECT_EQ(DepthWith(true, {{"TERM", "xterm-256color"}, {"NO_COLOR", ""}}), ColourDepth::Palette256);
    EXPECT_EQ(DepthWith(true, {{"TERM", "xterm-256color"}, {"NO_COLOR", "1"}}), ColourDepth::None);
    EXPECT_EQ(DepthWith(true, {{"TERM", "dumb"}, {"COLORTERM", "truecolor"}}), ColourDepth::None);
    EXPECT_EQ(DepthWith(true, {{"TERM", "vt100"}}), ColourDepth::None);
    EXPECT_EQ(DepthWith(true, {}), ColourDepth::None);
    EXPECT_EQ(DepthWith(false, {{"TERM", "xterm-256color"}, {"COLORTERM", "truecolor"}}), ColourDepth::None);
}

TEST(SwatchTest, ColoursOfTheChart) {
    auto const white = ToRgb(kv::Spectrum(1.0F, kv::PhysicalConditions()));
    for (int const channel : white) EXPECT_NEAR(channel, 255, 1);
    EXPECT_EQ(ToRgb(kv::Spectrum()), (Rgb{0, 0, 0}));
    // The sRGB values published for the chart; the average of other specimens differs by a few steps.
    struct Patch {
        char const* name;
        std::array<int, 3> published;
    };
    auto const file = files::ReadMeasurementFile(ChartA);
    for (Patch const& patch : {Patch{"dark skin", {115, 82, 68}},
                               {"foliage", {87, 108, 67}},
                               {"purple", {94, 60, 108}},
                               {"neutral 5 (.70 D)", {122, 122, 121}}}) {
        auto const sample = std::ranges::find(file.samples, patch.name, &files::Sample::name);
        ASSERT_NE(sample, file.samples.end());
        Rgb const rgb = ToRgb(sample->spectrum);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(rgb[i], patch.published[i], 6) << patch.name << ' ' << i;
    }
}

TEST(SwatchTest, EscapeSequences) {
    EXPECT_EQ(SwatchText({1, 20, 255}, ColourDepth::TrueColour), "\x1B[48;2;1;20;255m  \x1B[0m");
    // Cube corners, a colour inside, and a grey of the ramp.
    EXPECT_EQ(SwatchText({0, 0, 0}, ColourDepth::Palette256), "\x1B[48;5;16m  \x1B[0m");
    EXPECT_EQ(SwatchText({255, 255, 255}, ColourDepth::Palette256), "\x1B[48;5;231m  \x1B[0m");
    EXPECT_EQ(SwatchText({250, 100, 5}, ColourDepth::Palette256), "\x1B[48;5;202m  \x1B[0m");
    EXPECT_EQ(SwatchText({118, 118, 118}, ColourDepth::Palette256), "\x1B[48;5;243m  \x1B[0m");
}

}  // namespace kvcolor::test
