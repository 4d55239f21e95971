#include "Apps/kvcolor/output/Numbers.h"

#include "Apps/kvcolor/output/Text.h"
#include "KVUtils/Source/data/GString.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kvcolor {

std::string Fixed(float value, int decimals) {
    std::string text(kv::fString(value, decimals).View());
    // In a column of differences "-0.00" reads as a fault.
    if (text.find_first_not_of("-0.") == std::string::npos && text.starts_with('-')) text.erase(0, 1);
    return text;
}

std::string Shortest(float value) {
    std::array<char, 32> text{};
    auto const result = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), result.ptr};
}

std::optional<int> ParseWhole(std::string_view text) noexcept {
    int value = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
    bool const isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isWhole && value >= 0 && !text.starts_with('-') ? std::optional(value) : std::nullopt;
}

std::optional<float> ParseNumber(std::string_view text) noexcept {
    float value = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
    bool const isNumber = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<std::vector<float>> ParseWeights(std::string_view text, std::size_t count) {
    std::vector<float> weights;
    for (std::string_view const piece : Split(text, ':')) {
        std::optional<float> const weight = ParseNumber(piece);
        if (!weight || !(*weight > 0)) return std::nullopt;
        weights.push_back(*weight);
    }
    return weights.size() == count ? std::optional(weights) : std::nullopt;
}

}  // namespace kvcolor
