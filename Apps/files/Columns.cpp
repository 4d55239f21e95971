#include "Apps/files/Columns.h"

#include "Apps/files/Numbers.h"
#include "Apps/files/Text.h"

#include <algorithm>
#include <span>

namespace files {

namespace {

using Names = std::vector<std::string>;

/// Words that may surround the wavelength in a column name.
constexpr std::array<std::string_view, 12> SpectralWords = {"SPECTRAL", "SPEC",   "NM",          "DEC",
                                                            "PCT",      "R",      "REFLECTANCE", "WAVELENGTH",
                                                            "WL",       "LAMBDA", "PERCENT",     "REFL"};

bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }
bool IsLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

template <class Condition>
std::string_view TakeWhile(std::string_view& text, Condition condition) {
    auto const end = std::ranges::find_if_not(text, condition);
    auto const taken = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(taken.size());
    return taken;
}

/// Consumes one word, number or separator; returns false if it cannot be part of a spectral name.
bool TakePart(std::string_view& rest, SpectralName& name) {
    char const front = rest.front();
    if (IsDigit(front)) {
        std::string_view const digits =
            TakeWhile(rest, [](char c) { return IsDigit(c) || c == '.' || c == ','; });
        auto const number = ToNumber(digits, digits.find(',') == std::string_view::npos ? '.' : ',');
        bool const isWavelength =
            !name.nm && number && *number >= ShortestWavelength && *number <= LongestWavelength;
        if (isWavelength) name.nm = number;
        return isWavelength;
    }
    if (IsLetter(front)) {
        std::string const word = Key(TakeWhile(rest, IsLetter));
        if (word == "PCT" || word == "PERCENT") name.scale = Scale::Percent;
        if (word == "DEC") name.scale = Scale::Fraction;
        return std::ranges::find(SpectralWords, word) != SpectralWords.end();
    }
    if (front == '%') name.scale = Scale::Percent;
    rest.remove_prefix(1);
    return std::string_view("_- ()[]%").find(front) != std::string_view::npos;
}

template <std::size_t Count>
std::optional<std::size_t> FindName(Names const& names, std::array<std::string_view, Count> const& keys) {
    for (std::string_view const key : keys) {
        auto const found = std::ranges::find(names, key, Key);
        if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
    }
    return std::nullopt;
}

std::optional<std::array<std::size_t, 3>> FindLab(Names const& names, Dialect dialect) {
    auto lightness = FindName(names, std::array<std::string_view, 1>{"LABL"});
    auto a = FindName(names, std::array<std::string_view, 1>{"LABA"});
    auto b = FindName(names, std::array<std::string_view, 1>{"LABB"});
    if (dialect == Dialect::Csv && !lightness && !a && !b) {
        lightness = FindName(names, std::array<std::string_view, 1>{"L"});
        a = FindName(names, std::array<std::string_view, 1>{"A"});
        b = FindName(names, std::array<std::string_view, 1>{"B"});
    }
    if (!lightness || !a || !b) return std::nullopt;
    return std::array{*lightness, *a, *b};
}

void FindSampleNames(Names const& names, Dialect dialect, Columns& columns) {
    columns.name = FindName(names, std::array<std::string_view, 1>{"SAMPLENAME"});
    columns.id = FindName(names, std::array<std::string_view, 1>{"SAMPLEID"});
    if (dialect == Dialect::Cgats) return;
    if (!columns.name) {
        columns.name =
            FindName(names, std::array<std::string_view, 4>{"NAME", "SAMPLE", "PATCH", "PATCHNAME"});
    }
    if (!columns.id) columns.id = FindName(names, std::array<std::string_view, 3>{"ID", "NO", "NUMBER"});
    if (columns.name || columns.id) return;
    // A sheet may give its name column any title, or none, but puts it first.
    auto const first = ToSpectralName(names.front());
    bool const isValue = (first && first->nm) || (columns.lab && columns.lab->front() == 0);
    if (!isValue) columns.name = 0;
}

/// Adds the spectral column or pair at `at`; returns the index of the next column to look at.
std::size_t TakeSpectral(Names const& names, std::size_t at, SpectralName const& name, Columns& columns,
                         Location const& location) {
    auto const enterScale = [&](std::optional<Scale> scale, std::string const& word) {
        if (!scale) return;
        if (columns.scale && columns.scale->scale != *scale) {
            Fail(location,
                 "both fractions and percent in the names " + Excerpt(columns.scale->word) + " and " +
                     Excerpt(word),
                 "one of them");
        }
        if (!columns.scale) columns.scale = StatedScale{*scale, word};
    };
    if (name.nm) {
        columns.spectral.push_back({*name.nm, at});
        enterScale(name.scale, names[at]);
        return at + 1;
    }
    if (Key(names[at]) != "SPECTRALNM") return at + 1;
    auto const value = at + 1 < names.size() ? ToSpectralName(names[at + 1]) : std::nullopt;
    if (!value || value->nm || !value->scale) {
        Fail(location, Excerpt(names[at]) + " alone in column " + std::to_string(at + 1),
             "SPECTRAL_DEC or SPECTRAL_PCT after it");
    }
    columns.pairs.push_back({at, at + 1});
    enterScale(value->scale, names[at + 1]);
    return at + 2;
}

}  // namespace

std::optional<SpectralName> ToSpectralName(std::string_view name) {
    if (name.empty()) return std::nullopt;
    SpectralName spectral;
    while (!name.empty()) {
        if (!TakePart(name, spectral)) return std::nullopt;
    }
    return spectral;
}

bool HasSpectralNames(std::vector<std::string> const& names) {
    return std::ranges::any_of(names, [](std::string const& text) {
        auto const name = ToSpectralName(text);
        return name && (name->nm || Key(text) == "SPECTRALNM");
    });
}

Columns FindColumns(std::vector<std::string> const& names, Dialect dialect, Location const& location) {
    Columns columns;
    for (std::size_t at = 0; at < names.size();) {
        auto const name = ToSpectralName(names[at]);
        at = name ? TakeSpectral(names, at, *name, columns, location) : at + 1;
    }
    if (columns.spectral.empty() && columns.pairs.empty()) {
        Fail(location, "no spectral columns among " + std::to_string(names.size()),
             dialect == Dialect::Cgats ? "fields such as SPECTRAL_NM380 or SPECTRAL_NM with SPECTRAL_DEC"
                                       : "wavelengths in the head");
    }
    if (!columns.spectral.empty() && !columns.pairs.empty()) {
        Fail(location, "both wavelengths in names and SPECTRAL_NM columns", "one of them");
    }
    columns.lab = FindLab(names, dialect);
    FindSampleNames(names, dialect, columns);
    return columns;
}

}  // namespace files
