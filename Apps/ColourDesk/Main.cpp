// The program ColourDesk: a workbench for measured charts.
#include "Apps/ColourDesk/DeskWindow.h"
#include "Apps/suite/SuiteServices.h"
#include "KVUtils/KVUtils.h"
#include "Platform/CommandLine.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"
#include "SV/qt/QtBackend.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace colourdesk;

constexpr char const* Version = "1.0";
constexpr int UsageError = 2;

struct Options {
    std::string file;
    std::string standard;
    std::string paper;
    std::vector<std::string> selected;
    int cursor = 0;        // in nm; 0 for none
    std::string language;  // empty for the system's
    bool isMeasuring = false;
    std::string screenshot;
    std::string plot;

    /// Whether the program only draws pictures and exits.
    [[nodiscard]] bool IsDrawing() const noexcept { return !screenshot.empty() || !plot.empty(); }
    /// 0 for the system's language.
    [[nodiscard]] int CountryCode() const noexcept {
        return language.empty() ? 0 : suite::CountryCodeOf(language);
    }
};

void Describe(CLI::App& program, Options& options) {
    program.add_option("FILE", options.file, "Measurements to open: CGATS, ISO 28178, CSV or a data file")
        ->type_name("");
    program.add_flag("--measure", options.isMeasuring, "Measure a chart through the measuring server");
    program.add_option("--standard", options.standard, "Judge all samples against this one")
        ->type_name("NAME");
    program.add_option("--paper", options.paper, "Show densities relative to this sample")->type_name("NAME");
    program.add_option("--select", options.selected, "Select these samples")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("NAME,...");
    program.add_option("--cursor", options.cursor, "Set the plot's cursor to this wavelength")
        ->check(CLI::Range(380, 730))
        ->type_name("NM");
    program.add_option("--language", options.language, "en or de (default: the system's language)")
        ->check(CLI::IsMember({"en", "de"}))
        ->type_name("LANGUAGE");
    program
        .add_option("--screenshot", options.screenshot,
                    "Draw the window into this file (.png, .svg, .pdf) without a display, then exit")
        ->type_name("FILE");
    program.add_option("--plot", options.plot, "Draw the plot into this file without a display, then exit")
        ->type_name("FILE");
    program.set_version_flag("--version", std::string("ColourDesk ") + Version);
}

std::size_t SampleOf(DeskWindow const& desk, std::string const& name) {
    auto const& samples = desk.GetSheet()->File().samples;
    auto const sample = std::ranges::find(samples, name, &files::Sample::name);
    if (sample == samples.end())
        throw std::runtime_error("no sample \"" + name + "\" in " + desk.GetSheet()->File().path);
    return static_cast<std::size_t>(sample - samples.begin());
}

void SetUp(DeskWindow& desk, Options const& options) {
    if (!options.file.empty()) desk.Open(options.file);
    if (options.isMeasuring) desk.Measure();
    if (desk.GetSheet() == nullptr) {
        // A box has shown the error; the user can open another file.
        bool const wantsSamples = options.isMeasuring || !options.file.empty();
        if (wantsSamples && options.IsDrawing()) throw std::runtime_error("nothing to draw");
        return;
    }
    if (!options.paper.empty()) desk.UseAsPaper(SampleOf(desk, options.paper));
    if (!options.standard.empty()) desk.UseAsStandard(SampleOf(desk, options.standard));
    std::vector<int> selected;
    for (std::string const& name : options.selected)
        selected.push_back(static_cast<int>(SampleOf(desk, name)));
    if (!selected.empty()) desk.SelectSamples(std::move(selected));
    if (options.cursor != 0)
        desk.PutCursor(static_cast<int>(std::lround((options.cursor - kv::Wavelength(0)) / 10.0)));
}

void Draw(sv::Window& window, std::string const& path) {
    if (path.empty()) return;
    if (!sv::qt::SaveAs(window, sv::FromNativePath(path)))
        throw std::runtime_error(path + ": cannot be written");
}

void Run(Options const& options) {
    bool const isDrawing = options.IsDrawing();
    std::string name = "ColourDesk";
    std::vector<char*> arguments = {name.data(), nullptr};
    int count = 1;
    sv::qt::QtBackend const windows(count, arguments.data(),
                                    isDrawing ? sv::qt::Screen::None : sv::qt::Screen::Desktop);
    // Print boxes to standard error: no user can answer them.
    if (isDrawing) sv::SetBoxHandler({});
    kv::AppConfig::CreateAppConfig(suite::ProgramIniFile("ColourDesk"));
    suite::SuiteServices const services("ColourDesk", Version, options.CountryCode());
    sv::String const stem = (kv::AppDir::Instance()->LngDirEntry() + sv::String("colourdesk")).GetFull();
    kv::Text::LoadText(stem, kv::Language::GetCountryCode());
    DeskWindow desk(stem, &sv::qt::SaveAs);
    desk.Show();
    SetUp(desk, options);
    if (isDrawing) {
        Draw(desk, options.screenshot);
        Draw(desk.GetPlot(), options.plot);
    } else {
        sv::Application::Execute();
    }
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App program("Show, judge and report measured charts.", "ColourDesk");
    Options options;
    Describe(program, options);
    try {
        std::vector<std::string> arguments = platform::Arguments(argc, argv);
        std::ranges::reverse(arguments);
        program.parse(std::move(arguments));
        Run(options);
        return EXIT_SUCCESS;
    } catch (CLI::ParseError const& error) {
        return program.exit(error) == EXIT_SUCCESS ? EXIT_SUCCESS : UsageError;
    } catch (std::exception const& error) {
        std::cerr << "ColourDesk: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
