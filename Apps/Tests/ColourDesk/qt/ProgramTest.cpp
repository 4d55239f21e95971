// The program itself, without a screen.
#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <QImage>
#include <string>
#include <vector>

namespace colourdesk::test {

namespace {

int StatusOf(std::vector<std::string> const& arguments) {
    // What the system's libraries keep to their end is no fault of the program's.
    qputenv("ASAN_OPTIONS", "detect_leaks=0");
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
    QImage const picture(QString::fromStdString(window));
    QImage const part(QString::fromStdString(plot));
    EXPECT_GT(picture.width(), part.width());
    EXPECT_GT(part.width(), 300);
    // The solid's curve stands in the plot in its own colour, which nothing else there has.
    bool isThere = false;
    for (int x = 0; x < part.width(); ++x) {
        for (int y = 0; y < part.height(); ++y) {
            QColor const pixel = part.pixelColor(x, y);
            isThere = isThere || (pixel.red() < 40 && pixel.green() > 100 && pixel.blue() > 100);
        }
    }
    EXPECT_TRUE(isThere);
}

TEST(ColourDeskProgramTest, FailsInWords) {
    struct Row {
        std::vector<std::string> arguments;
        int status;
    };
    for (Row const& row :
         {Row{{"--help"}, 0}, Row{{"--bogus"}, 2}, Row{{"--language", "fr"}, 2},
          Row{{"nowhere.csv", "--screenshot", "x.png"}, 1}, Row{{"--screenshot", "/nowhere/x.png"}, 1},
          Row{{KV_APPS_DATA "/ink-series.txt", "--standard", "bogus", "--plot", "x.png"}, 1}}) {
        EXPECT_EQ(StatusOf(row.arguments), row.status) << row.arguments.front();
    }
}

}  // namespace

}  // namespace colourdesk::test
