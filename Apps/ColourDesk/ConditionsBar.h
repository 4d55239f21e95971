// ConditionsBar: the line above the samples: under which light, by which observer and through which filters
// they are seen, and in which language the window speaks.
#pragma once

#include "Apps/evaluation/ColourSheet.h"
#include "SV/ui/Controls.h"

#include <array>

namespace colourdesk {

class ConditionsBar : public sv::Window {
  public:
    explicit ConditionsBar(sv::Window* parent);

    /// Selects what is in force.
    void Show(evaluation::SheetConditions const& conditions);
    using Window::Show;
    /// Puts what is selected into the conditions.
    void Read(evaluation::SheetConditions& conditions) const;
    void TakeTexts();

    /// Another condition was selected; the sender is a list. Returns the link before.
    sv::Link ChangeConditionHdl(sv::Link const& link);
    /// Another language was selected.
    sv::Link ChangeLanguageHdl(sv::Link const& link) { return language_.ChangeSelectHdl(link); }
    /// Its place in the list of languages.
    [[nodiscard]] unsigned short GetLanguageEntry() const { return language_.GetSelectEntryPos(); }

    void Resize() override;

  private:
    struct Choice {
        sv::FixedText& caption;
        sv::DropDownListBox& list;
        int letters;  // the longest entry
    };
    [[nodiscard]] std::array<Choice, 4> Choices();

    sv::FixedText illuminantCaption_{this};
    sv::DropDownListBox illuminant_{this};
    sv::FixedText observerCaption_{this};
    sv::DropDownListBox observer_{this};
    sv::FixedText densityCaption_{this};
    sv::DropDownListBox density_{this};
    sv::FixedText languageCaption_{this};
    sv::DropDownListBox language_{this};
    std::optional<kv::IllumClass> untabled_;  // a daylight of its own, at the end of the list
};

}  // namespace colourdesk
