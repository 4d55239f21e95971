#include "Apps/evaluation/Conditions.h"
#include "Apps/evaluation/InputError.h"
#include "Apps/files/DataFile.h"
#include "Apps/files/Numbers.h"
#include "Apps/files/SuiteText.h"
#include "Apps/files/Text.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/report/ChartReport.h"
#include "Apps/suite/SuiteServices.h"
#include "KVUtils/KVUtils.h"
#include "KVUtils/Version.h"
#include "Platform/CommandLine.h"
#include "Platform/Utf8Path.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace kvcolor {

namespace {

using evaluation::InputError;
using files::MeasurementFile;
using files::Quoted;

constexpr std::size_t MaxCurves = 6;

struct ReportOptions {
    std::string out;
    std::string density = "ANSI T";
    std::string standard;
    std::string formula = "cielab";
    std::string tolerance;
    std::string paper;
    std::vector<std::string> curves;
    std::string language = "en";
    std::string user;
    bool isLandscape = false;
};

/// Provides the services that a report needs while it lives: the program's name, texts and user settings.
class Services {
  public:
    explicit Services(ReportOptions const& options) {
        kv::AppConfig::CreateAppConfig(suite::ProgramIniFile("kvcolor"));
        kv::AppDir::CreateAppDir(sv::FromNativePath(platform::RunningProgram()));
        kv::AppName::CreateAppName("kvcolor", kv::Version);
        if (!options.user.empty()) kv::KVSetting::Instance()->SetBenutzername(files::ToSuite(options.user));
        kv::Text::FreeResources();
        kv::Text::LoadText((kv::AppDir::Instance()->LngDirEntry() + "colourdesk").GetFull(),
                           suite::CountryCodeOf(options.language));
    }
    Services(Services const&) = delete;
    Services& operator=(Services const&) = delete;
    ~Services() {
        kv::KVSingleton::Destroy(kv::MyPrinter::Instance());
        kv::KVSingleton::Destroy(kv::KVSetting::Instance());
        kv::Text::FreeResources();
    }
};

evaluation::DifferenceFormula FormulaOf(ReportOptions const& options) {
    auto const formulas = evaluation::ParseFormulas(options.formula);
    if (formulas.size() == 1) return formulas.front();
    throw InputError("--formula " + options.formula + ": a report uses one formula");
}

/// Returns 0 if there is none.
double ToleranceOf(ReportOptions const& options) {
    if (options.tolerance.empty()) return 0;
    auto const tolerance = files::ToNumber(options.tolerance);
    if (tolerance && *tolerance > 0) return *tolerance;
    throw InputError("--tolerance: found " + Quoted(options.tolerance) + ", expected a number above 0");
}

evaluation::SheetConditions ConditionsOf(Session& session, ReportOptions const& options,
                                         MeasurementFile const& file) {
    auto const find = [&](std::string const& name) -> std::optional<std::size_t> {
        if (name.empty()) return std::nullopt;
        return FindSample(file, name, session.GetMessages());
    };
    evaluation::SheetConditions conditions;
    conditions.illuminant = session.Illuminant();
    conditions.observer = session.Observer();
    conditions.densityStandard = evaluation::ParseDensityStandard(options.density);
    conditions.standard = find(options.standard);
    conditions.paper = find(options.paper);
    conditions.tolerances.formula = FormulaOf(options);
    conditions.tolerances.weights = session.Weights();
    conditions.tolerances.difference = ToleranceOf(options);
    return conditions;
}

report::ReportOptions ContentOf(Session& session, ReportOptions const& options, MeasurementFile const& file) {
    report::ReportOptions content;
    content.samples = session.Chosen(file);
    content.language = options.language;
    content.curves = options.curves.empty() ? content.samples : ChooseSamples(file, options.curves);
    if (options.curves.empty() && content.curves.size() > MaxCurves) content.curves.resize(MaxCurves);
    return content;
}

kv::MyPrinter& PrinterFor(ReportOptions const& options) {
    kv::MyPrinter* const printer = kv::MyPrinter::CreateMyPrinter(sv::FromNativePath(options.out));
    if (options.isLandscape) printer->ChangeOrientation(sv::Orientation::Landscape);
    return *printer;
}

/// Throws files::WriteError if the file cannot be written. Leaves an existing one unchanged and no new one.
void TryOutput(std::string const& path) {
    std::filesystem::path const file = platform::PathOf(path);
    std::error_code error;
    bool const exists = std::filesystem::exists(file, error);
    std::string const problem = path + ": cannot be written: ";
    if (std::filesystem::is_directory(file, error)) throw files::WriteError(problem + "is a directory");
    std::filesystem::path const folder = file.parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, error)) {
        throw files::WriteError(problem + "no such directory");
    }
    errno = 0;
    bool const isWritable = std::ofstream(file, std::ios::binary | std::ios::app).is_open();
    int const reason = errno;
    if (isWritable && !exists) std::filesystem::remove(file, error);
    if (!isWritable) throw files::WriteError(problem + std::generic_category().message(reason));
}

/// Throws files::WriteError if the file is not a whole PDF file: a full device cuts it off silently.
void CheckWritten(std::string const& path) {
    constexpr std::streamoff tailBytes = 32;
    std::ifstream file(platform::PathOf(path), std::ios::binary);
    file.seekg(0, std::ios::end);
    file.seekg(-std::min<std::streamoff>(file.tellg(), tailBytes), std::ios::cur);
    std::string const tail{std::istreambuf_iterator<char>(file), {}};
    if (tail.find("%%EOF") != std::string::npos) return;
    throw files::WriteError(path + ": cannot be written completely (is the device full?)");
}

/// Writes the boxes of the library as warnings and answers them, since a display may not be seen.
class BoxesAsWarnings {
  public:
    explicit BoxesAsWarnings(Messages& messages)
        : before_(sv::SetBoxHandler([&messages](sv::MessBox const& box) {
              std::string text = files::FromSuite(box.GetText().View());
              std::ranges::replace(text, '\n', ' ');
              messages.Warn(text);
              return box.DefaultAnswer();
          })) {}
    BoxesAsWarnings(BoxesAsWarnings const&) = delete;
    BoxesAsWarnings& operator=(BoxesAsWarnings const&) = delete;
    ~BoxesAsWarnings() { sv::SetBoxHandler(before_); }

  private:
    sv::BoxHandler before_;
};

void RunReport(Session& session, ReportOptions const& options) {
    if (!options.out.ends_with(".pdf")) throw InputError("--out " + options.out + ": not a .pdf file");
    session.CheckOutput(options.out);
    TryOutput(options.out);
    evaluation::ColourSheet sheet(session.Load(session.Defaults()));
    sheet.Change(ConditionsOf(session, options, sheet.File()));
    report::ReportOptions const content = ContentOf(session, options, sheet.File());

    auto const printing = session.GetEnvironment().beginPrinting();
    if (printing == nullptr) throw InputError("this build of kvcolor cannot print");
    BoxesAsWarnings const boxes(session.GetMessages());
    Services const services(options);
    constexpr unsigned none = -1;
    if (kv::Text::GetGroupNr("ChartReport") == none) {
        throw InputError("the texts of the report are missing (install kvcolor again)");
    }
    if (!report::PrintChartReport(PrinterFor(options), sheet, content)) {
        throw files::WriteError(options.out + ": cannot be written");
    }
    CheckWritten(options.out);
    if (std::size_t const unprintable = report::CountUnprintable(sheet, content.samples); unprintable > 0) {
        session.GetMessages().Warn(
            options.out + ": the names of " + files::Counted(unprintable, "sample") +
            " contain characters outside Windows-1252, which the report shows as \"?\"");
    }
    session.GetMessages().Note(options.out + ": " + files::Counted(content.samples.size(), "sample"));
}

void AddContentOptions(Command& command, Session& session, ReportOptions& options) {
    session.AddConditions(command);
    command.Add({.name = "--density", .help = "Density standard, ANSI T by default", .value = "NAME"},
                options.density);
    command.Add({.name = "--paper", .help = "Densities relative to this sample", .value = "NAME"},
                options.paper);
    command.Add({.name = "--curves",
                 .help = "Samples whose spectra are drawn; the first six by default",
                 .value = "NAME"},
                options.curves);
    command.Add({.name = "--standard", .help = "Differences to this sample", .value = "NAME"},
                options.standard);
    command.Add({.name = "--formula", .help = "cielab (default), cmc, cie94, mg, ...", .value = "NAME"},
                options.formula);
    command.Add({.name = "--tolerance",
                 .help = "The maximum difference that passes",
                 .value = "NUMBER",
                 .needs = "--standard"},
                options.tolerance);
    session.AddWeights(command);
}

}  // namespace

void AddReport(CommandLine& program, Session& session) {
    auto const options = std::make_shared<ReportOptions>();
    Command command = program.Add("report", "Print the samples as a report, an archivable PDF file");
    session.AddInputOptions(command);
    command.Add({.name = "--out", .help = "The PDF file to write", .value = "FILE.pdf", .isRequired = true},
                options->out);
    session.AddForce(command, "Overwrite the file if it exists");
    AddContentOptions(command, session, *options);
    command.Add(
        {.name = "--language", .help = "en (default) or de", .value = "LANGUAGE", .choices = {"en", "de"}},
        options->language);
    command.Add({.name = "--user", .help = "User name printed on the report", .value = "NAME"},
                options->user);
    command.Add({.name = "--landscape", .help = "Landscape pages"}, options->isLandscape);
    session.AddVerbosity(command);
    command.Finish(
        "Example:\n  kvcolor report chart.csv --out chart.pdf --standard white --tolerance 2.5 --language de",
        [&session, options] { RunReport(session, *options); });
}

}  // namespace kvcolor
