#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/printing/AbortDialog.h"
#include "KVUtils/Source/printing/MyPrinter.h"
#include "KVUtils/Source/printing/detail/PageLayout.h"
#include "KVUtils/Tests/DisplaySupport.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

#include <string>
#include <vector>

namespace kv::test {
namespace {

using sv::headless::DrawCall;
using sv::headless::DrawKind;
using sv::headless::HeadlessBackend;
using sv::headless::JobState;
using sv::headless::LastPrintedJob;
using namespace detail;

/// A line of the normal font, and the width of each of its letters.
constexpr int L = 37;
constexpr int W = 16;

class MyPrinterTest : public FrameTest {
  protected:
    MyPrinterTest() {
        HeadlessBackend::Instance().ChangePrinters({.offset = {50, 50}, .takesJobs = true});
        AppConfig::CreateAppConfig(PathOf("app.ini"));
        AppName::CreateAppName("Bench", "1.0");
        KVSetting::Instance()->SetBenutzername("Ada");
        Text::LoadText(KV_TEXTS "/colourdesk", 1);
        printer = MyPrinter::CreateMyPrinter("Office");
    }
    ~MyPrinterTest() override {
        EndService(MyPrinter::Instance());
        EndService(KVSetting::Instance());
        HeadlessBackend::Instance().ChangePrinters({});
    }

    MyPrinter* printer;
};

/// "x,y text" and "x,y -> x,y" for each call of a page. Date and time are left out of the stamp.
std::vector<std::string> Drawn(std::size_t page) {
    auto const place = [](sv::Point point) {
        return std::to_string(point.X()) + ',' + std::to_string(point.Y());
    };
    std::vector<std::string> drawn;
    for (DrawCall const& call : LastPrintedJob().pages.at(page).calls) {
        if (call.kind == DrawKind::Line) drawn.push_back(place(call.from) + " -> " + place(call.to));
        if (call.kind != DrawKind::Text) continue;
        bool const isStamp = call.text.Search("   ") != sv::String::NotFound;
        drawn.push_back(isStamp ? "stamp" : place(call.from) + ' ' + std::string(call.text.View()));
    }
    return drawn;
}

TEST_F(MyPrinterTest, StartsAtTheEdgesOfThePage) {
    EXPECT_EQ(printer->curPos(), sv::Point(100, 50));
    EXPECT_EQ(printer->maxCurPos(), sv::Point(1900, 2820));
    printer->DefFootNote(1);
    EXPECT_EQ(printer->maxCurPos(), sv::Point(1900, 2820 - 3 * L));
    EXPECT_EQ(printer->GetFont().GetHeight(), L) << "ten points, and the normal font is selected";
    printer->Titel();
    EXPECT_EQ(printer->GetFont().GetHeight(), 67);
    EXPECT_EQ(static_cast<int>(printer->GetFont().GetWeight()), 3);
    EXPECT_EQ(printer->GetColorCount(), 1UL << 24U);

    printer->ChangeOrientation(sv::Orientation::Landscape);
    ASSERT_EQ(printer->Start(0), 1);
    EXPECT_EQ(printer->maxCurPos().X(), 2770) << "edges are those of the job's paper";
    printer->End();
}

TEST_F(MyPrinterTest, WritesHeadLineTextAndFootNote) {
    printer->DefHeadLine(1);
    printer->DefFootNote(1);
    ASSERT_EQ(printer->Start(0), 1);
    EXPECT_EQ(printer->curPos(), sv::Point(100, 50 + 4 * L));
    printer->WriteString("first", 0);
    printer->WriteString("second", 300);
    printer->WriteLn(2);
    EXPECT_EQ(printer->curPos(), sv::Point(100, 50 + 6 * L));
    printer->NewPage();
    printer->WriteString("further", 0);
    printer->End();

    // The foot note's rule at 2820 - 2.1 L, cut.
    ASSERT_EQ(LastPrintedJob().pages.size(), 2U);
    EXPECT_EQ(Drawn(0), (std::vector<std::string>{"100,50 Ada", "stamp", "100,124 -> 1900,124",
                                                  "100,198 first", "400,198 second", "100,2742 -> 1900,2742",
                                                  "100,2779 Bench", std::to_string(1900 - W) + ",2779 1"}));
    EXPECT_EQ(Drawn(1).back(), std::to_string(1900 - W) + ",2779 2");
    sv::headless::DrawCall const& stamp = LastPrintedJob().pages[0].calls[1];
    EXPECT_EQ(stamp.from.X() + W * static_cast<int>(stamp.text.Len()), 1900) << "at the right";

    ASSERT_EQ(printer->Start(0), 1);
    printer->End();
    EXPECT_EQ(Drawn(0).back(), std::to_string(1900 - W) + ",2779 1") << "pages are counted anew";
}

TEST_F(MyPrinterTest, LeavesOutWhatTheTypesSay) {
    struct Row {
        KVHeaderFooterTYPE header;
        KVHeaderFooterTYPE footer;
        int body;              // y of the first line
        std::size_t drawings;  // on a page without a line
    };
    static constexpr Row rows[] = {
        {KV_HF_FULL, KV_HF_FULL, 50 + 4 * L, 6},
        {KV_HF_FULL, KV_HF_SPACE, 50 + 4 * L, 0},  // the footer's type decides for both
        {KV_HF_SPACE, KV_HF_FULL, 50 + 4 * L, 6},
        {KV_HF_NONE, KV_HF_FULL, 50, 3},
        {KV_HF_FULL, KV_HF_NONE, 50 + 4 * L, 0},
        {static_cast<KVHeaderFooterTYPE>(7), static_cast<KVHeaderFooterTYPE>(7), 50 + 4 * L, 0},
    };
    printer->DefHeadLine(1);
    printer->DefFootNote(1);
    for (Row const& row : rows) {
        printer->SetHeaderType(row.header);
        printer->SetFooterType(row.footer);
        ASSERT_EQ(printer->Start(0), 1);
        EXPECT_EQ(printer->curPos().Y(), row.body) << row.header << ' ' << row.footer;
        EXPECT_EQ(printer->maxCurPos().Y(), 2820 - 3 * L) << "kept whatever the type";
        printer->End();
        EXPECT_EQ(Drawn(0).size(), row.drawings) << row.header << ' ' << row.footer;
    }
}

TEST_F(MyPrinterTest, BreaksPagesWhereALineDoesNotFit) {
    ASSERT_EQ(printer->Start(0), 1);
    printer->setPos({300, 2820 - 2 * L});
    printer->WriteLn(1);
    EXPECT_EQ(printer->curPos(), sv::Point(300, 2820 - L)) << "the last line";
    printer->WriteLn(0);
    EXPECT_EQ(printer->curPos(), sv::Point(300, 2820 - L));
    printer->setPos({300, 2820 - L + 1});
    printer->WriteLn(0);
    EXPECT_EQ(printer->curPos(), sv::Point(100, 50)) << "no line on, and to the next page";
    printer->End();
    EXPECT_EQ(LastPrintedJob().pages.size(), 2U);
}

TEST_F(MyPrinterTest, SaysThatThePrinterTakesNoJob) {
    HeadlessBackend::Instance().ChangePrinters({.offset = {}, .takesJobs = false});
    MyPrinter* const gone = MyPrinter::CreateMyPrinter("Gone");
    EXPECT_EQ(MyPrinter::Instance(), gone) << "in place of the older one";
    BoxScript boxes;
    EXPECT_EQ(gone->Start(1), 0);
    SeenBox const box{sv::BoxKind::Error, 0x10, nullptr,
                      "The print job could not be started. Please check the printer."};
    EXPECT_EQ(boxes.seen, std::vector<SeenBox>{box});
}

/// The window of the printer, which is the last one in the application's.
AbortDialog* DialogIn(sv::Window const& window) {
    return window.GetChildren().empty() ? nullptr : dynamic_cast<AbortDialog*>(window.GetChildren().back());
}

TEST_F(MyPrinterTest, IsAbortedByTheButton) {
    sv::Window window(nullptr);
    window.SetPosSizePixel({100, 100}, {760, 428});
    sv::Application::SetAppWindow(&window);
    printer->ShowDialog();
    EXPECT_EQ(DialogIn(window), nullptr) << "made by the first start";
    bool wasVisible = false;
    {
        Person const person([&] {
            auto const& dialog = *DialogIn(window);
            wasVisible = dialog.IsVisible();
            EXPECT_EQ(dialog.GetText(), "Printing");
            EXPECT_EQ(dialog.GetResource(), (DialogResource{3301, 256}));
            auto const controls = dialog.GetChildren();
            ASSERT_EQ(controls.size(), 3U);
            EXPECT_EQ(controls[0]->GetText(), "The report is being sent to the printer:");
            EXPECT_EQ(controls[1]->GetText(), "Office");
            EXPECT_EQ(controls[2]->GetText(), "Cancel");
            controls[2]->WasClicked();
        });
        EXPECT_EQ(printer->Start(1), 1);
    }
    EXPECT_TRUE(wasVisible);
    EXPECT_FALSE(DialogIn(window)->IsVisible());
    printer->WriteString("lost", 0);
    printer->WriteLn(1);
    printer->End();
    EXPECT_EQ(LastPrintedJob().state, JobState::Aborted);
    EXPECT_TRUE(LastPrintedJob().pages.empty());

    ASSERT_EQ(printer->Start(0), 1);
    EXPECT_FALSE(DialogIn(window)->IsVisible()) << "not asked for";
    printer->ShowDialog();
    EXPECT_TRUE(DialogIn(window)->IsVisible());
    DialogIn(window)->WasClosed();
    EXPECT_EQ(LastPrintedJob().state, JobState::Aborted) << "closing is giving up";
    EndService(MyPrinter::Instance());
    EXPECT_EQ(DialogIn(window), nullptr);
    EXPECT_FALSE(MyPrinter::IsInstantiated());
    sv::Application::SetAppWindow(nullptr);
}

TEST(PageLayout, EdgesFollowThePaper) {
    struct Row {
        char const* what;
        sv::Size paper;
        sv::Size offset;
        int outputHeight;
        PageEdges edges;
    };
    static constexpr Row rows[] = {
        {"a border of 5 mm", {2100, 2970}, {50, 50}, 2870, {50, 2820, 100, 1900}},
        {"no border", {2100, 2970}, {0, 0}, 2970, {100, 2870, 150, 1950}},
        {"landscape", {2970, 2100}, {50, 40}, 2020, {60, 1960, 100, 2770}},
        {"margins inside the border", {2100, 2970}, {160, 120}, 2730, {0, 2729, 0, 1790}},
        {"a printer that ends early", {2100, 2970}, {50, 50}, 2700, {50, 2699, 100, 1900}},
        {"exactly at its end", {2100, 2970}, {50, 50}, 2820, {50, 2819, 100, 1900}},
    };
    for (Row const& row : rows)
        EXPECT_EQ(EdgesOf(row.paper, row.offset, row.outputHeight), row.edges) << row.what;
}

TEST(PageLayout, LinesEndAboveTheFootNote) {
    constexpr PageEdges edges{100, 2870, 150, 1950};
    EXPECT_EQ(BodyBottom(edges, 37, false), 2870);
    EXPECT_EQ(BodyBottom(edges, 37, true), 2870 - 111);
    EXPECT_FALSE(IsPageFull(2833, 37, 2870)) << "the last line touches the edge";
    EXPECT_TRUE(IsPageFull(2834, 37, 2870));
}

TEST(PageLayout, HeadAndFootHaveTheirRules) {
    auto const [headRule, body] = PlaceHead(100, 37);
    EXPECT_EQ(headRule, 174);
    EXPECT_EQ(body, 248);
    auto const [footRule, text] = PlaceFoot({100, 2870, 150, 1950}, 37);
    EXPECT_EQ(footRule, 2792) << "2870 - 77.7, cut";
    EXPECT_EQ(text, 2829);
}

}  // namespace
}  // namespace kv::test
