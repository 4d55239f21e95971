// The five selectors that name the conditions of a colour value: illuminant, observer, density standard,
// instrument filter and white base. Each is a plain value with a text form. Texts are a stored vocabulary;
// some values are read from another text than the one they are written as, because files hold one form and
// users see the other. In each selector -1 means that it is not set.
//
// A constructor from text falls back to a fixed value for text that it does not know. `Parse` reports such
// text, and also reads what users and other programs write: names in any case, with or without blanks,
// hyphens and underscores; the written forms as well as the stored ones.
#pragma once

#include "SV/core/ForeignMacros.h"
#include "SV/core/String.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace kv {

namespace detail {

/// What four of the selectors share: one value of an enumeration, converted from and to it.
template <class Type>
class Selector {
  public:
    constexpr Selector(Type type) noexcept : type_(type) {}
    constexpr operator Type() const noexcept { return type_; }

    friend constexpr bool operator==(Selector const&, Selector const&) noexcept = default;
    friend constexpr bool operator==(Selector const& a, Type b) noexcept { return Type(a) == b; }

  protected:
    Type type_;
};

}  // namespace detail

/// An illuminant: CIE A, C, D65, D50; numbered ones without a table; eight slots for daylight by colour
/// temperature; the CIE fluorescent lamps; weights supplied by the caller.
enum class IllumType : int {
    NotSet = -1,
    A = 0,
    C = 1,
    D65 = 2,
    D50 = 3,
    Il1 = 8,
    Il2 = 9,
    Il3 = 10,
    Il4 = 11,
    Dxx1 = 16,
    Dxx2 = 17,
    Dxx3 = 18,
    Dxx4 = 19,
    Dxx5 = 20,
    Dxx6 = 21,
    Dxx7 = 22,
    Dxx8 = 23,
    F1 = 24,
    F2 = 25,
    F3 = 26,
    F4 = 27,
    F5 = 28,
    F6 = 29,
    F7 = 30,
    F8 = 31,
    F9 = 32,
    F10 = 33,
    F11 = 34,
    F12 = 35,
    Custom = 100
};

/// Whether the illuminant is a daylight computed from a day number.
[[nodiscard]] constexpr bool IsNumberedDaylight(IllumType type) noexcept {
    return type >= IllumType::Dxx1 && type <= IllumType::Dxx8;
}

class IllumClass {
  public:
    /// The day number of types that use none.
    static constexpr short UnusedDayNumber = 65;

    /// `dayNumber` is the nominal colour temperature of a daylight slot in hundreds of kelvin (65: 6500 K).
    constexpr IllumClass(IllumType type, short dayNumber = UnusedDayNumber) noexcept
        : type_(type), dayNumber_(dayNumber) {}
    /// Reads the stored form of the type, exactly; any other text is F12, a written daylight ("D55")
    /// included. The day number is 65: a daylight slot ("Dxx1" to "Dxx8") still needs its number.
    IllumClass(sv::String const& text) noexcept;

    /// The day numbers that `Parse` accepts: 4000 K to 25000 K, the range of the CIE formula.
    static constexpr short FirstDayNumber = 40;
    static constexpr short LastDayNumber = 250;
    /// The illuminant of this name: "D50", "f11", "Custom"; a slot as the constructor reads it; "D40" to
    /// "D250" for a daylight by number, in slot 1, except D50 and D65, which are the tabulated ones. Empty
    /// for other text.
    [[nodiscard]] static std::optional<IllumClass> Parse(std::string_view text) noexcept;

    constexpr operator IllumType() const noexcept { return type_; }
    /// The day number.
    constexpr operator short() const noexcept { return dayNumber_; }
    /// The written form: a daylight by its number ("D55"), an unset illuminant empty.
    operator sv::String() const;

    /// The illuminant in one word of 32 bits: the day number shifted left by 16, plus the type.
    /// The sum borrows for an unset illuminant: it comes back unset, with a day number one lower.
    [[nodiscard]] constexpr unsigned long GetCode() const noexcept {
        return (static_cast<std::uint32_t>(dayNumber_) << 16U) + static_cast<std::uint32_t>(type_);
    }
    /// Takes the day number from the upper and the type, with its sign, from the lower 16 bits.
    constexpr void SetCode(unsigned long code) noexcept {
        type_ = static_cast<IllumType>(static_cast<std::int16_t>(code & 0xFFFFU));
        dayNumber_ = static_cast<std::int16_t>((code >> 16U) & 0xFFFFU);
    }

    /// Two daylights are equal by number, in whatever slots they are; all others by type alone.
    friend constexpr bool operator==(IllumClass const& a, IllumClass const& b) noexcept {
        if (IsNumberedDaylight(a.type_)) return IsNumberedDaylight(b.type_) && a.dayNumber_ == b.dayNumber_;
        return a.type_ == b.type_;
    }
    friend constexpr bool operator==(IllumClass const& a, IllumType b) noexcept { return a.type_ == b; }

  private:
    IllumType type_;
    short dayNumber_;
};

/// The standard colorimetric observers (CIE 15).
enum class ObserverType : int { NotSet = -1, TwoDegrees = 0, TenDegrees = 1, ClientSpecific = 2 };

class ObserverClass : public detail::Selector<ObserverType> {
  public:
    using Selector::Selector;
    /// "10" is the 10 degree observer and every other text the 2 degree one, the written "10°" included:
    /// files hold the bare number.
    ObserverClass(sv::String const& text) noexcept;
    /// "2" or "10", bare or with a degree sign, "deg", "degree" or "degrees"; "1931" or "1964", also after
    /// "CIE". Empty for other text.
    [[nodiscard]] static std::optional<ObserverClass> Parse(std::string_view text) noexcept;

    /// "2" or "10" with the degree sign of the language's code page; empty for all others.
    operator sv::String() const;
};

/// Density standards. ANSI M and DS1 can be selected, but only their visual channel has a filter.
enum class DStdType : int {
    NotSet = -1,
    AnsiA = 0,
    AnsiT = 1,
    Din = 2,
    DinNb = 3,
    Spi = 4,
    AnsiM = 6,
    Ds1 = 8
};

class DStdClass : public detail::Selector<DStdType> {
  public:
    using Selector::Selector;
    /// Reads the stored key ("ANSIT"), exactly; any other text is DIN, the written form with its blank ("ANSI
    /// T") included.
    DStdClass(sv::String const& text) noexcept;
    /// The standard of this name: "ANSIT", "ansi t", "DIN NB". Empty for other text.
    [[nodiscard]] static std::optional<DStdClass> Parse(std::string_view text) noexcept;

    /// The form for display ("ANSI T"); empty for values without a name.
    operator sv::String() const;
};

/// The physical filter in the instrument's light path, or its mode of measurement.
enum class ValueFilterType : int {
    NotSet = -1,
    Unknown = 0,
    None = 1,
    Polarisation = 2,
    D65 = 3,
    Repro = 4,
    Uv = 5,
    Custom = 6,
    D8i = 7,
    D8e = 8,
    D8t = 9
};

class ActualFilterClass : public detail::Selector<ValueFilterType> {
  public:
    using Selector::Selector;
    /// Reads the name, exactly; any other text is "no filter".
    ActualFilterClass(sv::String const& text) noexcept;
    /// The filter of this name: "Pol", "uv"; "???" is the unknown one. Empty for other text.
    [[nodiscard]] static std::optional<ActualFilterClass> Parse(std::string_view text) noexcept;

    /// The filter; one that is not set counts as "no filter".
    constexpr operator ValueFilterType() const noexcept {
        return type_ == ValueFilterType::NotSet ? ValueFilterType::None : type_;
    }
    friend constexpr bool operator==(ActualFilterClass const& a, ActualFilterClass const& b) noexcept {
        return a.type_ == b.type_;
    }
    friend constexpr bool operator==(ActualFilterClass const& a, ValueFilterType b) noexcept {
        return ValueFilterType(a) == b;
    }
    /// Empty for values without a name, the unset one among them.
    operator sv::String() const;
    /// The same text without a copy.
    [[nodiscard]] std::string_view Name() const noexcept;
};

/// What a measurement is relative to.
enum class StoredWBaseType : int { NotSet = -1, PaperWhite = 0, Absolute = 1 };

class WBaseClass : public detail::Selector<StoredWBaseType> {
  public:
    using Selector::Selector;
    /// "Pap" is relative to the paper; every other text is absolute.
    WBaseClass(sv::String const& text) noexcept;
    /// The white base of this name: "Pap", "abs". Empty for other text.
    [[nodiscard]] static std::optional<WBaseClass> Parse(std::string_view text) noexcept;

    /// Empty for values without a name.
    operator sv::String() const;
    /// The same text without a copy.
    [[nodiscard]] std::string_view Name() const noexcept;
};

}  // namespace kv
