#include "Apps/files/DataFile.h"
#include "Apps/files/SuiteText.h"
#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/ExportFile.h"
#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/Measures.h"
#include "Apps/kvcolor/Run.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Numbers.h"
#include "Apps/report/ChartReport.h"
#include "Apps/suite/SuiteServices.h"
#include "KVUtils/KVUtils.h"
#include "Platform/CommandLine.h"
#include "SV/core/NativePath.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace kvcolor {

namespace {

using files::MeasurementFile;

constexpr std::size_t MostCurves = 6;

struct ChartReportOptions {
    std::string out;
    bool isForced = false;
    std::string illuminant = "D50";
    std::string observer = "2";
    std::string density = "ANSI T";
    std::string standard;
    std::string measure = "cielab";
    std::string cmc = "2:1";
    std::string k94 = "1:1:1";
    std::string tolerance;
    std::string paper;
    std::vector<std::string> curves;
    std::string language = "en";
    std::string user;
    bool isLandscape = false;
};

/// What reports stand on: the program's name, its texts and the user's settings, for as long as it lives.
class Services {
  public:
    explicit Services(ChartReportOptions const& options) {
        kv::AppConfig::CreateAppConfig(suite::ProgramIniFile("kvcolor"));
        kv::AppDir::CreateAppDir(sv::FromNativePath(platform::RunningProgram()));
        kv::AppName::CreateAppName("kvcolor", Version);
        if (!options.user.empty()) kv::KVSetting::Instance()->SetBenutzername(files::ToSuite(options.user));
        kv::Text::FreeResources();
        kv::Text::LoadText((kv::AppDir::Instance()->LngDirEntry() + "colourdesk").GetFull(),
                           suite::CountryCodeOf(options.language));
    }
    Services(Services const&) = delete;
    Services& operator=(Services const&) = delete;
    ~Services() {
        End(kv::MyPrinter::Instance());
        End(kv::KVSetting::Instance());
        kv::Text::FreeResources();
    }

  private:
    static void End(kv::KVSingleton* service) {
        kv::KVSingleton::Destroy(service);
    }
};

Measure MeasureOf(ChartReportOptions const& options) {
    auto const measures = ParseMeasures(options.measure);
    if (!options.measure.empty() && measures.size() == 1) return measures.front();
    throw Unusable("--measure " + options.measure + ": a report judges by one measure");
}

/// 0 for none.
double ToleranceOf(ChartReportOptions const& options) {
    if (options.tolerance.empty()) return 0;
    auto const tolerance = ParseNumber(options.tolerance);
    if (tolerance && *tolerance > 0) return *tolerance;
    throw Unusable("--tolerance: found \"" + options.tolerance + "\", expected a number above 0");
}

evaluation::SheetConditions ConditionsOf(Session& session, ChartReportOptions const& options,
                                         MeasurementFile const& file) {
    auto const find = [&](std::string const& name) -> std::optional<std::size_t> {
        if (name.empty()) return std::nullopt;
        return FindSample(file, name, session.GetMessages());
    };
    evaluation::SheetConditions conditions;
    conditions.illuminant = ParseIlluminant(options.illuminant);
    conditions.observer = ParseObserver(options.observer);
    conditions.densityStandard = ParseDensityStandard(options.density);
    conditions.standard = find(options.standard);
    conditions.paper = find(options.paper);
    conditions.tolerances.measure = MeasureOf(options);
    conditions.tolerances.weights = ParseMeasureWeights(options.cmc, options.k94);
    conditions.tolerances.difference = ToleranceOf(options);
    return conditions;
}

report::ReportOptions ContentOf(Session& session, ChartReportOptions const& options,
                                MeasurementFile const& file) {
    report::ReportOptions content;
    content.samples = session.Chosen(file);
    content.language = options.language;
    content.curves = options.curves.empty() ? content.samples : ChooseSamples(file, options.curves);
    if (options.curves.empty() && content.curves.size() > MostCurves) content.curves.resize(MostCurves);
    return content;
}

kv::MyPrinter& PrinterFor(ChartReportOptions const& options) {
    kv::MyPrinter* const printer = kv::MyPrinter::CreateMyPrinter(sv::FromNativePath(options.out));
    if (options.isLandscape) printer->ChangeOrientation(sv::Orientation::Landscape);
    return *printer;
}

void RunChartReport(Session& session, ChartReportOptions const& options) {
    if (!options.out.ends_with(".pdf")) throw Unusable("--out " + options.out + ": a report is a .pdf file");
    if (!options.isForced) CheckIsNew(options.out);
    kv::IllumClass const illuminant = ParseIlluminant(options.illuminant);
    kv::ObserverClass const observer = ParseObserver(options.observer);
    evaluation::ColourSheet sheet(session.Load({{illuminant}, observer, "", ""}));
    sheet.Change(ConditionsOf(session, options, sheet.File()));
    report::ReportOptions const content = ContentOf(session, options, sheet.File());

    auto const printing = session.GetEnvironment().beginPrinting();
    if (printing == nullptr) throw Unusable("this build of kvcolor has no printing");
    Services const services(options);
    if (!report::PrintChartReport(PrinterFor(options), sheet, content))
        throw files::WriteError(options.out + ": cannot be written");
    session.GetMessages().Note(options.out + ": " + std::to_string(content.samples.size()) + " samples");
}

void AddContentOptions(CLI::App& command, ChartReportOptions& options) {
    command.add_option("--illuminant", options.illuminant, "D50 (default); kvcolor illuminants lists all")
        ->type_name("NAME");
    command.add_option("--observer", options.observer, "2 (default) or 10 degrees")->type_name("ANGLE");
    command.add_option("--density", options.density, "Density standard, ANSI T by default")
        ->type_name("NAME");
    command.add_option("--paper", options.paper, "Densities relative to this sample")->type_name("NAME");
    command
        .add_option("--curves", options.curves, "Samples whose spectra are drawn; the first six by default")
        ->allow_extra_args(false)
        ->type_name("NAME");
    CLI::Option* const standard =
        command.add_option("--standard", options.standard, "Differences to this sample")->type_name("NAME");
    command.add_option("--measure", options.measure, "cielab (default), cmc, cie94, mg, ...")
        ->type_name("NAME");
    command.add_option("--tolerance", options.tolerance, "The largest difference that passes")
        ->needs(standard)
        ->type_name("NUMBER");
    command.add_option("--cmc", options.cmc, "Weights of CMC, 2:1 by default")->type_name("l:c");
    command.add_option("--k", options.k94, "Weights of CIE94, 1:1:1 by default")->type_name("kL:kC:kH");
}

}  // namespace

void AddChartReport(CLI::App& program, Session& session) {
    auto const options = std::make_shared<ChartReportOptions>();
    CLI::App* const command =
        program.add_subcommand("report", "The samples as a printed report, a PDF file for an archive");
    session.AddInputOptions(*command);
    command->add_option("--out", options->out, "The PDF file to write")->required()->type_name("FILE.pdf");
    command->add_flag("--force", options->isForced, "Replace the file if it is there");
    AddContentOptions(*command, *options);
    command->add_option("--language", options->language, "en (default) or de")
        ->check(CLI::IsMember({"en", "de"}))
        ->type_name("LANGUAGE");
    command->add_option("--user", options->user, "Whose report it is")->type_name("NAME");
    command->add_flag("--landscape", options->isLandscape, "Pages on their long side");
    session.AddQuietOption(*command);
    command->footer(
        "Example:\n  kvcolor report chart.csv --out chart.pdf --standard white --tolerance 2.5 --language de");
    command->callback([&session, options] { RunChartReport(session, *options); });
}

}  // namespace kvcolor
