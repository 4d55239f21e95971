#include "Apps/ColourDesk/DeskFile.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/ColourDesk/FaultTexts.h"
#include "Apps/files/DataFile.h"
#include "Apps/files/SuiteText.h"
#include "KVUtils/Source/dialogs/MyFileDialog.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <utility>

namespace colourdesk {

namespace {

constexpr char const* DataFilePattern = "*.dat";
constexpr char const* MeasurementPattern = "*.dat *.csv *.txt *.cgats *.it8";

}  // namespace

sv::String DeskFile::SampleName(std::optional<std::size_t> sample) const {
    return sample ? sv::String(files::ToSuite(sheet_->File().samples[*sample].name)) : sv::String();
}

std::optional<files::MeasurementFile> DeskFile::Read(std::string const& path) {
    try {
        files::MeasurementFile file = files::ReadMeasurementFile(path);
        auto const add = [&](std::string const& line) {
            messages_.Add(FaultText(file.path, file.path + ": " + line));
        };
        for (std::string const& warning : file.warnings) add(warning);
        for (std::string const& assumption : file.assumptions) add("assumed: " + assumption);
        for (std::string const& note : file.notes) add(note);
        return file;
    } catch (files::ReadError const& error) {
        ShowError(FaultText(path, error.what()));
        return std::nullopt;
    }
}

void DeskFile::ShowWarnings() const {
    sv::String text;
    for (std::string const& warning : sheet_->File().warnings)
        text += sv::String(text.IsEmpty() ? "" : "\n") + FaultText(warning);
    if (!text.IsEmpty()) sv::InfoBox(&window_, text).Execute();
}

void DeskFile::Set(files::MeasurementFile file, bool isUnsaved) {
    sheet_.emplace(std::move(file));
    isUnsaved_ = isUnsaved;
}

bool DeskFile::Save(std::string const& path) {
    auto const changed = std::ranges::count_if(sheet_->File().samples, [](files::Sample const& sample) {
        return !files::IsRepresentable(sample.name);
    });
    try {
        files::WriteDataFile(sheet_->File(), path);
    } catch (files::WriteError const& error) {
        ShowError(FaultText(path, error.what()));
        return false;
    }
    if (changed > 0) messages_.Add(Format(TextOf(Question::ChangedNames), {std::to_string(changed)}));
    isUnsaved_ = false;
    return true;
}

std::optional<std::string> DeskFile::AskForPath() {
    kv::MyFileDialog dialog(&window_, kv::MyFileDialog::Open, TextOf(Question::OpenTitle));
    dialog.AddFilter(TextOf(Question::Measurements), MeasurementPattern);
    dialog.AddFilter(TextOf(Question::AllFiles), "*");
    if (dialog.Execute() == 0) return std::nullopt;
    return sv::NativePath(dialog.GetPath());
}

bool DeskFile::AskAndSave() {
    kv::MyFileDialog dialog(&window_, kv::MyFileDialog::Save, TextOf(Question::SaveTitle));
    dialog.AddFilter(TextOf(Question::DataFiles), DataFilePattern);
    return dialog.Execute() != 0 && Save(sv::NativePath(dialog.GetPath()));
}

bool DeskFile::MayDiscard() {
    if (!isUnsaved_) return true;
    sv::MessBox const question(&window_, sv::WB_SAVE_DISCARD_CANCEL, window_.GetText(),
                               TextOf(Question::SaveFirst));
    switch (question.Execute()) {
        case sv::BoxAnswer::Yes:
            return AskAndSave();
        case sv::BoxAnswer::No:
            return true;
        default:
            return false;
    }
}

}  // namespace colourdesk
