// TolerancePanel: selects the standard, the paper white, the difference formula and its limits.
#pragma once

#include "Apps/evaluation/ColourSheet.h"
#include "KVUtils/Source/controls/NumEditor.h"
#include "SV/ui/Controls.h"

#include <array>

namespace colourdesk {

class TolerancePanel : public sv::Window {
  public:
    explicit TolerancePanel(sv::Window* parent);

    /// Shows these tolerances, and the names of standard and paper white; an empty name is none.
    void Show(evaluation::Tolerances const& tolerances, sv::String const& standard, sv::String const& paper);
    using Window::Show;
    /// Stores what is set in `tolerances`.
    void Read(evaluation::Tolerances& tolerances) const;
    void UpdateTexts();
    /// The width that the texts need, in pixels.
    [[nodiscard]] int GetWidth() const;

    /// Called when formula or limits have changed; the sender is the control. Returns the previous link.
    sv::Link ChangeToleranceHdl(sv::Link const& link);
    // Called when a button is pressed.
    sv::Link ChangeStandardHdl(sv::Link const& link) { return useAsStandard_.ChangeClickHdl(link); }
    sv::Link ChangePaperHdl(sv::Link const& link) { return useAsPaper_.ChangeClickHdl(link); }
    /// Enables the buttons that use a selected sample.
    void EnableUse(bool enable);

    void Resize() override;

  private:
    static constexpr std::size_t LimitCount = 4;  // of the formula, dL*, dC*, dH*

    [[nodiscard]] int CaptionWidth() const;

    sv::FixedText standard_{this};
    sv::PushButton useAsStandard_{this};
    sv::FixedText paper_{this};
    sv::PushButton useAsPaper_{this};
    sv::FixedText formulaCaption_{this};
    sv::DropDownListBox formula_{this};
    std::array<sv::FixedText, LimitCount> limitCaptions_;
    std::array<kv::NumEditor, LimitCount> limits_;
};

}  // namespace colourdesk
