#include "Apps/ColourDesk/DeskLayout.h"
#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/ColourDesk/FaultTexts.h"
#include "Apps/Tests/ColourDesk/DeskFixture.h"
#include "Apps/Tests/Golden.h"
#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/SuiteText.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Source/mail/Mailer.h"
#include "KVUtils/Tests/mail/MailClient.h"
#include "Platform/Library.h"
#include "SV/core/Mnemonic.h"
#include "SV/headless/HeadlessBackend.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace colourdesk::test {

namespace {

// Columns of the table.
enum : int { Name, Colour, Density = 7, Judged = 9, ColumnCount };

/// The status and all cells, with swatches and marks.
std::string ContentsOf(DeskWindow const& desk) {
    std::string text = files::FromSuite(desk.GetStatus().View()) + '\n';
    for (sv::TableColumn const& column : desk.GetSamples().GetColumns())
        text += files::FromSuite(column.title.View()) + '\t';
    for (int row = 0; row < desk.GetSamples().GetRowCount(); ++row) {
        for (int column = 0; column < ColumnCount; ++column) {
            sv::TableCell const cell = desk.GetSamples().GetCell(row, column);
            text +=
                (column == 0 ? '\n' : '\t') + files::FromSuite(cell.text.View()) + (cell.isMarked ? "!" : "");
            if (!cell.swatch) continue;
            char swatch[8];
            std::snprintf(swatch, sizeof swatch, " %02X%02X%02X", cell.swatch->GetRed() >> 8,
                          cell.swatch->GetGreen() >> 8, cell.swatch->GetBlue() >> 8);
            text += swatch;
        }
    }
    return apps::test::WithPoints(text) + "\n\n";
}

/// The user selects the entry, in whichever list it is.
void Choose(DeskWindow& desk, char const* entry) {
    for (sv::Window* const bar : desk.GetChildren()) {
        for (sv::Window* const part : bar->GetChildren()) {
            auto* const list = dynamic_cast<sv::DropDownListBox*>(part);
            for (unsigned short i = 0; list != nullptr && i < list->GetEntryCount(); ++i) {
                if (list->GetEntry(i) == entry) return list->EntryWasSelected(i);
            }
        }
    }
    ADD_FAILURE() << "no entry " << entry;
}

void CollectButtons(sv::Window const& window, std::vector<sv::String>& texts) {
    if (dynamic_cast<sv::Button const*>(&window) != nullptr) texts.push_back(window.GetText());
    for (sv::Window* const child : window.GetChildren()) CollectButtons(*child, texts);
}

void ExpectDistinctMnemonics(std::vector<sv::String> const& texts) {
    std::string taken;
    for (sv::String const& text : texts) {
        std::size_t const mark = sv::FindMnemonic(text);
        ASSERT_NE(mark, sv::String::NotFound) << text.View();
        auto const letter =
            static_cast<char>(std::tolower(static_cast<unsigned char>(text.View()[mark + 1])));
        EXPECT_EQ(taken.find(letter), std::string::npos) << text.View();
        taken += letter;
    }
}

}  // namespace

TEST_F(DeskTest, TheTableShowsEveryNumber) {
    std::string contents = ContentsOf(desk);
    EXPECT_FALSE(desk.CanDo(Command::Save));
    ASSERT_TRUE(desk.Open(Chart));
    EXPECT_TRUE(desk.CanDo(Command::Save));
    EXPECT_EQ(desk.GetText(), sv::String(Chart + " - ColourDesk"));
    contents += ContentsOf(desk);
    desk.SelectSamples({14, 2});
    desk.UseAsStandard(14);
    desk.UseAsPaper(18);
    desk.ChangeLanguage(1);
    Choose(desk, "CMC");
    contents += ContentsOf(desk);
    apps::test::ExpectGolden("ColourDesk/table.tsv", contents);

    desk.ChangeLanguage(0);
    desk.UseAsPaper(18);
    desk.UseAsStandard(14);
    EXPECT_EQ(Cell(0, Colour), "brown");
    EXPECT_EQ(Cell(0, Judged), "") << "no standard any more";
    EXPECT_EQ(Cell(18, Density).find('-'), std::string::npos) << "absolute again";
}

TEST_F(DeskTest, AFileThatCannotBeReadLeavesTheOtherOpen) {
    ASSERT_TRUE(desk.Open(Chart));
    std::string const broken = File("broken.csv");
    std::ofstream(broken) << "name,380\n1,2\n";
    EXPECT_FALSE(desk.Open(broken));
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_NE(boxes.seen[0].text.find("broken.csv"), std::string::npos) << boxes.seen[0].text;
    EXPECT_EQ(Cell(0, Name), "dark skin");
}

TEST_F(DeskTest, WarningsOfTheReaderAreShown) {
    std::string const path = File("bright.csv");
    std::ofstream file(path);
    file << "name," << files::test::Repeat("#", ",") << '\n';
    for (char const* const value : {"1.9", "0.5", "0.5"})
        file << "a," << files::test::Repeat(value, ",") << '\n';
    file.close();
    ASSERT_TRUE(desk.Open(path));
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_EQ(boxes.seen[0].text,
              "reflectance as fractions, although the largest is 1.9; these may be percent");
}

TEST_F(DeskTest, ConditionsStayUnlessTheNextFileStatesOthers) {
    ASSERT_TRUE(desk.Open(InkSeries));
    Choose(desk, "F11");
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::F11);
    ASSERT_TRUE(desk.Open(Chart));
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::F11);
    std::string const stated = File("stated.txt");
    std::ofstream(stated) << files::test::CgatsWithHeader("WEIGHTING_FUNCTION \"ILLUMINANT, D65\"\n");
    ASSERT_TRUE(desk.Open(stated));
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::D65);
}

TEST_F(DeskTest, TheBarNamesTheIlluminantInForce) {
    for (char const* const illuminant : {"D60", "D70", "D65", "D70"}) {
        std::string const path = File(std::string(illuminant) + ".txt");
        std::ofstream(path) << files::test::CgatsWithHeader(std::string("WEIGHTING_FUNCTION \"ILLUMINANT, ") +
                                                            illuminant + "\"\n");
        ASSERT_TRUE(desk.Open(path));
        auto const* const list =
            dynamic_cast<sv::DropDownListBox*>(desk.GetChildren().front()->GetChildren()[1]);
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->GetEntry(list->GetSelectEntryPos()), illuminant);
        EXPECT_EQ(sv::String(desk.GetSheet()->Conditions().illuminant), illuminant);
    }
}

TEST_F(DeskTest, WarnsOfNamesThatTheReportCannotShow) {
    std::string const path = File("greek.csv");
    std::ofstream(path) << "name," << files::test::Repeat("#", ",") << "\n\u03A9,"
                        << files::test::Repeat("0.5", ",") << '\n';
    ASSERT_TRUE(desk.Open(path));
    EXPECT_TRUE(desk.PrintReport("Office"));
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_NE(boxes.seen[0].text.find("names of 1 samples"), std::string::npos) << boxes.seen[0].text;
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

TEST_F(DeskTest, AccessKeysAreDistinct) {
    for (unsigned short const language : std::initializer_list<unsigned short>{0, 1}) {
        SCOPED_TRACE(language);
        desk.ChangeLanguage(language);
        std::vector<sv::String> shown;
        CollectButtons(desk, shown);
        EXPECT_GE(shown.size(), 8U);
        kv::TextSegment const menu("ColourDeskMenu");
        for (unsigned long i = 0; i < 3; ++i) shown.push_back(menu[i]);
        ExpectDistinctMnemonics(shown);
        ExpectDistinctMnemonics({menu[3], menu[4], menu[5], menu[6], menu[7], menu[8], menu[9], menu[10]});
        ExpectDistinctMnemonics({menu[11], menu[12], menu[13]});
        ExpectDistinctMnemonics({menu[14], menu[15], menu[16], menu[17]});
    }
}

TEST_F(DeskTest, TheCursorReadsTheFirstSelectedSample) {
    ASSERT_TRUE(desk.Open(Chart));
    desk.SelectSamples({3, 7});
    auto const reads = [&](char const* text) {
        EXPECT_NE(apps::test::WithPoints(Status()).find(text), std::string::npos) << Status();
    };
    desk.PutCursor(17);
    reads("550 nm: 0.1700 (foliage)");
    desk.Execute(Command::CursorRight);
    reads("560 nm");
    desk.PutCursor(99);
    reads("730 nm");
}

TEST_F(DeskTest, PlotsTheSelectedSamples) {
    ASSERT_TRUE(desk.Open(Chart));
    desk.Execute(Command::SelectAll);
    EXPECT_NE(desk.GetPlot().GetCurve(23), nullptr);
    EXPECT_EQ(desk.GetPlot().GetCurve(24), nullptr);
    EXPECT_GT(desk.GetPlot().GetYAxisData()->GetMaximum(), 0.9F);
    desk.SelectSamples({});
    EXPECT_EQ(desk.GetPlot().GetCurve(0), nullptr);
    EXPECT_FALSE(desk.CanDo(Command::UseAsStandard));
}

TEST_F(DeskTest, PrintsTheSpectraOfSelectedSamples) {
    using sv::headless::DrawKind;
    ASSERT_TRUE(desk.Open(Chart));
    desk.SelectSamples({0, 2});
    EXPECT_TRUE(desk.PrintReport("Office"));
    auto const& job = sv::headless::LastPrintedJob();
    EXPECT_EQ(job.printer, "Office");
    EXPECT_EQ(job.state, sv::headless::JobState::Ended);
    auto const count = [&](std::string_view text) {
        return std::ranges::count_if(job.pages.at(0).calls, [&](sv::headless::DrawCall const& call) {
            return call.kind == DrawKind::Text && call.text.View() == text;
        });
    };
    EXPECT_EQ(count("dark skin"), 2) << "legend and table";
    EXPECT_EQ(count("light skin"), 1) << "table";

    sv::headless::HeadlessBackend::Instance().ChangePrinters({.offset = {}, .takesJobs = false});
    EXPECT_FALSE(desk.PrintReport("Office"));
    sv::headless::HeadlessBackend::Instance().ChangePrinters({});
    EXPECT_EQ(boxes.seen.size(), 1U);
}

TEST_F(DeskTest, MailsItsReport) {
    std::ofstream(File("win.ini")) << "[Mail]\nCMC=1\nCMCDLLNAME32=" << KV_MAIL_CLIENT << '\n';
    kv::test::Windir const windir(File("."));
    ASSERT_TRUE(desk.Open(Chart));
    sv::headless::HeadlessBackend::Instance().ChangePrinters({.offset = {}, .recordsFiles = true});
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
    EXPECT_EQ(boxes.seen[0].text, "The mail program did not accept the report.");
    sv::headless::HeadlessBackend::Instance().ChangePrinters({});
    kv::test::EndService(kv::Mailer::Instance());
    platform::FreeLibraryFile(library);
}

TEST(DeskLayoutTest, PartsAreSeparateInsideTheWindow) {
    constexpr DeskMetrics Metrics{24, 16, 145, 170};
    auto const overlap = [](sv::Rectangle const& a, sv::Rectangle const& b) {
        return a.TopLeft().X() <= b.BottomRight().X() && b.TopLeft().X() <= a.BottomRight().X() &&
               a.TopLeft().Y() <= b.BottomRight().Y() && b.TopLeft().Y() <= a.BottomRight().Y();
    };
    for (sv::Size const window : {sv::Size(1180, 760), sv::Size(800, 600), sv::Size(3000, 1400)}) {
        DeskLayout const layout = Arrange(window, Metrics);
        std::array<sv::Rectangle, 6> const parts = {
            layout.conditions, layout.table,  layout.plot,
            layout.panel,      layout.status, sv::Rectangle::Of(layout.buttons, {Metrics.buttons, 200})};
        for (std::size_t i = 0; i < parts.size(); ++i) {
            EXPECT_GE(parts[i].TopLeft().X(), 0);
            EXPECT_GE(parts[i].TopLeft().Y(), Metrics.menu);
            EXPECT_LT(parts[i].BottomRight().X(), window.Width());
            EXPECT_LT(parts[i].BottomRight().Y(), window.Height());
            for (std::size_t k = 0; k < i; ++k) EXPECT_FALSE(overlap(parts[i], parts[k])) << i << ", " << k;
        }
        EXPECT_EQ(layout.panel.GetSize().Width(), Metrics.panel);
    }
    EXPECT_EQ(Arrange({100, 60}, Metrics).plot.GetSize(), sv::Size(0, 0));
}

TEST_F(DeskTest, FaultsAreShownInTheLanguageOfTheWindow) {
    std::string const folder = KV_APPS_TESTS "/files/bad/";
    EXPECT_EQ(FaultText("no such file"), "no such file") << "English stays";
    desk.ChangeLanguage(1);
    std::string shown;
    std::ifstream rows(folder + "messages.tsv");
    for (std::string name, message; std::getline(rows, name, '\t') && std::getline(rows, message);) {
        EXPECT_FALSE(desk.Open(folder + name));
        ASSERT_FALSE(boxes.seen.empty());
        shown += files::FromSuite(boxes.seen.back().text).substr(folder.size()) + '\n';
    }
    for (
        char const* const message :
        {"a \"found x, expected y\" b",
         "wavelengths 390 to 720 nm by 5, every tenth nanometre taken, below 390 held at the value there, above 720 held at the value there",
         "reflectance as fractions, by the values: the largest is 0.9", "interrupted",
         "sample names from column 1 (\"a number\")", "NUMBER_OF_SETS is \"7\", but the table has 5 rows",
         "reflectance as fractions, although the largest is 1.5 (use --scale percent if these are percent)"})
        shown += files::FromSuite(FaultText(message).View()) + '\n';
    apps::test::ExpectGolden("ColourDesk/faults.txt", shown);
    EXPECT_FALSE(desk.Open("nowhere.csv"));
    EXPECT_EQ(boxes.seen.back().text, "nowhere.csv: Die Datei existiert nicht");
}

TEST(DeskTextsTest, FormatReplacesArguments) {
    EXPECT_EQ(Format("%2 of %1: %3 %", {"a%2", "b"}), "b of a%2: %3 %");
    EXPECT_EQ(Format("%%1", {"a"}), "%a");
}

}  // namespace colourdesk::test
