#include "Apps/report/ChartReport.h"
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "SV/core/Boxes.h"
#include "SV/headless/HeadlessBackend.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace report::test {

namespace {

using evaluation::ColourSheet;
using files::MeasurementFile;
using sv::headless::DrawCall;
using sv::headless::DrawKind;
using sv::headless::HeadlessBackend;
using sv::headless::JobState;
using sv::headless::LastPrintedJob;

/// Greys of these reflectances, called grey 1, grey 2, ...
ColourSheet Greys(std::vector<float> const& reflectances, std::string const& mode = "") {
    MeasurementFile file;
    file.path = "folder/greys.txt";
    file.stated.measurementMode = mode;
    for (float const reflectance : reflectances) {
        std::string const name = "grey " + std::to_string(file.samples.size() + 1);
        file.samples.push_back({name, kv::Spectrum(reflectance, {}), {}});
    }
    return ColourSheet(std::move(file));
}

class ChartReportTest : public testing::Test {
  protected:
    ChartReportTest() {
        kv::CMetry::SetMeasuringConditions({kv::IllumClass(kv::IllumType::D50),
                                            kv::ObserverClass(kv::ObserverType::TwoDegrees),
                                            kv::DStdClass(kv::DStdType::AnsiT),
                                            {}});
        kv::AppConfig::CreateAppConfig(testing::TempDir() + "no such.ini");
        kv::AppName::CreateAppName("Bench", "1.0");
        kv::KVSetting::Instance()->SetBenutzername("Ada");
    }
    ~ChartReportTest() override {
        kv::CMetry::EnterWhite({});
        kv::Text::FreeResources();
        HeadlessBackend::Instance().ChangePrinters({});
        sv::SetBoxHandler({});
        kv::test::EndService(kv::MyPrinter::Instance());
        kv::test::EndService(kv::KVSetting::Instance());
        kv::test::EndService(kv::AppName::Instance());
        kv::test::EndService(kv::AppConfig::Instance());
    }
    static bool Print(ColourSheet const& sheet, ReportOptions options, int language = 1) {
        if (options.samples.empty()) options.samples = sheet.AllSamples();
        kv::Text::FreeResources();
        kv::Text::LoadText(KV_TEXTS "/colourdesk", language);
        return PrintChartReport(*kv::MyPrinter::CreateMyPrinter("Office"), sheet, options);
    }
    /// The texts of a page in their order.
    static std::vector<std::string> TextsOf(std::size_t page) {
        std::vector<std::string> texts;
        for (DrawCall const& call : LastPrintedJob().pages.at(page).calls) {
            if (call.kind == DrawKind::Text) texts.emplace_back(call.text.View());
        }
        return texts;
    }
    static long Count(std::vector<std::string> const& texts, std::string const& text) {
        return std::count(texts.begin(), texts.end(), text);
    }
};

TEST_F(ChartReportTest, OnePageTellsEverything) {
    ColourSheet sheet = Greys({0.8F, 0.5F, 0.45F, 0.49F}, "M1");
    evaluation::SheetConditions conditions = sheet.Conditions();
    conditions.standard = 1;
    conditions.tolerances.difference = 6;
    conditions.tolerances.components[0] = 3;
    sheet.Change(conditions);
    ReportOptions options;
    options.curves = {0, 2, 77};
    ASSERT_TRUE(Print(sheet, options));
    EXPECT_EQ(LastPrintedJob().job.name, "Measurement report: greys.txt");
    EXPECT_EQ(LastPrintedJob().job.document.author, "Ada");
    ASSERT_EQ(LastPrintedJob().pages.size(), 1U);
    auto const texts = TextsOf(0);
    for (char const* const text :
         {"Ada", "Measurement report", "greys.txt", "M1", "D50", "2\xB0", "ANSI T",
          "none, absolute densities", "Spectra", "Reflectance", "nm", "passed", "standard", "Bench"})
        EXPECT_GE(Count(texts, text), 1) << text;
    EXPECT_EQ(Count(texts, "1 of 3"), 1);
    EXPECT_EQ(Count(texts, kv::test::Localised("dE*ab 6.00, dL* 3.00")), 1);
    EXPECT_EQ(Count(texts, "failed"), 2);

    ASSERT_TRUE(Print(sheet, options, 49));
    EXPECT_EQ(Count(TextsOf(0), "Messbericht"), 1);
    EXPECT_EQ(Count(TextsOf(0), "bestanden"), 1);

    conditions.tolerances = {};
    conditions.tolerances.difference = 0;
    sheet.Change(conditions);
    options.samples = {0, 3, 77};
    options.curves.clear();
    ASSERT_TRUE(Print(sheet, options));
    EXPECT_EQ(Count(TextsOf(0), "passed"), 0) << "without limits nothing is judged";
    EXPECT_EQ(Count(TextsOf(0), "grey 3"), 0) << "not asked for";
}

TEST_F(ChartReportTest, FortyPagesHaveTheirHeads) {
    ASSERT_TRUE(Print(Greys(std::vector<float>(2700, 0.5F)), {}));
    auto const& pages = LastPrintedJob().pages;
    EXPECT_GE(pages.size(), 40U);
    long next = 1;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        auto const texts = TextsOf(i);
        EXPECT_EQ(Count(texts, "L*"), 1) << "page " << i + 1;
        EXPECT_EQ(texts.back(), std::to_string(i + 1));
        for (std::string const& text : texts) next += text == "grey " + std::to_string(next) ? 1 : 0;
        for (DrawCall const& call : pages[i].calls) {
            EXPECT_GE(call.from.X(), 150);
            if (call.kind != DrawKind::Text) continue;
            int const letter = sv::headless::LetterSize(call.font).Width();
            EXPECT_LE(call.from.X() + letter * static_cast<int>(call.text.Len()), 1950) << call.text.GetStr();
        }
    }
    EXPECT_EQ(next, 2701) << "each sample once, in its order";
}

TEST_F(ChartReportTest, TellsWhenThereIsNoPrinter) {
    HeadlessBackend::Instance().ChangePrinters({.offset = {}, .takesJobs = false});
    sv::SetBoxHandler([](sv::MessBox const& box) { return box.DefaultAnswer(); });
    EXPECT_FALSE(Print(Greys({0.5F}), {}));
}

}  // namespace

}  // namespace report::test
