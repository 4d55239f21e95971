#include "SV/headless/HeadlessBackend.h"
#include "SV/ui/Printer.h"
#include "SV/ui/Window.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace sv {
namespace {

using headless::JobState;
using headless::LastPrintedJob;

/// Logs the printer's links.
struct Watcher {
    long Started(Printer* printer) {
        log += "started ";
        if (abortsAtStart) printer->AbortJob();
        return 0;
    }
    long Ended(Printer* /*sender*/) {
        log += "ended ";
        return 0;
    }

    std::string log;
    bool abortsAtStart = false;
};

class PrinterTest : public testing::Test {
  protected:
    ~PrinterTest() override { headless::HeadlessBackend::Instance().ChangePrinters({}); }

    Printer printer{"Office"};
};

TEST_F(PrinterTest, RecordsPagesInTenthsOfAMillimetre) {
    printer.ChangeMapMode(MapMode(MapUnit::TenthMillimetre));
    ASSERT_TRUE(printer.StartJob("job") && printer.StartPage());
    printer.ChangeFont(Font(40));
    printer.DrawLine({150, 100}, {1900, 100});
    printer.DrawText({150, 120}, "text");
    EXPECT_EQ(printer.GetTextSize("text"), Size(68, 40));
    EXPECT_EQ(printer.PixelToLogic(Point(2100, 2970)), Point(2100, 2970));
    ASSERT_TRUE(printer.EndJob());

    auto const& job = LastPrintedJob();
    EXPECT_EQ(job.printer, "Office");
    EXPECT_EQ(job.job.name, "job");
    EXPECT_EQ(job.state, JobState::Ended);
    ASSERT_EQ(job.pages.size(), 1U);
    auto const& page = job.pages[0];
    EXPECT_EQ(page.size, Size(2100, 2970));
    ASSERT_EQ(page.calls.size(), 2U);
    EXPECT_EQ(page.calls[0].to, Point(1900, 100));
    EXPECT_EQ(page.calls[1].font.GetHeight(), 40);
    EXPECT_EQ(page.Pixels().At(1000, 100), BitmapPixel(0, 0, 0)) << "the line";
    EXPECT_EQ(page.Pixels().At(50, 50), BitmapPixel(255, 255, 255)) << "paper";
}

TEST_F(PrinterTest, ReportsItsPage) {
    headless::HeadlessBackend::Instance().ChangePrinters({.offset = {50, 40}, .takesJobs = true});
    Printer bordered("Office");
    EXPECT_EQ(bordered.ChangePaperSize({1480, 2100}), Size(2100, 2970));
    EXPECT_EQ(bordered.ChangeOrientation(Orientation::Landscape), Orientation::Portrait);
    EXPECT_EQ(bordered.GetPaperSizePixel(), Size(2100, 1480));
    EXPECT_EQ(bordered.GetPageOffsetPixel(), Size(50, 40));
    EXPECT_EQ(bordered.GetOutputSizePixel(), Size(2000, 1400));
    bordered.ChangePaperSize({0, 2100});
    ASSERT_TRUE(bordered.StartJob({}));
    bordered.ChangePaperSize({10, 10});
    EXPECT_EQ(bordered.GetPageSetup().paper, Size(1480, 2100))
        << "unchanged by an empty size and during a job";
}

TEST_F(PrinterTest, RunsOneJobAfterTheOther) {
    Watcher watcher;
    printer.ChangeStartPrintHdl(Link::To<&Watcher::Started>(watcher));
    printer.ChangeEndPrintHdl(Link::To<&Watcher::Ended>(watcher));
    EXPECT_FALSE(printer.StartPage());
    EXPECT_FALSE(printer.EndJob());
    printer.AbortJob();
    EXPECT_EQ(watcher.log, "") << "without a job";

    printer.SetDocument({"Report", "Author", "en"});
    ASSERT_TRUE(printer.StartJob({}));
    EXPECT_TRUE(printer.IsPrinting());
    EXPECT_FALSE(printer.StartJob({})) << "one at a time";
    EXPECT_EQ(LastPrintedJob().job.name, "Report");
    EXPECT_TRUE(printer.StartPage());
    EXPECT_FALSE(printer.StartPage());
    EXPECT_TRUE(printer.EndPage());
    EXPECT_FALSE(printer.EndPage());
    EXPECT_TRUE(printer.EndJob());
    EXPECT_FALSE(printer.IsPrinting());
    EXPECT_EQ(std::exchange(watcher.log, {}), "started ended ");

    // The user may abort while the job starts; the printing code need not check.
    watcher.abortsAtStart = true;
    EXPECT_TRUE(printer.StartJob({}));
    EXPECT_FALSE(printer.StartPage());
    printer.DrawLine({0, 0}, {9, 9});
    EXPECT_FALSE(printer.EndJob());
    EXPECT_EQ(std::exchange(watcher.log, {}), "started ended ");
    EXPECT_TRUE(printer.HasFailed());
    EXPECT_EQ(LastPrintedJob().state, JobState::Aborted);
    EXPECT_TRUE(LastPrintedJob().pages.empty());

    { ASSERT_TRUE(Printer("Brief").StartJob({})); }
    EXPECT_EQ(LastPrintedJob().printer, "Brief");
    EXPECT_EQ(LastPrintedJob().state, JobState::Aborted) << "destroyed during a job";

    headless::HeadlessBackend::Instance().ChangePrinters({.offset = {}, .takesJobs = false});
    Printer gone("Gone");
    EXPECT_FALSE(gone.StartJob({}));
    EXPECT_TRUE(gone.HasFailed());
    headless::HeadlessBackend::Instance().ChangePrinters({});
    EXPECT_FALSE(Printer("report.PDF").StartJob({})) << "no file is written without a display";
    headless::HeadlessBackend::Instance().ChangePrinters({.offset = {}, .recordsFiles = true});
    EXPECT_TRUE(Printer("report.PDF").StartJob({}));
}

// A window with lines, a text and a child.
class Panel final : public Window {
  public:
    Panel() : Window(nullptr) {
        SetPosSizePixel({7, 7}, {100, 50});
        inner.SetPosSizePixel({50, 20}, {40, 20});
        inner.ChangeBackgroundBrush(Brush(Color(0xFFFF, 0, 0)));
        inner.Show();
    }
    void Paint(Rectangle const& /*area*/) override {
        DrawLine({10, 10}, {90, 10});
        DrawLine({80, 30}, {120, 40});
        DrawLine({-9, 30}, {-1, 30});
        DrawText({90 - GetTextSize("ab").Width(), 20}, "ab");
    }

    Window inner{this};
};

TEST_F(PrinterTest, DrawsWindowsOnPages) {
    printer.ChangeMapMode(MapMode(MapUnit::TenthMillimetre));
    ASSERT_TRUE(printer.StartJob("job") && printer.StartPage());
    Panel panel;
    panel.PrintOn(printer, Rectangle::Of({200, 300}, {400, 200}));
    ASSERT_TRUE(printer.EndJob());

    auto const& calls = LastPrintedJob().pages.at(0).calls;
    ASSERT_EQ(calls.size(), 5U) << "nothing that lies outside";
    EXPECT_EQ(calls[0].to, Point(599, 499)) << "the background";
    EXPECT_EQ(calls[1].from, Point(240, 340));
    EXPECT_EQ(calls[1].to, Point(560, 340));
    EXPECT_EQ(calls[1].pen.GetWidth(), 4);
    EXPECT_EQ(calls[2].from, Point(520, 420));
    EXPECT_EQ(calls[2].to, Point(596, 440)) << "clipped at the edge";
    EXPECT_EQ(calls[3].from, Point(560 - 2 * 28, 380));
    EXPECT_EQ(calls[3].font.GetHeight(), 64);
    EXPECT_EQ(calls[4].from, Point(400, 380)) << "the child";
    EXPECT_EQ(calls[4].to, Point(559, 459));
    EXPECT_TRUE(headless::Record(panel).size() == 5) << "then on the screen again";
}

}  // namespace
}  // namespace sv
