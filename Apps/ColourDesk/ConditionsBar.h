// ConditionsBar: selects illuminant, observer, density filters and the language of the window.
#pragma once

#include "Apps/evaluation/ColourSheet.h"
#include "SV/ui/Controls.h"

#include <array>

namespace colourdesk {

class ConditionsBar : public sv::Window {
  public:
    explicit ConditionsBar(sv::Window* parent);

    /// Selects these conditions.
    void Show(evaluation::SheetConditions const& conditions);
    using Window::Show;
    /// Stores what is selected in `conditions`.
    void Read(evaluation::SheetConditions& conditions) const;
    void UpdateTexts();

    /// Called when the user selects a condition; the sender is a list. Returns the previous link.
    sv::Link ChangeConditionHdl(sv::Link const& link);
    /// Called when the user selects a language. Returns the previous link.
    sv::Link ChangeLanguageHdl(sv::Link const& link) { return language_.ChangeSelectHdl(link); }
    /// The selected language's place in the list.
    [[nodiscard]] unsigned short GetLanguageEntry() const {
        return static_cast<unsigned short>(language_.GetSelectEntryPos());
    }

    void Resize() override;

  private:
    struct Choice {
        sv::FixedText& caption;
        sv::DropDownListBox& list;
        int letters;  // of the longest entry
    };
    [[nodiscard]] std::array<Choice, 4> Choices();
    void FillIlluminants();

    sv::FixedText illuminantCaption_{this};
    sv::DropDownListBox illuminant_{this};
    sv::FixedText observerCaption_{this};
    sv::DropDownListBox observer_{this};
    sv::FixedText densityCaption_{this};
    sv::DropDownListBox density_{this};
    sv::FixedText languageCaption_{this};
    sv::DropDownListBox language_{this};
    std::optional<kv::IllumClass> untabled_;  // a daylight from a file, the last entry of the list
};

}  // namespace colourdesk
