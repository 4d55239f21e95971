// JudgementPanel: by which measure and within which limits samples are judged, and against what.
#pragma once

#include "Apps/evaluation/ColourSheet.h"
#include "KVUtils/Source/controls/NumEditor.h"
#include "SV/ui/Controls.h"

#include <array>

namespace colourdesk {

class JudgementPanel : public sv::Window {
  public:
    explicit JudgementPanel(sv::Window* parent);

    /// Shows these tolerances, and the names of standard and paper white, each empty for none.
    void Show(evaluation::Tolerances const& tolerances, sv::String const& standard, sv::String const& paper);
    using Window::Show;
    void Read(evaluation::Tolerances& tolerances) const;
    void TakeTexts();
    /// The width that its texts take.
    [[nodiscard]] int GetWidth() const;

    /// Measure or limits have changed; the sender is the control. Returns the link before.
    sv::Link ChangeToleranceHdl(sv::Link const& link);
    // What the buttons are pressed for.
    sv::Link ChangeStandardHdl(sv::Link const& link) { return useAsStandard_.ChangeClickHdl(link); }
    sv::Link ChangePaperHdl(sv::Link const& link) { return useAsPaper_.ChangeClickHdl(link); }
    /// Whether there is a sample to use.
    void EnableUse(bool enable);

    void Resize() override;

  private:
    static constexpr std::size_t LimitCount = 4;  // of the measure, dL*, dC*, dH*

    [[nodiscard]] int CaptionWidth() const;

    sv::FixedText standard_{this};
    sv::PushButton useAsStandard_{this};
    sv::FixedText paper_{this};
    sv::PushButton useAsPaper_{this};
    sv::FixedText measureCaption_{this};
    sv::DropDownListBox measure_{this};
    std::array<sv::FixedText, LimitCount> limitCaptions_;
    std::array<kv::NumEditor, LimitCount> limits_;
};

}  // namespace colourdesk
