// DeskWindow: the window of ColourDesk. Shows a chart's samples as a table and as curves.
#pragma once

#include "Apps/ColourDesk/ConditionsBar.h"
#include "Apps/ColourDesk/DeskCommands.h"
#include "Apps/ColourDesk/DeskFile.h"
#include "Apps/ColourDesk/DeskReporting.h"
#include "Apps/ColourDesk/SampleView.h"
#include "Apps/ColourDesk/SpectrumPlot.h"
#include "Apps/ColourDesk/TolerancePanel.h"

#include <functional>
#include <string>
#include <vector>

namespace colourdesk {

class DeskWindow : public sv::Window {
  public:
    /// Draws a window into a file of the format that the file's extension names; false when that fails.
    using Draw = std::function<bool(sv::Window& window, sv::String const& path)>;

    /// `textStem` is the path of the text files without country code and extension.
    DeskWindow(sv::String textStem, Draw draw);
    ~DeskWindow() override;

    // Commands without their dialogs. Each shows in a box what fails. Paths are UTF-8.
    /// False when the file cannot be read; what was open stays open.
    bool Open(std::string const& path);
    bool Save(std::string const& path) { return file_.Save(path); }
    /// The path is in the suite's code page.
    bool SavePlot(sv::String const& path);
    /// As `DeskReporting::Print`.
    bool PrintReport(sv::String const& printer);
    /// As `DeskReporting::Send`.
    bool SendReport(sv::String const& recipients);
    /// Measures a chart through the measuring server and opens it.
    void Measure();

    void Execute(Command command);
    [[nodiscard]] bool CanDo(Command command) const;

    /// Null when nothing is open.
    [[nodiscard]] evaluation::ColourSheet const* GetSheet() const noexcept { return file_.GetSheet(); }
    /// Makes the sample the standard; the standard itself is cleared. The same for the paper white.
    void UseAsStandard(std::size_t sample);
    void UseAsPaper(std::size_t sample);
    void SelectSamples(std::vector<int> samples);
    void PutCursor(int wavelengthIndex);
    /// `entry` is the language's place in the list.
    void ChangeLanguage(unsigned short entry);
    [[nodiscard]] sv::String const& GetStatus() const noexcept { return status_.GetText(); }
    [[nodiscard]] SpectrumPlot& GetPlot() noexcept { return plot_; }
    [[nodiscard]] SampleView const& GetSamples() const noexcept { return samples_; }
    /// Whether a measurement is in no file.
    [[nodiscard]] bool IsUnsaved() const noexcept { return file_.IsUnsaved(); }

    void Resize() override;
    void WasClosed() override;

  private:
    /// Disables the window while the event loop runs in a command.
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
    void UpdateTexts();
    void ShowFile(files::MeasurementFile file, bool isUnsaved);
    void Recompute(evaluation::SheetConditions const& conditions);
    void ShowConditions(evaluation::SheetConditions const& conditions);
    void ShowSelection();
    void ShowStatus();
    void ShowCommands();
    void AskAndSavePlot();

    long ConditionHdl(void* sender);
    long LanguageHdl(void* sender);
    long SelectHdl(void* sender);
    long CursorHdl(void* sender);
    long UseAsStandardHdl(void* sender);
    long UseAsPaperHdl(void* sender);

    sv::String textStem_;
    Draw draw_;
    bool isBusy_ = false;
    DeskMessages messages_{*this};
    DeskFile file_{*this, messages_};

    ConditionsBar conditions_{this};
    SampleView samples_{this};
    SpectrumPlot plot_{this};
    TolerancePanel tolerances_{this};
    sv::FixedText status_{this};
    DeskCommands commands_{*this, [this](Command command) { Execute(command); }};
    DeskReporting reporting_{*this, file_, samples_, messages_};
};

}  // namespace colourdesk
