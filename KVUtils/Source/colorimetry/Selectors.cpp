#include "KVUtils/Source/colorimetry/Selectors.h"

#include "KVUtils/Source/colorimetry/detail/SelectorTexts.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

namespace kv {

namespace {

using Texts = std::span<detail::SelectorText const>;

/// The value that reads this text exactly, or the fallback.
template <class Type>
Type Read(Texts texts, std::string_view text, Type fallback) noexcept {
    if (text.empty()) return fallback;
    auto const row = std::ranges::find(texts, text, &detail::SelectorText::read);
    return row == texts.end() ? fallback : static_cast<Type>(row->value);
}

/// The text that a value is written as; empty where it has none.
template <class Type>
std::string_view Written(Texts texts, Type type) noexcept {
    auto const row = std::ranges::find(texts, static_cast<int>(type), &detail::SelectorText::value);
    return row == texts.end() ? std::string_view() : row->written;
}

constexpr char Upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// Skips what may separate the parts of a name.
void SkipSeparators(std::string_view& text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(" -_"), text.size()));
}

std::string_view Trimmed(std::string_view text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Takes `name` from the front of `text`, in any case, with separators anywhere but between two digits;
/// whether it was there.
bool Take(std::string_view& text, std::string_view name) noexcept {
    std::string_view rest = text;
    char before = '\0';
    for (char const c : name) {
        if (c == ' ') continue;
        if (before != '\0' && !(IsDigit(before) && IsDigit(c))) SkipSeparators(rest);
        if (rest.empty() || Upper(rest.front()) != Upper(c)) return false;
        rest.remove_prefix(1);
        before = c;
    }
    text = rest;
    return true;
}

bool IsNamed(std::string_view text, std::string_view name) noexcept {
    return !name.empty() && Take(text, name) && text.empty();
}

/// The value with this text in either form.
template <class Type>
std::optional<Type> Named(Texts texts, std::string_view text) noexcept {
    auto const row = std::ranges::find_if(texts, [text](detail::SelectorText const& candidate) {
        return IsNamed(text, candidate.read) || IsNamed(text, candidate.written);
    });
    return row == texts.end() ? std::nullopt : std::optional(static_cast<Type>(row->value));
}

constexpr std::string_view WesternDegree = "\xB0";
constexpr std::string_view JapaneseDegree = "\xDF";
constexpr std::string_view ChineseDegree = "\xA1\x43";
constexpr std::string_view Utf8Degree = "\xC2\xB0";

/// The degree sign in the code page of the language.
std::string_view DegreeSign() noexcept {
    if (Language::IsJapanese() != 0) return JapaneseDegree;
    if (Language::IsChinese() != 0) return ChineseDegree;
    return WesternDegree;
}

bool IsAngle(std::string_view text, std::string_view degrees) noexcept {
    if (!Take(text, degrees)) return false;
    if (text.empty()) return true;
    SkipSeparators(text);
    constexpr std::array units = {WesternDegree,
                                  JapaneseDegree,
                                  ChineseDegree,
                                  Utf8Degree,
                                  std::string_view("deg"),
                                  std::string_view("degree"),
                                  std::string_view("degrees")};
    return std::ranges::any_of(units, [text](auto unit) { return IsNamed(text, unit); });
}

bool IsYear(std::string_view text, std::string_view year) noexcept {
    if (Take(text, "CIE")) SkipSeparators(text);
    return IsNamed(text, year);
}

}  // namespace

IllumClass::IllumClass(sv::String const& text) noexcept
    : IllumClass(Read(detail::IllumTexts, text.View(), IllumType::F12)) {}

std::optional<IllumClass> IllumClass::Parse(std::string_view text) noexcept {
    text = Trimmed(text);
    if (auto const type = Named<IllumType>(detail::IllumTexts, text)) return IllumClass(*type);
    if (!Take(text, "D")) return std::nullopt;
    SkipSeparators(text);
    if (text.empty() || text.front() == '0') return std::nullopt;
    short number = 0;
    char const* const last = text.data() + text.size();
    auto const [end, error] = std::from_chars(text.data(), last, number);
    bool const isNumber = error == std::errc() && end == last;
    if (!isNumber || number < FirstDayNumber || number > LastDayNumber) return std::nullopt;
    return IllumClass(IllumType::Dxx1, number);
}

IllumClass::operator sv::String() const {
    if (IsNumberedDaylight(type_)) return sv::String("D") + sv::String(dayNumber_);
    return Written(detail::IllumTexts, type_);
}

ObserverClass::ObserverClass(sv::String const& text) noexcept
    : Selector(text == "10" ? ObserverType::TenDegrees : ObserverType::TwoDegrees) {}

std::optional<ObserverClass> ObserverClass::Parse(std::string_view text) noexcept {
    text = Trimmed(text);
    if (IsAngle(text, "2") || IsYear(text, "1931")) return ObserverType::TwoDegrees;
    if (IsAngle(text, "10") || IsYear(text, "1964")) return ObserverType::TenDegrees;
    return std::nullopt;
}

ObserverClass::operator sv::String() const {
    if (type_ != ObserverType::TwoDegrees && type_ != ObserverType::TenDegrees) return {};
    return Text::ConvertText(sv::String(type_ == ObserverType::TwoDegrees ? "2" : "10") + DegreeSign());
}

DStdClass::DStdClass(sv::String const& text) noexcept
    : Selector(Read(detail::DStdTexts, text.View(), DStdType::Din)) {}

std::optional<DStdClass> DStdClass::Parse(std::string_view text) noexcept {
    return Named<DStdType>(detail::DStdTexts, Trimmed(text));
}

DStdClass::operator sv::String() const { return Written(detail::DStdTexts, type_); }

ActualFilterClass::ActualFilterClass(sv::String const& text) noexcept
    : Selector(Read(detail::FilterTexts, text.View(), ValueFilterType::None)) {}

std::optional<ActualFilterClass> ActualFilterClass::Parse(std::string_view text) noexcept {
    return Named<ValueFilterType>(detail::FilterTexts, Trimmed(text));
}

std::string_view ActualFilterClass::Name() const noexcept { return Written(detail::FilterTexts, type_); }

ActualFilterClass::operator sv::String() const { return Name(); }

WBaseClass::WBaseClass(sv::String const& text) noexcept
    : Selector(Read(detail::WBaseTexts, text.View(), StoredWBaseType::Absolute)) {}

std::optional<WBaseClass> WBaseClass::Parse(std::string_view text) noexcept {
    return Named<StoredWBaseType>(detail::WBaseTexts, Trimmed(text));
}

std::string_view WBaseClass::Name() const noexcept { return Written(detail::WBaseTexts, type_); }

WBaseClass::operator sv::String() const { return Name(); }

}  // namespace kv
