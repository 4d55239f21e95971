#include "Apps/Tests/ColourDesk/DeskFixture.h"
#include "Apps/Tests/files/TestFiles.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Source/mail/Mailer.h"
#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "KVUtils/Tests/mail/MailClient.h"
#include "Platform/Library.h"
#include "SV/core/Mnemonic.h"
#include "SV/headless/HeadlessBackend.h"
#include "SV/ui/Controls.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>

namespace colourdesk::test {

namespace {

using kv::test::Localised;

// Columns of the table.
enum : int { Name, Colour, Lightness, RedGreen, YellowBlue, Chroma, Hue, Density, Difference, Judged };

/// Texts in which a letter chooses, of the window and of all windows in it.
void CollectMnemonics(sv::Window const& window, std::vector<sv::String>& texts) {
    if (dynamic_cast<sv::Button const*>(&window) != nullptr) texts.push_back(window.GetText());
    for (sv::Window const* const child : window.GetChildren()) CollectMnemonics(*child, texts);
}

void ExpectDistinct(std::vector<sv::String> const& texts) {
    std::map<char, sv::String> taken;
    for (sv::String const& text : texts) {
        std::size_t const mark = sv::FindMnemonic(text);
        ASSERT_NE(mark, sv::String::NotFound) << text.View();
        auto const letter =
            static_cast<char>(std::tolower(static_cast<unsigned char>(text.View()[mark + 1])));
        EXPECT_TRUE(taken.emplace(letter, text).second) << text.View() << " and " << taken[letter].View();
    }
}

}  // namespace

TEST_F(DeskTest, ShowsTheColoursOfAFile) {
    EXPECT_EQ(Status(), "Nothing is open. Open measurements, or measure a chart.");
    EXPECT_FALSE(desk.CanDo(Command::Save));
    ASSERT_TRUE(desk.Open(Chart));
    EXPECT_EQ(desk.GetSamples().GetRowCount(), 24);
    // As kvcolor convert prints them.
    EXPECT_EQ(Cell(0, Name), "dark skin");
    EXPECT_EQ(Cell(0, Colour), "brown");
    EXPECT_EQ(Cell(0, Lightness), Localised("38.42"));
    EXPECT_EQ(Cell(0, RedGreen), Localised("13.69"));
    EXPECT_EQ(Cell(0, YellowBlue), Localised("14.42"));
    EXPECT_EQ(Cell(0, Hue), Localised("46.5"));
    EXPECT_EQ(Cell(0, Difference), "");
    EXPECT_EQ(Status(), "24 samples, 1 selected   \xB7   no standard");
    EXPECT_TRUE(desk.CanDo(Command::Save));
    EXPECT_EQ(desk.GetText(), sv::String(Chart + " - ColourDesk"));
}

TEST_F(DeskTest, AFileThatCannotBeReadLeavesWhatIsOpen) {
    ASSERT_TRUE(desk.Open(Chart));
    std::string const broken = File("broken.csv");
    std::ofstream(broken) << "name,380\n1,2\n";
    EXPECT_FALSE(desk.Open(broken));
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_NE(boxes.seen[0].text.find("broken.csv"), std::string::npos) << boxes.seen[0].text;
    EXPECT_EQ(Cell(0, Name), "dark skin");
}

TEST_F(DeskTest, WhatWasChosenStaysForTheNextFileUnlessThatStatesOtherwise) {
    // A person selects the entry, in whatever list of the window it is.
    auto const choose = [&](char const* entry) {
        for (sv::Window* const bar : desk.GetChildren()) {
            for (sv::Window* const part : bar->GetChildren()) {
                auto* const list = dynamic_cast<sv::DropDownListBox*>(part);
                for (unsigned short i = 0; list != nullptr && i < list->GetEntryCount(); ++i) {
                    if (list->GetEntry(i) == entry) return list->EntryWasSelected(i);
                }
            }
        }
    };
    ASSERT_TRUE(desk.Open(InkSeries));
    choose("F11");
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::F11);
    ASSERT_TRUE(desk.Open(Chart));
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::F11);
    std::string const stated = File("stated.txt");
    std::ofstream(stated) << files::test::CgatsWithHeader("WEIGHTING_FUNCTION \"ILLUMINANT, D65\"\n");
    ASSERT_TRUE(desk.Open(stated));
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::D65);
}

TEST_F(DeskTest, JudgesAgainstAStandardThatIsTakenAndWithdrawn) {
    ASSERT_TRUE(desk.Open(InkSeries));
    desk.SelectSamples({14});
    desk.Execute(Command::UseAsStandard);
    EXPECT_EQ(Cell(14, Judged), "");
    EXPECT_EQ(Cell(13, Judged), "passed");
    EXPECT_EQ(Cell(12, Judged), "failed");
    EXPECT_NE(Status().find("1 of 14 within the limits"), std::string::npos) << Status();
    desk.Execute(Command::UseAsStandard);
    EXPECT_EQ(Cell(13, Judged), "");

    std::string const absolute = Cell(14, Density);
    desk.UseAsPaper(0);
    EXPECT_EQ(Cell(0, Density).substr(0, 4), Localised("0.00"));
    EXPECT_NE(Cell(14, Density), absolute);
    desk.UseAsPaper(0);
    EXPECT_EQ(Cell(14, Density), absolute);
}

TEST_F(DeskTest, WhatItSavesItReads) {
    ASSERT_TRUE(desk.Open(Chart));
    auto const before = desk.GetSheet()->File().samples;
    std::string const path = File("chart.dat");
    ASSERT_TRUE(desk.Save(path));
    ASSERT_TRUE(desk.Open(path));
    auto const& after = desk.GetSheet()->File().samples;
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        EXPECT_EQ(after[i].name, before[i].name);
        for (int k = 0; k < kv::SpectralPoints; ++k) EXPECT_EQ(after[i].spectrum[k], before[i].spectrum[k]);
    }
    EXPECT_FALSE(desk.Save(File("nowhere/chart.dat")));
    EXPECT_EQ(boxes.seen.size(), 1U);
}

TEST_F(DeskTest, SpeaksAnotherLanguageWhereItStands) {
    ASSERT_TRUE(desk.Open(Chart));
    desk.SelectSamples({14, 2});
    desk.UseAsStandard(1);
    desk.SpeakLanguage(1);
    EXPECT_EQ(Cell(0, Colour), "Braun");
    EXPECT_EQ(desk.GetSamples().GetColumns()[Name].title, "Probe");
    EXPECT_NE(Status().find("24 Proben, 2 gew\xE4hlt"), std::string::npos) << Status();
    EXPECT_EQ(desk.GetSheet()->Conditions().standard, 1U);
    desk.SpeakLanguage(0);
    EXPECT_EQ(Cell(0, Colour), "brown");
}

TEST_F(DeskTest, NoLetterChoosesTwoThings) {
    for (unsigned short const language : std::initializer_list<unsigned short>{0, 1}) {
        SCOPED_TRACE(language);
        desk.SpeakLanguage(language);
        std::vector<sv::String> shown;
        CollectMnemonics(desk, shown);
        EXPECT_GE(shown.size(), 8U);
        kv::TextSegment const menu("ColourDeskMenu");
        for (unsigned long i = 0; i < 3; ++i) shown.push_back(menu[i]);
        ExpectDistinct(shown);
        ExpectDistinct({menu[3], menu[4], menu[5], menu[6], menu[7], menu[8], menu[9], menu[10]});
        ExpectDistinct({menu[11], menu[12], menu[13]});
        ExpectDistinct({menu[14], menu[15], menu[16], menu[17]});
    }
}

TEST_F(DeskTest, TheCursorReadsTheFirstSelectedSample) {
    ASSERT_TRUE(desk.Open(Chart));
    desk.SelectSamples({3, 7});
    desk.PutCursor(17);
    EXPECT_NE(Status().find("550 nm: " + Localised("0.1700") + " (foliage)"), std::string::npos) << Status();
    desk.Execute(Command::CursorRight);
    EXPECT_NE(Status().find("560 nm"), std::string::npos) << Status();
    desk.PutCursor(99);
    EXPECT_NE(Status().find("730 nm"), std::string::npos) << Status();
}

TEST_F(DeskTest, PlotsNoMoreThanCanBeTold) {
    ASSERT_TRUE(desk.Open(Chart));
    desk.Execute(Command::SelectAll);
    EXPECT_NE(desk.GetPlot().GetCurve(23), nullptr);
    EXPECT_EQ(desk.GetPlot().GetCurve(24), nullptr);
    EXPECT_GT(desk.GetPlot().GetYAxisData()->GetMaximum(), 0.9F);
    desk.SelectSamples({});
    EXPECT_EQ(desk.GetPlot().GetCurve(0), nullptr);
    EXPECT_FALSE(desk.CanDo(Command::UseAsStandard));
}

TEST_F(DeskTest, PrintsAReportOfAllSamples) {
    using sv::headless::DrawKind;
    ASSERT_TRUE(desk.Open(Chart));
    desk.SelectSamples({0, 2});
    desk.UseAsStandard(21);
    EXPECT_TRUE(desk.PrintReport("Office"));
    auto const& job = sv::headless::LastPrintedJob();
    EXPECT_EQ(job.printer, "Office");
    EXPECT_EQ(job.state, sv::headless::JobState::Ended);
    ASSERT_EQ(job.pages.size(), 1U);
    auto const count = [&](std::string_view text) {
        return std::ranges::count_if(job.pages[0].calls, [&](sv::headless::DrawCall const& call) {
            return call.kind == DrawKind::Text && call.text.View() == text;
        });
    };
    EXPECT_EQ(count("dark skin"), 2) << "in the legend and in the table";
    EXPECT_EQ(count("white"), 1 + 1) << "the name of the sample and of its colour";
    EXPECT_EQ(count("failed"), 23);

    sv::headless::HeadlessBackend::Instance().ChangePrinters({.offset = {}, .takesJobs = false});
    EXPECT_FALSE(desk.PrintReport("Office"));
    sv::headless::HeadlessBackend::Instance().ChangePrinters({});
    EXPECT_EQ(boxes.seen.size(), 1U);
}

TEST_F(DeskTest, MailsItsReport) {
    std::ofstream(File("win.ini")) << "[Mail]\nCMC=1\nCMCDLLNAME32=" << KV_MAIL_CLIENT << '\n';
    kv::test::Windir const windir(File("."));
    ASSERT_TRUE(desk.Open(Chart));
    EXPECT_TRUE(desk.SendReport("ada@example.org;bob@example.org"));

    unsigned long error = 0;
    void* const library = platform::LoadLibraryFile(KV_MAIL_CLIENT, error);
    auto const state = reinterpret_cast<tests::TheMailClientEntry>(
        platform::FunctionAddress(library, "TheMailClient", error));
    ASSERT_EQ(state()->calls.size(), 2U) << "log on and send";
    std::string const& call = state()->calls[1];
    EXPECT_TRUE(call.starts_with("send|ada@example.org;bob@example.org|Measurement report: chart24-lab-a|"))
        << call;
    EXPECT_NE(call.find("chart24-lab-a.pdf"), std::string::npos) << call;
    state()->answer = 1;
    EXPECT_FALSE(desk.SendReport("ada@example.org"));
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_EQ(boxes.seen[0].text, "The mail program did not take the report.");
    kv::test::EndService(kv::Mailer::Instance());
    platform::FreeLibraryFile(library);
}

}  // namespace colourdesk::test
