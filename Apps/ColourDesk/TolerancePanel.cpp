#include "Apps/ColourDesk/TolerancePanel.h"

#include "Apps/ColourDesk/DeskLayout.h"
#include "Apps/ColourDesk/DeskTexts.h"

#include <algorithm>

namespace colourdesk {

namespace {

// Pixels.
constexpr int Gap = 8;
constexpr int ButtonPadding = 24;
constexpr int SpinWidth = 15;

constexpr int LimitDigits = 7;
constexpr double LargestLimit = 100;
constexpr double SmallestLimit = 0.01;
constexpr int NameLetters = 26;

constexpr std::array<Label, 4> LimitLabels = {Label::Limit, Label::LimitOfLightness, Label::LimitOfChroma,
                                              Label::LimitOfHue};

kv::NumEditor MakeLimit(sv::Window* parent) { return {parent, {}, 0, 0, LargestLimit, LimitDigits}; }

sv::String NameOr(sv::String const& name) { return name.IsEmpty() ? TextOf(Label::None) : name; }

}  // namespace

TolerancePanel::TolerancePanel(sv::Window* parent)
    : Window(parent),
      limitCaptions_{sv::FixedText(this), sv::FixedText(this), sv::FixedText(this), sv::FixedText(this)},
      limits_{MakeLimit(this), MakeLimit(this), MakeLimit(this), MakeLimit(this)} {
    ChangeBackgroundBrush(parent->GetBackgroundBrush());
    for (int i = 0; i < evaluation::FormulaCount; ++i) {
        formula_.InsertEntry(std::string(evaluation::NameOf(static_cast<evaluation::DifferenceFormula>(i))));
    }
    for (kv::NumEditor& limit : limits_) limit.ChangeMinimalStep(SmallestLimit);
    for (sv::Window* const child : GetChildren()) {
        if (dynamic_cast<sv::FixedText*>(child) != nullptr)
            child->ChangeBackgroundBrush(GetBackgroundBrush());
        child->Show();
    }
    UpdateTexts();
}

void TolerancePanel::UpdateTexts() {
    useAsStandard_.SetText(TextOf(Label::UseAsStandard));
    useAsPaper_.SetText(TextOf(Label::UseAsPaper));
    formulaCaption_.SetText(TextOf(Label::Formula));
    formula_.SetAccessibleName(TextOf(Label::Formula));
    for (std::size_t i = 0; i < LimitCount; ++i) {
        limitCaptions_[i].SetText(TextOf(LimitLabels[i]));
        limits_[i].SetAccessibleName(TextOf(LimitLabels[i]));
    }
    TolerancePanel::Resize();
}

int TolerancePanel::CaptionWidth() const {
    int width = GetTextSize(formulaCaption_.GetText()).Width();
    for (sv::FixedText const& caption : limitCaptions_) {
        width = std::max<int>(width, GetTextSize(caption.GetText()).Width());
    }
    return width;
}

int TolerancePanel::GetWidth() const {
    int const limit = limits_[0].GetSizePixel().Width() + SpinWidth;
    int const button =
        std::max(GetTextSize(useAsStandard_.GetText()).Width(), GetTextSize(useAsPaper_.GetText()).Width());
    return std::max(
        {CaptionWidth() + Gap + limit, button + ButtonPadding, NameLetters * GetTextSize("0").Width()});
}

void TolerancePanel::Resize() {
    int const line = GetTextSize("0").Height();
    int const field = FieldHeight(line);
    int const width = GetSizePixel().Width();
    int const captions = CaptionWidth() + Gap;
    int y = 0;
    auto const place = [&](sv::Window& window, int height) {
        window.SetPosSizePixel({0, y}, {width, height});
        y += height + Gap;
    };
    place(standard_, line);
    place(useAsStandard_, field);
    place(paper_, line);
    place(useAsPaper_, field);
    formulaCaption_.SetPosSizePixel({0, y}, {captions, field});
    formula_.SetPosSizePixel({captions, y}, {std::max(width - captions, 0), field});
    y += field + Gap;
    for (std::size_t i = 0; i < LimitCount; ++i) {
        limitCaptions_[i].SetPosSizePixel({0, y}, {captions, field});
        limits_[i].ChangePosPixel({captions, y});
        y += field + Gap;
    }
}

void TolerancePanel::Show(evaluation::Tolerances const& tolerances, sv::String const& standard,
                          sv::String const& paper) {
    standard_.SetText(Format(TextOf(Label::Standard), {NameOr(standard)}));
    paper_.SetText(Format(TextOf(Label::PaperWhite), {NameOr(paper)}));
    formula_.SelectEntryPos(static_cast<unsigned short>(tolerances.formula));
    limits_[0].setValue(tolerances.difference);
    for (std::size_t i = 0; i < tolerances.components.size(); ++i) {
        limits_[i + 1].setValue(tolerances.components[i]);
    }
}

void TolerancePanel::Read(evaluation::Tolerances& tolerances) const {
    int const formula = formula_.GetSelectEntryPos();
    if (formula < evaluation::FormulaCount)
        tolerances.formula = static_cast<evaluation::DifferenceFormula>(formula);
    tolerances.difference = limits_[0].getValue();
    for (std::size_t i = 0; i < tolerances.components.size(); ++i) {
        tolerances.components[i] = limits_[i + 1].getValue();
    }
}

void TolerancePanel::EnableUse(bool enable) {
    useAsStandard_.Enable(enable);
    useAsPaper_.Enable(enable);
}

sv::Link TolerancePanel::ChangeToleranceHdl(sv::Link const& link) {
    for (kv::NumEditor& limit : limits_) limit.ChangeValueChangedHdl(link);
    return formula_.ChangeSelectHdl(link);
}

}  // namespace colourdesk
