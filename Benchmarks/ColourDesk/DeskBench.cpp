// ColourDesk with 2,000 samples: scrolling compared with a Qt table of stored texts, judging again, and the
// start compared with that of the program's libraries alone.
#include "Apps/ColourDesk/DeskWindow.h"
#include "Benchmarks/Ratios.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"
#include "Platform/Process.h"
#include "SV/qt/QtBackend.h"
#include "SV/qt/QtWindow.h"

#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

constexpr int Samples = 2000;
constexpr int RowsOfPage = 16;

/// Never destroyed: a process has one application.
void NeedWindows() {
    static std::string name = "KVUtilsBench";
    static std::vector<char*> arguments = {name.data(), nullptr};
    static int count = 1;
    static sv::qt::QtBackend const& windows =
        *new sv::qt::QtBackend(count, arguments.data(), sv::qt::Screen::None);
    static_cast<void>(windows);
}

/// A file with many patches.
class Chart {
  public:
    Chart() {
        std::ofstream file(path_);
        file << "SAMPLE_NAME";
        for (int k = 0; k < kv::SpectralPoints; ++k) file << ",nm" << kv::Wavelength(k);
        file << '\n';
        for (int i = 0; i < Samples; ++i) {
            file << "patch " << i + 1;
            for (int k = 0; k < kv::SpectralPoints; ++k)
                file << ',' << 0.05 + 0.9 * ((i * 37 + k * 11) % 1000) / 1000;
            file << '\n';
        }
    }
    Chart(Chart const&) = delete;
    Chart& operator=(Chart const&) = delete;
    ~Chart() { std::filesystem::remove(path_); }

    [[nodiscard]] std::string const& Path() const noexcept { return path_; }

  private:
    std::string path_ = (std::filesystem::temp_directory_path() / "DeskBench.csv").string();
};

/// The window with all samples judged.
colourdesk::DeskWindow& Desk() {
    NeedWindows();
    static colourdesk::DeskWindow& desk = []() -> colourdesk::DeskWindow& {
        kv::Language::CreateLanguage(nullptr, KV_TEXTS "/colourdesk1.lng");
        kv::Text::LoadText(KV_TEXTS "/colourdesk", 1);
        auto& made = *new colourdesk::DeskWindow(KV_TEXTS "/colourdesk", nullptr);
        Chart const chart;
        if (!made.Open(chart.Path())) throw std::runtime_error("the chart does not open");
        made.UseAsStandard(0);
        made.Show();
        return made;
    }();
    return desk;
}

/// Scrolls by a page and paints it.
void Scroll(benchmark::State& state, QTableView& view) {
    int row = 0;
    for (auto _ : state) {
        row = (row + RowsOfPage) % (Samples - RowsOfPage);
        view.verticalScrollBar()->setValue(row);
        benchmark::DoNotOptimize(view.grab());
    }
}

void BM_ScrollSamples(benchmark::State& state) {
    Scroll(state, *sv::qt::QtWindow::Of(Desk()).Widget().findChild<QTableView*>());
}
BENCHMARK(BM_ScrollSamples)->Unit(benchmark::kMillisecond);

void BM_ScrollTextsOfQt(benchmark::State& state) {
    QTableView const& shown = *sv::qt::QtWindow::Of(Desk()).Widget().findChild<QTableView*>();
    QAbstractItemModel const& model = *shown.model();
    QTableWidget table(model.rowCount(), model.columnCount());
    table.resize(shown.size());
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column)
            table.setItem(row, column, new QTableWidgetItem(model.index(row, column).data().toString()));
    }
    Scroll(state, table);
}
BENCHMARK(BM_ScrollTextsOfQt)->Unit(benchmark::kMillisecond);

/// Computes all samples again, alternating the illuminant.
void BM_JudgeSamples(benchmark::State& state) {
    evaluation::ColourSheet sheet(Desk().GetSheet()->File());
    evaluation::SheetConditions conditions;
    conditions.standard = 0;
    for (auto _ : state) {
        bool const isD50 = conditions.illuminant == kv::IllumType::D50;
        conditions.illuminant = kv::IllumClass(isD50 ? kv::IllumType::A : kv::IllumType::D50);
        sheet.Change(conditions);
    }
}
BENCHMARK(BM_JudgeSamples)->Unit(benchmark::kMillisecond);

void Start(benchmark::State& state, std::vector<std::string> const& arguments) {
    for (auto _ : state) {
        auto const begin = std::chrono::steady_clock::now();
        auto const program = platform::Process::Start(KV_COLOURDESK, arguments);
        if (program == nullptr || program->Wait() != 0) state.SkipWithError("ColourDesk does not run");
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
}

void BM_StartWithAChart(benchmark::State& state) {
    Chart const chart;
    std::string const picture = (std::filesystem::temp_directory_path() / "DeskBench.png").string();
    Start(state, {chart.Path(), "--screenshot", picture});
    std::filesystem::remove(picture);
}
BENCHMARK(BM_StartWithAChart)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_StartOfLibraries(benchmark::State& state) { Start(state, {"--version"}); }
BENCHMARK(BM_StartOfLibraries)->Unit(benchmark::kMillisecond)->UseManualTime();

bench::Ratio const scroll("BM_ScrollSamples", "BM_ScrollTextsOfQt",
                          "a page of 2,000 samples computed on painting, over one of stored texts");
bench::Ratio const start("BM_StartWithAChart", "BM_StartOfLibraries",
                         "starting ColourDesk with 2,000 samples, over loading its libraries");

}  // namespace
