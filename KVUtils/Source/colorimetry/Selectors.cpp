#include "KVUtils/Source/colorimetry/Selectors.h"

#include "KVUtils/Source/colorimetry/detail/SelectorTexts.h"
#include "KVUtils/Source/frame/Language.h"

#include <algorithm>
#include <span>

namespace kv {

namespace {

/// The value that reads this text, or the fallback.
template <class Type>
Type Read(std::span<detail::SelectorText const> texts, std::string_view text, Type fallback) noexcept {
    if (text.empty()) return fallback;
    auto const row = std::ranges::find(texts, text, &detail::SelectorText::read);
    return row == texts.end() ? fallback : static_cast<Type>(row->value);
}

/// The text that a value is written as; empty where it has none.
template <class Type>
std::string_view Written(std::span<detail::SelectorText const> texts, Type type) noexcept {
    auto const row = std::ranges::find(texts, static_cast<int>(type), &detail::SelectorText::value);
    return row == texts.end() ? std::string_view() : row->written;
}

/// The degree sign in the code page of the language.
char const* DegreeSign() noexcept {
    if (Language::IsJapanese() != 0) return "\xDF";
    if (Language::IsChinese() != 0) return "\xA1\x43";
    return "\xB0";
}

}  // namespace

IllumClass::IllumClass(sv::String const& text) noexcept
    : IllumClass(Read(detail::IllumTexts, text.View(), IllumType::F12)) {}

IllumClass::operator sv::String() const {
    if (IsNumberedDaylight(type_)) return sv::String("D") + sv::String(dayNumber_);
    return Written(detail::IllumTexts, type_);
}

ObserverClass::ObserverClass(sv::String const& text) noexcept
    : type_(text == "10" ? ObserverType::TenDegrees : ObserverType::TwoDegrees) {}

ObserverClass::operator sv::String() const {
    if (type_ == ObserverType::TwoDegrees) return sv::String("2") + DegreeSign();
    if (type_ == ObserverType::TenDegrees) return sv::String("10") + DegreeSign();
    return {};
}

DStdClass::DStdClass(sv::String const& text) noexcept
    : type_(Read(detail::DStdTexts, text.View(), DStdType::Din)) {}

DStdClass::operator sv::String() const { return Written(detail::DStdTexts, type_); }

ActualFilterClass::ActualFilterClass(sv::String const& text) noexcept
    : type_(Read(detail::FilterTexts, text.View(), ValueFilterType::None)) {}

std::string_view ActualFilterClass::Name() const noexcept { return Written(detail::FilterTexts, type_); }

ActualFilterClass::operator sv::String() const { return Name(); }

WBaseClass::WBaseClass(sv::String const& text) noexcept
    : type_(Read(detail::WBaseTexts, text.View(), StoredWBaseType::Absolute)) {}

std::string_view WBaseClass::Name() const noexcept { return Written(detail::WBaseTexts, type_); }

WBaseClass::operator sv::String() const { return Name(); }

}  // namespace kv
