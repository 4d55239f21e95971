#include "KVUtils/Source/controls/NumEditor.h"

#include "KVUtils/Source/controls/detail/NumberLadder.h"
#include "KVUtils/Source/controls/detail/NumberText.h"
#include "SV/ui/Styles.h"

#include <string>
#include <utility>

namespace kv {

namespace {

constexpr unsigned short LongestText = 38;
constexpr double DefaultLimit = 1000000;

// Pixels.
constexpr int Frame = 10;
constexpr int SpinWidth = 15;
constexpr int UnitGap = 3;

sv::Point RightOf(sv::Window const& window, int gap) {
    return window.GetPosPixel() + sv::Point(window.GetSizePixel().Width() + gap, 0);
}

}  // namespace

NumEditor::NumEditor(sv::Window* parent, sv::Point pos, double value, double minimum, double maximum,
                     int digits)
    : Edit(parent, sv::StyleOfEdit),
      spin_(parent, sv::StyleOfSpinButton),
      value_(value),
      minimum_(minimum),
      maximum_(maximum),
      restore_(value),
      unit_(parent, sv::StyleOfText) {
    initEditor(pos, digits);
}

NumEditor::NumEditor(sv::Window* parent, sv::Point pos, int digits)
    : NumEditor(parent, pos, 0, -DefaultLimit, DefaultLimit, digits) {}

void NumEditor::initEditor(sv::Point pos, int digits) {
    ChangeMaxTextLen(LongestText);
    sv::Size const zeros = SizeOfDigits(digits);
    Edit::ChangePosPixel(pos);
    ChangeSizePixel({zeros.Width() + Frame, zeros.Height() + Frame});
    Edit::Show(true);
    spin_.SetPosSizePixel(RightOf(*this, 0), {SpinWidth, GetSizePixel().Height()});
    spin_.Show();
    spin_.ChangeUpHdl(sv::Link::To<&NumEditor::UpHdl>(*this));
    spin_.ChangeDownHdl(sv::Link::To<&NumEditor::DownHdl>(*this));
    unit_.ChangePosPixel(RightOf(spin_, UnitGap));
    if (GetParent() != nullptr) unit_.ChangeBackgroundBrush(GetParent()->GetBackgroundBrush());
    ChangeLoseFocusHdl(sv::Link::To<&NumEditor::LooseFocusHdl>(*this));
    ChangeModifyHdl(sv::Link::To<&NumEditor::ModifyHdl>(*this));
    NumEditor::showAktValue();
}

sv::Size NumEditor::SizeOfDigits(int digits) const {
    return GetTextSize(std::string(static_cast<std::size_t>(digits > 0 ? digits : 0), '0'));
}

void NumEditor::getRange(double& min, double& max) const noexcept {
    min = minimum_;
    max = maximum_;
}

void NumEditor::setValue(double value) {
    if (value == value_) return;
    value_ = restore_ = value;
    showAktValue();
}

void NumEditor::setRange(double minimum, double maximum) noexcept {
    minimum_ = minimum;
    maximum_ = maximum;
}

void NumEditor::setUnit(sv::String const& unit) {
    unit_.SetText(unit);
    unit_.ChangeSizePixel(unit_.GetTextSize(unit));
    unit_.Show();
}

sv::Link NumEditor::ChangeValueChangedHdl(sv::Link const& link) noexcept {
    return std::exchange(valueChanged_, link);
}

sv::Point NumEditor::ChangePosPixel(sv::Point position) {
    sv::Point const before = Edit::ChangePosPixel(position);
    for (sv::Window* const part : std::initializer_list<sv::Window*>{&spin_, &unit_}) {
        part->ChangePosPixel(part->GetPosPixel() + (position - before));
    }
    return before;
}

void NumEditor::Show(bool visible) {
    Edit::Show(visible);
    spin_.Show(visible);
    if (!visible || !unit_.GetText().IsEmpty()) unit_.Show(visible);
}

void NumEditor::Enable(bool enable) {
    Edit::Enable(enable);
    spin_.Enable(enable);
}

void NumEditor::ToTop() {
    Edit::ToTop();
    spin_.ToTop();
}

sv::String NumEditor::myString(double value) const { return detail::ShownNumber(value, resolution_); }

void NumEditor::showAktValue() { SetText(myString(value_)); }

long NumEditor::ModifyHdl(Edit* /*sender*/) {
    *isModified_ = true;
    if (auto const number = detail::TypedNumber(detail::ReadNumber(GetText()), minimum_, maximum_)) {
        value_ = *number;
        valueChanged();
    }
    return 0;
}

long NumEditor::LooseFocusHdl(Edit* /*sender*/) {
    if (!*isModified_) return 0;
    value_ = detail::LeftNumber(detail::ReadNumber(GetText()), minimum_, maximum_, restore_);
    showAktValue();
    // The link may destroy the editor.
    std::shared_ptr<bool> const isModified = isModified_;
    valueChanged();
    *isModified = false;
    return 0;
}

void NumEditor::ChangeNumber(unsigned char up) {
    auto const direction = up != 0 ? detail::StepDirection::Up : detail::StepDirection::Down;
    double const next = isInteger_ ? detail::NextInteger(value_, direction)
                                   : detail::NextOnLadder(value_, direction, minimalStep_);
    value_ = detail::ClampStep(next, minimum_, maximum_);
    showAktValue();
    valueChanged();
}

void NumEditor::WasSpun(bool up) {
    if (!isStopped_) ChangeNumber(up ? 1 : 0);
}

long NumEditor::UpHdl(sv::SpinButton* /*sender*/) {
    WasSpun(true);
    return 0;
}

long NumEditor::DownHdl(sv::SpinButton* /*sender*/) {
    WasSpun(false);
    return 0;
}

}  // namespace kv
