#include "KVUtils/Source/colorimetry/MeasuringCondition.h"

namespace kv {

namespace {

/// "filter,white base".
sv::String PhysicalText(PhysicalConditions const& conditions) {
    return sv::String(conditions.GetActualFilter()) + ',' + sv::String(conditions.GetWBase());
}

/// Observers with a text compare by it; all others share the empty text.
ObserverType ByText(ObserverClass const& observer) noexcept {
    ObserverType const type = observer;
    bool const hasText = type == ObserverType::TwoDegrees || type == ObserverType::TenDegrees;
    return hasText ? type : ObserverType::NotSet;
}

}  // namespace

PhysicalConditions::operator sv::String() const { return sv::String("[") + PhysicalText(*this) + ']'; }

bool operator==(PhysicalConditions const& a, PhysicalConditions const& b) noexcept {
    return a.filter_.Name() == b.filter_.Name() && a.whiteBase_.Name() == b.whiteBase_.Name();
}

MeasuringCondition::operator sv::String() const {
    sv::String text("[");
    if (illuminant_ != IllumType::NotSet) text += sv::String(illuminant_) + ',';
    if (observer_ != ObserverType::NotSet) text += sv::String(observer_) + ',';
    if (standard_ != DStdType::NotSet) text += sv::String(standard_) + ',';
    return text + PhysicalText(*this) + ']';
}

bool operator==(MeasuringCondition const& a, MeasuringCondition const& b) noexcept {
    return static_cast<PhysicalConditions const&>(a) == static_cast<PhysicalConditions const&>(b) &&
           a.illuminant_ == b.illuminant_ && ByText(a.observer_) == ByText(b.observer_);
}

}  // namespace kv
