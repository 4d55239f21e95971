// StatedConditions: what a measurement file says of its measurement, out of its keywords.
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace files {

/// What the file says of its measurement; empty where it says nothing.
struct StatedConditions {
    std::optional<kv::IllumClass>
        illuminant;  // a daylight other than D50 and D65 as slot Dxx1 with its number
    std::optional<kv::ObserverClass> observer;
    std::string measurementMode;  // "M0" to "M3" as ISO 13655 has them, upper case
    std::string filter;           // the physical filter, as written ("Pol", "UV-cut", ...)
    std::string whiteBase;        // as written ("Absolute", "Paper"); relative spectra are not absolute ones
};

/// "A", "C", "D65", "D50", "D55", "F11" in any case; nothing when it is none of the illuminants with a name.
[[nodiscard]] std::optional<kv::IllumClass> ToIlluminant(std::string_view word);
/// The field of 2 or 10 degrees in texts such as "2 degree", "10" or "CIE 1964".
[[nodiscard]] std::optional<kv::ObserverClass> ToObserver(std::string_view text);

/// Collects the conditions from keyword lines in any order. A weighting function outranks a keyword of its
/// own, and that one outranks the description of the measuring source; the lamp of the instrument (a source
/// of "A", or an illumination without an observer) says nothing of the illuminant of the computation.
class ConditionReader {
  public:
    /// One line: its keyword and its value without quotes. Other keywords are ignored.
    void Take(std::string_view keyword, std::string_view value);

    [[nodiscard]] StatedConditions const& Stated() const noexcept { return stated_; }
    /// A line for each statement that contradicts another or is not understood.
    [[nodiscard]] std::vector<std::string> Notes() const;

  private:
    enum class Rank : int { None, Source, Keyword, Weighting };

    /// How a quantity came to its value.
    struct Origin {
        Rank rank = Rank::None;
        std::string word;
        std::string contradiction;
        std::string unknown;
    };

    void TakeWeighting(std::string_view value);
    void TakeSource(std::string_view value);
    void TakeIlluminant(std::string_view text, Rank rank);
    void TakeObserver(std::string_view text, Rank rank);
    void TakeMode(std::string_view text, Rank rank);
    static bool Outranks(Origin& origin, std::string_view word, Rank rank, bool isSame);

    StatedConditions stated_;
    Origin illuminant_;
    Origin observer_;
    Origin mode_;
};

}  // namespace files
