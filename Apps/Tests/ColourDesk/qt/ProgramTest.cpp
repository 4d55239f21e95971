// The program ColourDesk without a display.
#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <QImage>
#include <string>
#include <vector>

namespace colourdesk::test {

namespace {

int StatusOf(std::vector<std::string> const& arguments) {
    qputenv("ASAN_OPTIONS", "detect_leaks=0");  // system libraries leak on exit
    auto const program = platform::Process::Start(KV_COLOURDESK, arguments);
    return program == nullptr ? -1 : program->Wait();
}

TEST(ColourDeskProgramTest, DrawsItsWindowAndItsPlot) {
    tests::TemporaryDirectory const folder;
    std::string const window = folder / "window.png";
    std::string const plot = folder / "plot.png";
    ASSERT_EQ(StatusOf({KV_APPS_DATA "/ink-series.txt", "--standard", "100", "--select", "50,100", "--cursor",
                        "550", "--language", "de", "--screenshot", window, "--plot", plot}),
              0);
    QImage const part(QString::fromStdString(plot));
    EXPECT_GT(QImage(QString::fromStdString(window)).width(), part.width());
    // The solid's curve is the only part of the plot in its colour.
    int pixels = 0;
    for (int x = 0; x < part.width(); ++x) {
        for (int y = 0; y < part.height(); ++y) {
            QColor const pixel = part.pixelColor(x, y);
            pixels += pixel.red() < 40 && pixel.green() > 100 && pixel.blue() > 100 ? 1 : 0;
        }
    }
    EXPECT_GT(pixels, 0);
}

TEST(ColourDeskProgramTest, FailsWithItsStatus) {
    EXPECT_EQ(StatusOf({"--language", "fr"}), 2);
    EXPECT_EQ(StatusOf({"nowhere.csv", "--screenshot", "x.png"}), 1);
    EXPECT_EQ(StatusOf({"--screenshot", "/nowhere/x.png"}), 1);
    EXPECT_EQ(StatusOf({KV_APPS_DATA "/ink-series.txt", "--standard", "bogus", "--plot", "x.png"}), 1);
}

}  // namespace

}  // namespace colourdesk::test
