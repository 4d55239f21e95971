// DeskWindow: its reports, on paper, as files and by mail.
#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/ColourDesk/DeskWindow.h"
#include "Apps/files/SuiteText.h"
#include "Apps/report/ChartReport.h"
#include "Apps/suite/SuiteServices.h"
#include "KVUtils/Source/dialogs/MyFileDialog.h"
#include "KVUtils/Source/dialogs/TextInputDialog.h"
#include "KVUtils/Source/dialogs/WaitVisualizer.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/mail/Mailer.h"
#include "KVUtils/Source/printing/MyPrinter.h"
#include "Platform/UserFolders.h"
#include "Platform/Utf8Path.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace colourdesk {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t MostCurves = 12;

/// A folder that nobody else looks into, as long as the object lives.
class PrivateFolder {
  public:
    PrivateFolder() : path_(platform::MakePrivateFolder("ColourDesk")) {}
    PrivateFolder(PrivateFolder const&) = delete;
    PrivateFolder& operator=(PrivateFolder const&) = delete;
    ~PrivateFolder() {
        std::error_code ignored;
        if (Exists()) fs::remove_all(path_, ignored);
    }

    /// Whether one could be made.
    [[nodiscard]] bool Exists() const noexcept { return !path_.empty(); }
    [[nodiscard]] sv::String File(std::string const& name) const {
        return sv::FromNativePath(platform::Utf8Of(path_ / platform::PathOf(name)));
    }

  private:
    fs::path path_;
};

/// The name of a chart's file without its folder and ending, in UTF-8.
std::string StemOf(std::string const& path) { return platform::Utf8Of(platform::PathOf(path).stem()); }

}  // namespace

sv::String DeskWindow::ChartName() const { return files::ToSuite(StemOf(sheet_->File().path)); }

bool DeskWindow::WriteReport(sv::String const& printer) const {
    report::ReportOptions options;
    options.samples = sheet_->AllSamples();
    auto const selected = samples_.GetSelectedRows();
    for (int const sample : selected.first(std::min(selected.size(), MostCurves))) {
        options.curves.push_back(static_cast<std::size_t>(sample));
    }
    options.language = suite::LanguageOf(kv::Language::GetCountryCode());
    return report::PrintChartReport(*kv::MyPrinter::CreateMyPrinter(printer), *sheet_, options);
}

bool DeskWindow::PrintReport(sv::String const& printer) {
    Busy const busy(*this);
    // The printer itself tells of a job that it does not take.
    return WriteReport(printer);
}

void DeskWindow::AskAndSaveReport() {
    kv::MyFileDialog dialog(this, kv::MyFileDialog::Save, TextOf(Question::ReportTitle));
    dialog.AddFilter(TextOf(Question::Reports), "*.pdf");
    if (dialog.Execute() != 0) PrintReport(dialog.GetPath());
}

bool DeskWindow::SendReport(sv::String const& recipients) {
    Busy const busy(*this);
    kv::WaitVisualizer const waiting(this, TextOf(Question::MailTitle), TextOf(Question::Sending));
    PrivateFolder const folder;
    sv::String const file = folder.File(StemOf(sheet_->File().path) + ".pdf");
    if (!folder.Exists() || !WriteReport(file)) {
        ShowError(Filled(TextOf(Question::ReportNotWritten), {file}));
        return false;
    }
    sv::String names;
    bool const isSent = kv::Mailer::Instance()->SendDocuments(
        recipients, Filled(TextOf(Question::MailSubject), {ChartName()}),
        Filled(TextOf(Question::MailText), {ChartName()}), kv::MailerFlagsTYPE::Direct, file, names);
    if (isSent) {
        Say(Filled(TextOf(Question::Sent), {recipients}));
    } else {
        ShowError(TextOf(Question::NotSent));
    }
    return isSent;
}

void DeskWindow::AskAndSendReport() {
    // Logging on may take as long as the mail server does.
    sv::Application::Wait(true);
    bool const isAvailable = kv::Mailer::Instance()->IsMailAvailable();
    sv::Application::Wait(false);
    if (!isAvailable) return ShowError(TextOf(Question::NoMail));
    sv::String recipients;
    kv::TextInputDialog dialog(this, TextOf(Question::MailTitle), TextOf(Question::Recipients));
    if (dialog.Input(recipients) != 0 && !recipients.IsEmpty()) SendReport(recipients);
}

}  // namespace colourdesk
