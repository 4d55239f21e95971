// DeskWindow: what it does with files and with the measuring server, and what it asks before.
#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/ColourDesk/DeskWindow.h"
#include "Apps/files/DataFile.h"
#include "Apps/files/SuiteText.h"
#include "Apps/suite/ChartMeasurement.h"
#include "KVUtils/Source/dialogs/MyFileDialog.h"
#include "KVUtils/Source/dialogs/WaitVisualizer.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <utility>

namespace colourdesk {

namespace {

constexpr char const* DataFilePattern = "*.dat";
constexpr char const* MeasurementPattern = "*.dat *.csv *.txt *.cgats *.it8";

}  // namespace

bool DeskWindow::Save(std::string const& path) {
    auto const changed = std::ranges::count_if(sheet_->File().samples, [](files::Sample const& sample) {
        return !files::IsRepresentable(sample.name);
    });
    try {
        files::WriteDataFile(sheet_->File(), path);
    } catch (files::WriteError const& error) {
        ShowError(files::ToSuite(error.what()));
        return false;
    }
    if (changed > 0) Say(Filled(TextOf(Question::WrongNames), {std::to_string(changed)}));
    isUnsaved_ = false;
    return true;
}

bool DeskWindow::SavePlot(sv::String const& path) {
    if (draw_(plot_, path)) return true;
    ShowError(Filled(TextOf(Question::PlotNotSaved), {path}));
    return false;
}

bool DeskWindow::MayGiveUp() {
    if (!isUnsaved_) return true;
    sv::MessBox const question(this, sv::WB_YES_NO | sv::WB_DEF_YES, GetText(), TextOf(Question::SaveFirst));
    return question.Execute() != sv::BoxAnswer::Yes || AskAndSave();
}

void DeskWindow::AskAndOpen() {
    if (!MayGiveUp()) return;
    kv::MyFileDialog dialog(this, kv::MyFileDialog::Open, TextOf(Question::OpenTitle));
    dialog.AddFilter(TextOf(Question::Measurements), MeasurementPattern);
    dialog.AddFilter(TextOf(Question::AllFiles), "*");
    if (dialog.Execute() != 0) Open(sv::NativePath(dialog.GetPath()));
}

bool DeskWindow::AskAndSave() {
    kv::MyFileDialog dialog(this, kv::MyFileDialog::Save, TextOf(Question::SaveTitle));
    dialog.AddFilter(TextOf(Question::DataFiles), DataFilePattern);
    return dialog.Execute() != 0 && Save(sv::NativePath(dialog.GetPath()));
}

void DeskWindow::AskAndSavePlot() {
    kv::MyFileDialog dialog(this, kv::MyFileDialog::Save, TextOf(Question::SavePlotTitle));
    dialog.AddFilter(TextOf(Question::Pictures), "*.png");
    dialog.AddFilter(TextOf(Question::Drawings), "*.pdf *.svg");
    if (dialog.Execute() != 0) SavePlot(dialog.GetPath());
}

void DeskWindow::MeasureInto(files::MeasurementFile& file) {
    kv::AbbruchDialog dialog(this, TextOf(Question::MeasuringTitle), TextOf(Question::Connecting));
    suite::ServerClient server({.isInterrupted = [&] { return dialog.IsAborted() != 0; }});
    suite::MeasureChart(server, {}, file, [&](long done, long patches) {
        dialog.ChangeText(
            Filled(TextOf(Question::Measuring), {std::to_string(done), std::to_string(patches)}));
        dialog.SetPercent(static_cast<int>(100 * done / patches));
    });
}

void DeskWindow::Measure() {
    if (isBusy_ || !MayGiveUp()) return;
    files::MeasurementFile file;
    sv::String fault;
    try {
        Busy const busy(*this);
        MeasureInto(file);
    } catch (suite::ServerError const& error) {
        fault = files::ToSuite(error.what());
    }
    // What was measured is not lost.
    std::size_t const measured = file.samples.size();
    if (measured > 0) {
        ShowFile(std::move(file));
        isUnsaved_ = true;
    }
    if (!fault.IsEmpty())
        ShowError(Filled(TextOf(Question::MeasurementStopped), {std::to_string(measured), fault}));
}

}  // namespace colourdesk
