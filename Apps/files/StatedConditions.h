// StatedConditions: the conditions of measurement that a file states in its keywords.
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace files {

/// The conditions stated by a file; empty where it states none.
struct StatedConditions {
    std::optional<kv::IllumClass> illuminant;  // a daylight other than D50 and D65 in slot Dxx1
    std::optional<kv::ObserverClass> observer;
    std::string measurementMode;  // "M0" to "M3" (ISO 13655)
    std::string filter;           // the physical filter, as written ("Pol", "UV-cut", ...)
    std::string whiteBase;        // as written ("Absolute", "Paper")
};

/// Returns whether the library has a spectrum for the illuminant.
[[nodiscard]] bool HasSpectrum(kv::IllumClass const& illuminant) noexcept;
/// Parses an illuminant that has a spectrum: "A", "C", "D50", "D65", "F1" to "F12", "D40" to "D250", in any
/// case.
[[nodiscard]] std::optional<kv::IllumClass> ToIlluminant(std::string_view word);
/// Finds the field of 2 or 10 degrees in texts such as "2 degree", "10" or "CIE 1964".
[[nodiscard]] std::optional<kv::ObserverClass> ToObserver(std::string_view text);

/// Collects the conditions from keyword lines in any order. A weighting function takes precedence over a
/// keyword of its own, and that over the description of the measuring source. The lamp of the instrument (a
/// source "A", or an illumination without an observer) is not the illuminant of the computation.
class ConditionReader {
  public:
    /// Reads one line: its keyword and its value without quotes. Ignores other keywords.
    void Take(std::string_view keyword, std::string_view value);

    [[nodiscard]] StatedConditions Stated() const;
    /// Returns a line for each statement that contradicts another or is unknown.
    [[nodiscard]] std::vector<std::string> Notes() const;

  private:
    enum class Quantity : int { Illuminant, Observer, Mode };
    enum class Rank : int { Source, Keyword, Weighting };

    struct Statement {
        Quantity quantity;
        Rank rank;
        std::string text;
        std::optional<unsigned long> code;  // of the value; none if it is unknown
    };

    void TakeWeighting(std::string_view value);
    void TakeSource(std::string_view value);
    void TakeMode(std::string_view text, Rank rank);
    void Add(Quantity quantity, std::string_view text, Rank rank);
    /// Returns the first statement of the highest rank; null if no value is known.
    [[nodiscard]] Statement const* Best(Quantity quantity) const;

    std::vector<Statement> statements_;
    std::string filter_;
    std::string whiteBase_;
};

}  // namespace files
