#include "Apps/ColourDesk/ConditionsBar.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/evaluation/Conditions.h"
#include "KVUtils/Source/frame/Language.h"

#include <algorithm>
#include <span>

namespace colourdesk {

namespace {

// Pixels.
constexpr int CaptionGap = 6;
constexpr int ChoiceGap = 18;
constexpr int ArrowWidth = 34;

/// `End` when the value is not in the list.
template <class Type, class Class>
int PlaceOf(std::span<Type const> types, Class const& value) {
    auto const place = std::ranges::find_if(types, [&](Type type) { return value == type; });
    return place == types.end() ? sv::ListBox::End : static_cast<int>(place - types.begin());
}

}  // namespace

ConditionsBar::ConditionsBar(sv::Window* parent) : Window(parent) {
    ChangeBackgroundBrush(parent->GetBackgroundBrush());
    for (Choice const& choice : Choices()) {
        choice.caption.ChangeBackgroundBrush(GetBackgroundBrush());
        choice.caption.Show();
        choice.list.Show();
    }
    FillIlluminants();
    for (kv::DStdType const type : evaluation::DensityStandards()) {
        density_.InsertEntry(evaluation::NameOf(kv::DStdClass(type)));
    }
    kv::Language::InitListBox(language_);
    UpdateTexts();
}

std::array<ConditionsBar::Choice, 4> ConditionsBar::Choices() {
    return {{{illuminantCaption_, illuminant_, 5},
             {observerCaption_, observer_, 9},
             {densityCaption_, density_, 7},
             {languageCaption_, language_, 10}}};
}

void ConditionsBar::FillIlluminants() {
    illuminant_.Clear();
    for (kv::IllumType const type : evaluation::TabledIlluminants()) {
        illuminant_.InsertEntry(evaluation::NameOf(kv::IllumClass(type)));
    }
    if (untabled_) illuminant_.InsertEntry(evaluation::NameOf(*untabled_));
}

void ConditionsBar::UpdateTexts() {
    int const observer = observer_.GetSelectEntryPos();
    observer_.Clear();
    observer_.InsertEntry(TextOf(Label::TwoDegrees));
    observer_.InsertEntry(TextOf(Label::TenDegrees));
    observer_.SelectEntryPos(observer);
    auto const name = [](sv::FixedText& caption, sv::Window& list, Label label) {
        caption.SetText(TextOf(label));
        list.SetAccessibleName(TextOf(label));
    };
    name(illuminantCaption_, illuminant_, Label::Illuminant);
    name(observerCaption_, observer_, Label::Observer);
    name(densityCaption_, density_, Label::Density);
    name(languageCaption_, language_, Label::Language);
    ConditionsBar::Resize();
}

void ConditionsBar::Resize() {
    int x = 0;
    int const height = GetSizePixel().Height();
    for (Choice const& choice : Choices()) {
        int const caption = choice.caption.GetTextSize(choice.caption.GetText()).Width();
        choice.caption.SetPosSizePixel({x, 0}, {caption, height});
        x += caption + CaptionGap;
        int const list = choice.letters * choice.list.GetTextSize("0").Width() + ArrowWidth;
        choice.list.SetPosSizePixel({x, 0}, {list, height});
        x += list + ChoiceGap;
    }
}

void ConditionsBar::Show(evaluation::SheetConditions const& conditions) {
    auto const illuminants = evaluation::TabledIlluminants();
    int place = PlaceOf(illuminants, conditions.illuminant);
    if (place == sv::ListBox::End) {
        place = static_cast<int>(illuminants.size());
        untabled_ = conditions.illuminant;
        FillIlluminants();
    }
    illuminant_.SelectEntryPos(place);
    observer_.SelectEntryPos(conditions.observer == kv::ObserverType::TenDegrees ? 1 : 0);
    density_.SelectEntryPos(PlaceOf(evaluation::DensityStandards(), conditions.densityStandard));
}

void ConditionsBar::Read(evaluation::SheetConditions& conditions) const {
    auto const illuminants = evaluation::TabledIlluminants();
    auto const standards = evaluation::DensityStandards();
    std::size_t const illuminant = illuminant_.GetSelectEntryPos();
    if (illuminant < illuminants.size()) {
        conditions.illuminant = kv::IllumClass(illuminants[illuminant]);
    } else if (untabled_) {
        conditions.illuminant = *untabled_;
    }
    conditions.observer = kv::ObserverClass(
        observer_.GetSelectEntryPos() == 1 ? kv::ObserverType::TenDegrees : kv::ObserverType::TwoDegrees);
    std::size_t const density = density_.GetSelectEntryPos();
    if (density < standards.size()) conditions.densityStandard = kv::DStdClass(standards[density]);
}

sv::Link ConditionsBar::ChangeConditionHdl(sv::Link const& link) {
    observer_.ChangeSelectHdl(link);
    density_.ChangeSelectHdl(link);
    return illuminant_.ChangeSelectHdl(link);
}

}  // namespace colourdesk
