#include "Apps/ColourDesk/DeskReporting.h"

#include "Apps/ColourDesk/DeskTexts.h"
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

constexpr std::size_t MaxCurves = 12;

/// A folder that other users cannot read. The destructor removes it.
class PrivateFolder {
  public:
    PrivateFolder() : path_(platform::MakePrivateFolder("ColourDesk")) {}
    PrivateFolder(PrivateFolder const&) = delete;
    PrivateFolder& operator=(PrivateFolder const&) = delete;
    ~PrivateFolder() {
        std::error_code ignored;
        if (Exists()) fs::remove_all(path_, ignored);
    }

    /// False when the folder could not be created.
    [[nodiscard]] bool Exists() const noexcept { return !path_.empty(); }
    [[nodiscard]] sv::String File(std::string const& name) const {
        return sv::FromNativePath(platform::Utf8Of(path_ / platform::PathOf(name)));
    }

  private:
    fs::path path_;
};

/// The file's name without folder and extension, in UTF-8.
std::string StemOf(std::string const& path) { return platform::Utf8Of(platform::PathOf(path).stem()); }

}  // namespace

bool DeskReporting::Print(sv::String const& printer) const {
    evaluation::ColourSheet const& sheet = *file_.GetSheet();
    report::ReportOptions options;
    options.samples = sheet.AllSamples();
    auto const selected = samples_.GetSelectedRows();
    for (int const sample : selected.first(std::min(selected.size(), MaxCurves))) {
        options.curves.push_back(static_cast<std::size_t>(sample));
    }
    options.language = suite::LanguageOf(kv::Language::GetCountryCode());
    if (!report::PrintChartReport(*kv::MyPrinter::CreateMyPrinter(printer), sheet, options)) return false;
    std::size_t const unprintable = report::CountUnprintable(sheet, options.samples);
    if (unprintable > 0) {
        sv::InfoBox(&window_, Format(TextOf(Question::UnprintableNames), {std::to_string(unprintable)}))
            .Execute();
    }
    return true;
}

bool DeskReporting::Send(sv::String const& recipients) const {
    kv::WaitVisualizer const waiting(&window_, TextOf(Question::MailTitle), TextOf(Question::Sending));
    std::string const stem = StemOf(file_.GetSheet()->File().path);
    PrivateFolder const folder;
    sv::String const file = folder.File(stem + ".pdf");
    if (!folder.Exists() || !Print(file)) {
        ShowError(Format(TextOf(Question::ReportNotWritten), {file}));
        return false;
    }
    sv::String const chart = files::ToSuite(stem);
    sv::String names;
    bool const isSent = kv::Mailer::Instance()->SendDocuments(
        recipients, Format(TextOf(Question::MailSubject), {chart}),
        Format(TextOf(Question::MailText), {chart}), kv::MailerFlagsTYPE::Direct, file, names);
    if (isSent) {
        messages_.Add(Format(TextOf(Question::Sent), {recipients}));
    } else {
        ShowError(TextOf(Question::NotSent));
    }
    return isSent;
}

sv::String DeskReporting::AskForPath() const {
    kv::MyFileDialog dialog(&window_, kv::MyFileDialog::Save, TextOf(Question::ReportTitle));
    dialog.AddFilter(TextOf(Question::Reports), "*.pdf");
    return dialog.Execute() != 0 ? dialog.GetPath() : sv::String();
}

sv::String DeskReporting::AskForRecipients() const {
    // Logging on takes as long as the mail server needs.
    sv::Application::Wait(true);
    bool const isAvailable = kv::Mailer::Instance()->IsMailAvailable();
    sv::Application::Wait(false);
    if (!isAvailable) {
        ShowError(TextOf(Question::NoMail));
        return {};
    }
    sv::String recipients;
    kv::TextInputDialog dialog(&window_, TextOf(Question::MailTitle), TextOf(Question::Recipients));
    return dialog.Input(recipients) != 0 ? recipients : sv::String();
}

}  // namespace colourdesk
