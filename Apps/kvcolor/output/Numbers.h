// Numbers: to and from text without any locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvcolor {

/// A number with this many decimals, rounded half away from zero; a rounded 0 has no sign.
[[nodiscard]] std::string Fixed(float value, int decimals);
/// The fewest digits that read back as the same `float`. The value is finite.
[[nodiscard]] std::string Shortest(float value);

/// A whole number of decimal digits alone; none for anything else or beyond the range.
[[nodiscard]] std::optional<int> ParseWhole(std::string_view text) noexcept;
/// A finite number; none for anything else.
[[nodiscard]] std::optional<float> ParseNumber(std::string_view text) noexcept;
/// `count` numbers above 0 with ":" between them; none for anything else.
[[nodiscard]] std::optional<std::vector<float>> ParseWeights(std::string_view text, std::size_t count);

}  // namespace kvcolor
