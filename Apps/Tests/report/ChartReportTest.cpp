#include "Apps/Tests/Golden.h"
#include "Apps/files/SuiteText.h"
#include "Apps/report/ChartReport.h"
#include "Apps/report/SpectrumCurve.h"
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "SV/headless/HeadlessBackend.h"

#include <algorithm>
#include <map>
#include <regex>

namespace report::test {

namespace {

using evaluation::ColourSheet;
using sv::headless::DrawCall;
using sv::headless::DrawKind;
using sv::headless::HeadlessBackend;
using sv::headless::LastPrintedJob;

class ChartReportTest : public testing::Test {
  protected:
    ChartReportTest() {
        kv::AppConfig::CreateAppConfig(testing::TempDir() + "no such.ini");
        kv::AppName::CreateAppName("Bench", "1.0");
        kv::KVSetting::Instance()->SetBenutzername("Ada");
    }
    ~ChartReportTest() override {
        kv::CMetry::EnterWhite({});
        kv::Text::FreeResources();
        HeadlessBackend::Instance().ChangePrinters({});
        for (kv::KVSingleton* const service :
             std::initializer_list<kv::KVSingleton*>{kv::MyPrinter::Instance(), kv::KVSetting::Instance(),
                                                     kv::AppName::Instance(), kv::AppConfig::Instance()})
            kv::test::EndService(service);
    }
    static bool Print(ColourSheet const& sheet, ReportOptions const& options, int language = 1) {
        kv::Text::FreeResources();
        kv::Text::LoadText(KV_TEXTS "/colourdesk", language);
        return PrintChartReport(*kv::MyPrinter::CreateMyPrinter("Office"), sheet, options);
    }
    /// The lines of a page, texts from left to right, without the line of user and date.
    static std::string LinesOf(std::size_t page, std::string const& date = R"(\d{4}-\d\d-\d\d)") {
        std::map<int, std::map<int, std::string>> lines;
        for (DrawCall const& call : LastPrintedJob().pages.at(page).calls) {
            if (call.kind == DrawKind::Text)
                lines[call.from.Y()][call.from.X()] = files::FromSuite(call.text.View());
        }
        EXPECT_EQ(lines.begin()->second.begin()->second, "Ada");
        std::string const stamp = lines.begin()->second.rbegin()->second;
        EXPECT_TRUE(std::regex_match(stamp, std::regex(date + R"(   \d\d:\d\d:\d\d)"))) << stamp;
        lines.erase(lines.begin());
        std::string page_;
        for (auto const& [y, cells] : lines) {
            for (auto const& [x, text] : cells) page_ += (x == cells.begin()->first ? "" : "\t") + text;
            page_ += '\n';
        }
        return page_;
    }

    kv::test::BoxScript boxes;
};

TEST_F(ChartReportTest, PagesShowEveryNumber) {
    ColourSheet sheet(files::ReadMeasurementFile(KV_APPS_DATA "/chart24-lab-a.csv"));
    sheet.Change({});
    ReportOptions options{.samples = sheet.AllSamples(), .curves = {0, 2, 3, 4, 5, 77}, .language = "en"};
    options.samples.push_back(77);
    evaluation::SheetConditions conditions;
    conditions.standard = 20;
    conditions.tolerances.difference = 40;
    conditions.tolerances.components[0] = 10;
    sheet.Change(conditions);
    ASSERT_TRUE(Print(sheet, options));
    EXPECT_EQ(LastPrintedJob().job.name, "Measurement report: chart24-lab-a.csv");
    EXPECT_EQ(LastPrintedJob().job.document.author, "Ada");
    std::string pages = LinesOf(0);

    constexpr char const* GermanDate = R"(\d\d\.\d\d\.\d{4})";
    // German: relative densities, another formula, no limits, some samples.
    conditions.illuminant = kv::IllumClass(kv::IllumType::A);
    conditions.observer = kv::ObserverClass(kv::ObserverType::TenDegrees);
    conditions.densityStandard = kv::DStdClass(kv::DStdType::Din);
    conditions.paper = 18;
    conditions.tolerances = {};
    conditions.tolerances.difference = 0;
    conditions.tolerances.formula = evaluation::DifferenceFormula::Cmc;
    sheet.Change(conditions);
    ASSERT_TRUE(Print(sheet, {.samples = {23, 0, 14, 17}, .curves = {}, .language = "de"}, 49));
    pages += "\n" + LinesOf(0, GermanDate);
    conditions.tolerances.difference = 70;
    sheet.Change(conditions);
    ASSERT_TRUE(Print(sheet, {.samples = {20, 0, 14}, .curves = {}, .language = "de"}, 49));
    pages += "\n" + LinesOf(0, GermanDate);
    apps::test::ExpectGolden("report/pages.tsv", pages);
    EXPECT_EQ(LastPrintedJob().pages.size(), 1U);
}

TEST_F(ChartReportTest, ManyPagesHaveHeadsAndKeepTheirMargins) {
    files::MeasurementFile file;
    file.path = "greys.txt";
    file.stated.measurementMode = "M1";
    file.stated.filter = "Pol";
    for (int i = 1; i <= 700; ++i)
        file.samples.push_back({"grey " + std::to_string(i), kv::Spectrum(0.5F, {}), {}});
    ColourSheet const sheet(std::move(file));
    ASSERT_TRUE(Print(sheet, {.samples = sheet.AllSamples(), .curves = {}, .language = "en"}));
    auto const& pages = LastPrintedJob().pages;
    EXPECT_GE(pages.size(), 10U);
    EXPECT_NE(LinesOf(0).find("\tM1, Pol\t"), std::string::npos);
    int next = 1;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        std::vector<std::string> texts;
        for (DrawCall const& call : pages[i].calls) {
            EXPECT_GE(call.from.X(), 150);
            if (call.kind != DrawKind::Text) continue;
            texts.emplace_back(call.text.View());
            int const letter = sv::headless::LetterSize(call.font).Width();
            EXPECT_LE(call.from.X() + letter * static_cast<int>(call.text.Len()), 1950) << texts.back();
            if (texts.back() == "grey " + std::to_string(next)) ++next;
        }
        EXPECT_EQ(std::ranges::count(texts, "L*"), 1) << "page " << i + 1;
        EXPECT_EQ(texts.back(), std::to_string(i + 1));
    }
    EXPECT_EQ(next, 701) << "each sample once, in order";
}

TEST_F(ChartReportTest, NamesOutsideTheCodePageAreCounted) {
    files::MeasurementFile file;
    for (char const* const name : {"Gru\u0308n", "\u03A9", "Z\u030Circe \u0301", "x\u0308"})
        file.samples.push_back({name, kv::Spectrum(0.5F, {}), {}});
    ColourSheet const sheet(std::move(file));
    EXPECT_EQ(CountUnprintable(sheet, {0, 1, 77}), 1U);
    EXPECT_EQ(CountUnprintable(sheet, sheet.AllSamples()), 3U);
    ASSERT_TRUE(Print(sheet, {.samples = sheet.AllSamples(), .curves = {}, .language = "de"}));
    std::string const page = LinesOf(0, ".*");
    for (char const* const name : {"\nGr\u00FCn\t", "\n?\t", "\n\u017Dirce ?\t", "\nx?\t"})
        EXPECT_NE(page.find(name), std::string::npos) << name << page;
}

TEST_F(ChartReportTest, FailsWithoutAPrinter) {
    HeadlessBackend::Instance().ChangePrinters({.offset = {}, .takesJobs = false});
    EXPECT_FALSE(Print(ColourSheet({}), {}));
    EXPECT_EQ(boxes.seen.size(), 1U);
}

TEST(SpectrumCurveTest, LightColoursAreDarkenedUntilALineIsVisible) {
    constexpr sv::Color yellow(0xFFFF, 0xE000, 0x2000);
    sv::Color const shown = Legible(yellow);
    EXPECT_LT(shown.GetRed(), yellow.GetRed());
    EXPECT_GT(shown.GetRed(), shown.GetBlue()) << "still yellow";
    constexpr sv::Color blue(0x1000, 0x1000, 0x8000);
    EXPECT_EQ(Legible(blue), blue);
}

}  // namespace

}  // namespace report::test
