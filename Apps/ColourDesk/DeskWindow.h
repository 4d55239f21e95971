// DeskWindow: the window of ColourDesk: a chart's samples as a table and as curves, and what can be done with
// them.
#pragma once

#include "Apps/ColourDesk/Command.h"
#include "Apps/ColourDesk/ConditionsBar.h"
#include "Apps/ColourDesk/JudgementPanel.h"
#include "Apps/ColourDesk/SampleView.h"
#include "Apps/ColourDesk/SpectrumPlot.h"
#include "Apps/evaluation/ColourSheet.h"
#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/controls/TextFenster.h"
#include "KVUtils/Source/dialogs/KORVELMenu.h"
#include "SV/ui/Controls.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace colourdesk {

class DeskWindow : public sv::Window {
  public:
    /// Draws a window into a file, by the ending of its name; false when that cannot be.
    using Draw = std::function<bool(sv::Window& window, sv::String const& path)>;

    /// `textStem` is the text files' name with its path, without the country code and what follows.
    DeskWindow(sv::String textStem, Draw draw);
    ~DeskWindow() override;

    // What the commands do once it is known with which file; each says in a box what went wrong. Paths are
    // UTF-8.
    /// True when the file is open. What was open before stays if it is not.
    bool Open(std::string const& path);
    bool Save(std::string const& path);
    /// The path is in the suite's code page.
    bool SavePlot(sv::String const& path);
    /// The report of all samples, with the spectra of the selected ones, by the queue of this name, the
    /// default one for an empty name, or into a PDF file. False, after a box, when it did not arrive.
    bool PrintReport(sv::String const& printer);
    /// The same as a mail to these recipients.
    bool SendReport(sv::String const& recipients);
    /// Measures a chart through the measuring server, in place of what is open.
    void Measure();

    void Execute(Command command);
    [[nodiscard]] bool CanDo(Command command) const;

    /// Null when nothing is open.
    [[nodiscard]] evaluation::ColourSheet const* GetSheet() const noexcept {
        return sheet_ ? &*sheet_ : nullptr;
    }
    /// The sample becomes the standard, or is none any more if it is; the same for the paper white.
    void UseAsStandard(std::size_t sample);
    void UseAsPaper(std::size_t sample);
    void SelectSamples(std::vector<int> samples);
    void PutCursor(int wavelengthIndex);
    /// By its place in the list of languages.
    void SpeakLanguage(unsigned short entry);
    [[nodiscard]] sv::String const& GetStatus() const noexcept { return status_.GetText(); }
    [[nodiscard]] SpectrumPlot& GetPlot() noexcept { return plot_; }
    [[nodiscard]] SampleView const& GetSamples() const noexcept { return samples_; }
    /// A measurement that is in no file.
    [[nodiscard]] bool IsUnsaved() const noexcept { return isUnsaved_; }

    void Resize() override;
    void WasClosed() override;

  private:
    /// Work that turns the loop, during which nothing else may be begun.
    class Busy {
      public:
        explicit Busy(DeskWindow& desk) : desk_(desk) { desk_.SetBusy(true); }
        Busy(Busy const&) = delete;
        Busy& operator=(Busy const&) = delete;
        ~Busy() { desk_.SetBusy(false); }

      private:
        DeskWindow& desk_;
    };

    void SetBusy(bool isBusy);
    void MakeMenu();
    void MakeButtons();
    void TakeTexts();
    void ShowFile(files::MeasurementFile file);
    void Recompute(evaluation::SheetConditions const& conditions);
    void ShowSelection();
    void ShowStatus();
    void ShowCommands();
    void ToggleUse(std::optional<std::size_t> evaluation::SheetConditions::*role, std::size_t sample);
    void Say(sv::String const& line);
    void ShowMessages();
    [[nodiscard]] bool MayGiveUp();
    void AskAndOpen();
    bool AskAndSave();
    void AskAndSavePlot();
    void AskAndSaveReport();
    void AskAndSendReport();
    [[nodiscard]] bool WriteReport(sv::String const& printer) const;
    [[nodiscard]] sv::String ChartName() const;
    void MeasureInto(files::MeasurementFile& file);
    [[nodiscard]] sv::String PointedValue() const;

    long MenuHdl(sv::MenuBar* sender);
    long ButtonHdl(kv::KOBitmapButton* sender);
    long ConditionHdl(void* sender);
    long LanguageHdl(void* sender);
    long SelectHdl(void* sender);
    long CursorHdl(void* sender);
    long UseAsStandardHdl(void* sender);
    long UseAsPaperHdl(void* sender);

    sv::String textStem_;
    Draw draw_;
    std::optional<evaluation::ColourSheet> sheet_;
    bool isUnsaved_ = false;
    bool isBusy_ = false;
    std::vector<sv::String> log_;

    std::unique_ptr<kv::KORVELMenu> menu_;
    ConditionsBar conditions_{this};
    SampleView samples_{this};
    SpectrumPlot plot_{this};
    JudgementPanel judgement_{this};
    sv::FixedText status_{this};
    std::unique_ptr<kv::KOBitmapButtonBar> buttons_;
    std::unique_ptr<kv::TextFenster> messages_;
};

}  // namespace colourdesk
