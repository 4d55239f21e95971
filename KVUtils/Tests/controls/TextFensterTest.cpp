#include "KVUtils/Source/controls/TextFenster.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/printing/MyPrinter.h"
#include "KVUtils/Tests/DisplaySupport.h"
#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/data/TestFile.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

#include <sstream>

namespace kv::test {
namespace {

class TextFensterTest : public FileTest {
  protected:
    [[nodiscard]] std::vector<std::string> Lines(TextFenster const& window) {
        std::FILE* const file = std::fopen(PathOf("copy").c_str(), "wb");
        EXPECT_EQ(window.CopyToFile(file), 1);
        std::fclose(file);
        std::vector<std::string> lines;
        std::istringstream text(Read(PathOf("copy")));
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }
    static sv::Window& Part(TextFenster const& window, std::size_t index) {
        EXPECT_EQ(window.GetChildren().size(), 2U) << "the list and the close button";
        return *window.GetChildren()[index];
    }
    using Strings = std::vector<std::string>;

    sv::Window parent_{nullptr};
};

TEST_F(TextFensterTest, StandsAsLaidOut) {
    parent_.SetPosSizePixel({100, 50}, {300, 200});
    TextFenster window(&parent_, "Messages", 600, 440);
    EXPECT_EQ(window.GetPosPixel(), sv::Point(120, 70));
    EXPECT_EQ(Part(window, 0).GetSizePixel(), sv::Size(600, 390));
    EXPECT_EQ(Part(window, 1).GetPosPixel(), sv::Point(240, 399));
    EXPECT_EQ(Part(window, 0).GetFont().GetPitch(), sv::FontPitch::Fixed);
    EXPECT_TRUE(Part(window, 0).HasFocus());
    window.ChangeSizePixel({300, 200});
    EXPECT_EQ(Part(window, 0).GetSizePixel(), sv::Size(300, 150));
    EXPECT_EQ(Part(window, 1).GetPosPixel(), sv::Point(90, 159));
    EXPECT_FALSE(window.IsVisible());
}

TEST_F(TextFensterTest, PrintsItsLinesOnPages) {
    using sv::headless::DrawKind;
    TextFenster window(&parent_, "Messages", 600, 440);
    window.EnablePrinting();
    ASSERT_EQ(window.GetChildren().size(), 3U);
    auto& button = dynamic_cast<KOBitmapButton&>(*window.GetChildren()[2]);
    EXPECT_EQ(button.GetFlags(), 32);
    EXPECT_EQ(button.GetPosPixel().X() + button.GetSizePixel().Width() + 155, 600) << "the bar is centred";
    button.Click();  // without a printer

    AppConfig::CreateAppConfig(PathOf("app.ini"));
    AppName::CreateAppName("Bench", "1.0");
    MyPrinter::CreateMyPrinter("Office");
    for (int i = 0; i < 100; ++i) window.AddLine("line " + std::to_string(i));
    button.Click();
    auto const& job = sv::headless::LastPrintedJob();
    EXPECT_EQ(job.state, sv::headless::JobState::Ended);
    EXPECT_EQ(job.pages.size(), 2U);
    int lines = 0;
    int rules = 0;
    for (auto const& page : job.pages) {
        for (auto const& call : page.calls) {
            if (call.kind == DrawKind::Text && call.text.View().starts_with("line ")) ++lines;
            if (call.kind == DrawKind::Line) ++rules;
        }
    }
    EXPECT_EQ(lines, 100);
    EXPECT_EQ(rules, 4) << "of a head line and a foot note on each page";
    for (KVSingleton* const service : std::initializer_list<KVSingleton*>{
             MyPrinter::Instance(), KVSetting::Instance(), AppName::Instance(), AppConfig::Instance()})
        EndService(service);
}

TEST_F(TextFensterTest, StreamsLines) {
    TextFenster::CreateCout();
    TextFenster& cout = *TextFenster::GetCout();
    cout << "a";
    EXPECT_TRUE(cout.IsEmpty() == 1 && cout.IsVisible());
    cout << "b\n";
    cout << "\nc\nd"
         << "e\n";
    EXPECT_EQ(Lines(cout), (Strings{"ab", "", "c", "de"}));
    cout.Clear();
    EXPECT_EQ(cout.IsEmpty(), 1);
    TextFenster::DeleteCout();
    EXPECT_EQ(TextFenster::GetCout(), nullptr);
}

TEST_F(TextFensterTest, HoldsMoreLinesThan16BitsCount) {
    TextFenster window(nullptr, "Messages", 600, 440);
    for (int i = 0; i < 66000; ++i) window.AddLine(sv::String(i));
    Strings const lines = Lines(window);
    ASSERT_EQ(lines.size(), 66000U);
    EXPECT_EQ(lines.back(), "65999");
}

TEST_F(TextFensterTest, ShowsAFile) {
    TextFenster window(nullptr, "File: ", 600, 440);
    std::string const file = Write("lines.txt", "one\r\n\n" + std::string(2500, 'x') + "\nlast");
    window.DateiAnzeigen(file);
    EXPECT_EQ(Lines(window), (Strings{"one", "", std::string(1000, 'x'), std::string(1000, 'x'),
                                      std::string(500, 'x'), "last"}));
    EXPECT_EQ(window.GetText(), sv::String("File: " + file));
    auto& list = dynamic_cast<sv::ListBoxControl&>(Part(window, 0));
    EXPECT_EQ(list.GetSelectEntryPos(), 0);
    window.AddLine("more");
    EXPECT_EQ(list.GetSelectEntryPos(), sv::ListBox::End);

    std::string told;
    sv::SetBoxHandler([&](sv::MessBox const& box) {
        told = box.GetText().View();
        return box.DefaultAnswer();
    });
    window.DateiAnzeigen("/nowhere");
    sv::SetBoxHandler({});
    EXPECT_EQ(told, "Could not open /nowhere");
    EXPECT_EQ(list.GetEntryCount(), 7);
}

TEST_F(TextFensterTest, WaitsForItsButton) {
    TextFenster window(nullptr, "", 600, 440);
    window.AnzeigenUndWarten(0);
    EXPECT_FALSE(window.IsVisible()) << "nothing to show";
    window.AnzeigenUndWarten(1);
    EXPECT_TRUE(window.IsVisible()) << "and without a display no waiting";
    {
        Person const person([&] { Part(window, 1).WasClicked(); });
        window.AnzeigenUndWarten(1);
        EXPECT_TRUE(window.IsVisible());
    }
    Person const person([&] { window.WasClosed(); });
    window.AnzeigenUndWarten(1);
    EXPECT_FALSE(window.IsVisible());
}

TEST_F(TextFensterTest, GathersTheMessagesOfADataFile) {
    sv::Application::SetAppWindow(&parent_);
    ASCIIFile file(Write("values.dat", "a=1\n"), 1, 0);
    file.MeldungenZeigen();
    EXPECT_TRUE(parent_.GetChildren().empty());
    file.MeldungAusgeben("line 1: no title");
    EXPECT_EQ(Lines(*file.GetTextFenster()), (Strings{"line 1: no title"}));
    EXPECT_EQ(file.GetTextFenster()->GetParent(), &parent_);
    EXPECT_EQ(file.GetTextFenster()->GetSizePixel(), sv::Size(600, 440));
    file.MeldungenZeigen();
    EXPECT_TRUE(parent_.GetChildren().empty()) << "and the next message has a new window";
    sv::Application::SetAppWindow(nullptr);
}

}  // namespace
}  // namespace kv::test
