#include "Apps/report/ChartReport.h"
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/Text.h"
#include "SV/core/Boxes.h"
#include "SV/headless/HeadlessBackend.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <string>

namespace report::test {

namespace {

using measurements::MeasurementFile;
using sv::headless::DrawCall;
using sv::headless::DrawKind;
using sv::headless::HeadlessBackend;
using sv::headless::JobState;
using sv::headless::LastPrintedJob;

/// Greys of these reflectances, called grey 1, grey 2, ...
MeasurementFile Greys(std::vector<float> const& reflectances) {
    MeasurementFile file;
    file.path = "folder/greys.txt";
    for (float const reflectance : reflectances) {
        std::string const name = "grey " + std::to_string(file.samples.size() + 1);
        file.samples.push_back({name, kv::Spectrum(reflectance, {}), {}});
    }
    return file;
}

ReportOptions AllOf(MeasurementFile const& file) {
    ReportOptions options;
    options.samples.resize(file.samples.size());
    std::iota(options.samples.begin(), options.samples.end(), 0U);
    options.language = "en";
    return options;
}

/// A measure whose values are easily told: a hundred times the difference of the reflectances.
ReportMeasure Percent() {
    return {"percent", [](kv::Spectrum const& sample, kv::Spectrum const& standard) {
                return 100 * (standard[0] - sample[0]);
            }};
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
        End(kv::MyPrinter::Instance());
        End(kv::KVSetting::Instance());
        End(kv::AppName::Instance());
        End(kv::AppConfig::Instance());
    }
    static void End(kv::KVSingleton* service) {
        kv::KVSingleton::Remove(service);
        delete service;
    }
    static bool Print(MeasurementFile const& file, ReportOptions const& options, int language = 1) {
        kv::Text::FreeResources();
        kv::Text::LoadText(KV_TEXTS "/colourdesk", language);
        return PrintChartReport(*kv::MyPrinter::CreateMyPrinter("Office"), file, options);
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

TEST_F(ChartReportTest, JudgesByTheTolerance) {
    MeasurementFile const file = Greys({0.5F, 0.5F, 0.25F, 0.0F, 0.125F});
    ReportOptions options = AllOf(file);
    options.samples = {0, 1, 2, 3, 4, 77};
    options.standard = 0;
    options.tolerance = 25.0F;
    options.measure = Percent();
    options.measure->rate = [](kv::Spectrum const& sample, kv::Spectrum const& standard) {
        float const difference = 100 * (standard[0] - sample[0]);
        return difference == 50 ? std::numeric_limits<float>::quiet_NaN() : difference;
    };
    auto const rows = RowsOf(file, options);
    ASSERT_EQ(rows.size(), 5U) << "the file has no sample 77";
    struct Row {
        std::optional<float> difference;
        Verdict verdict;
    };
    static constexpr Row expected[] = {{std::nullopt, Verdict::Standard},
                                       {0.0F, Verdict::Within},
                                       {25.0F, Verdict::Within},  // the tolerance itself passes
                                       {std::nullopt, Verdict::None},
                                       {37.5F, Verdict::Beyond}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].difference, expected[i].difference) << rows[i].name.GetStr();
        EXPECT_EQ(rows[i].verdict, expected[i].verdict) << rows[i].name.GetStr();
    }
    auto const summary = SummaryOf(rows);
    ASSERT_TRUE(summary);
    EXPECT_EQ(summary->count, 3U);
    EXPECT_EQ(summary->within, 2U);
    EXPECT_FLOAT_EQ(summary->mean, 62.5F / 3);
    EXPECT_EQ(summary->whereMaximum, "grey 5");

    options.standard = std::nullopt;
    EXPECT_FALSE(SummaryOf(RowsOf(file, options)));
}

TEST_F(ChartReportTest, DensitiesAreThoseOfThePaper) {
    MeasurementFile const file = Greys({0.8F, 0.08F});
    ReportOptions options = AllOf(file);
    EXPECT_NEAR(RowsOf(file, options)[1].density, 1.097F, 0.001F);
    options.paper = 0;
    EXPECT_NEAR(RowsOf(file, options)[1].density, 1.0F, 0.001F);
    EXPECT_EQ(RowsOf(file, options)[1].densityChannel, 'V') << "neutral";
}

TEST_F(ChartReportTest, OnePageTellsEverything) {
    MeasurementFile file = Greys({0.8F, 0.5F, 0.45F});
    file.stated.measurementMode = "M1";
    ReportOptions options = AllOf(file);
    options.standard = 1;
    options.tolerance = 6.0F;
    options.measure = Percent();
    options.curves = {0, 2};
    ASSERT_TRUE(Print(file, options));
    EXPECT_EQ(LastPrintedJob().job.name, "Measurement report: greys.txt");
    EXPECT_EQ(LastPrintedJob().job.document.author, "Ada");
    ASSERT_EQ(LastPrintedJob().pages.size(), 1U);
    auto const texts = TextsOf(0);
    for (char const* const text :
         {"Ada", "Measurement report", "greys.txt", "M1", "D50", "2\xB0", "ANSI T",
          "none, absolute densities", "Spectra", "Reflectance", "nm", "passed", "standard", "Bench"})
        EXPECT_GE(Count(texts, text), 1) << text;
    std::string const tolerance(kv::GString(6.0, 2).View());  // as the locale writes it
    EXPECT_EQ(Count(texts, "2 of 2 (tolerance " + tolerance + ")"), 1);

    ASSERT_TRUE(Print(file, options, 49));
    EXPECT_EQ(Count(TextsOf(0), "Messbericht"), 1);
    EXPECT_EQ(Count(TextsOf(0), "bestanden"), 2);
}

TEST_F(ChartReportTest, FortyPagesHaveTheirHeads) {
    MeasurementFile const file = Greys(std::vector<float>(2700, 0.5F));
    ReportOptions const options = AllOf(file);
    ASSERT_TRUE(Print(file, options));
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
    MeasurementFile const file = Greys({0.5F});
    EXPECT_FALSE(Print(file, AllOf(file)));
}

}  // namespace

}  // namespace report::test
