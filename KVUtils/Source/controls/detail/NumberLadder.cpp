#include "KVUtils/Source/controls/detail/NumberLadder.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kv::detail {

namespace {

constexpr std::array<int, 14> Hundredths = {100, 125, 150, 175, 200, 250, 300,
                                            350, 400, 500, 600, 700, 800, 900};
constexpr int RungsPerDecade = Hundredths.size();

constexpr int FloorDivide(int a, int b) noexcept { return a / b - (a % b < 0 ? 1 : 0); }

/// A rung some rungs below the positive value, at most two decades.
int IndexBelow(double value) noexcept {
    return RungsPerDecade * (static_cast<int>(std::floor(std::log10(value))) - 1);
}

double RungAbove(double value) noexcept {
    int index = IndexBelow(value);
    while (LadderValue(index) <= value) ++index;
    return LadderValue(index);
}

double RungBelow(double value) noexcept {
    int index = IndexBelow(value);
    while (LadderValue(index + 1) < value) ++index;
    return LadderValue(index);
}

}  // namespace

double LadderValue(int index) noexcept {
    int const decade = FloorDivide(index, RungsPerDecade);
    int const rung = index - decade * RungsPerDecade;
    // Only parsing a decimal number rounds correctly at every power of ten.
    std::array<char, 24> text{};
    constexpr std::size_t Digits = 8;  // more than a rung has
    char* end =
        std::to_chars(text.data(), text.data() + Digits, Hundredths[static_cast<std::size_t>(rung)]).ptr;
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), decade - 2).ptr;
    double value = 0;
    if (std::from_chars(text.data(), end, value).ec == std::errc::result_out_of_range)
        return decade < 0 ? 0 : std::numeric_limits<double>::infinity();
    return value;
}

double NextOnLadder(double value, StepDirection direction, double minimalStep) noexcept {
    bool const isUp = direction == StepDirection::Up;
    if (std::fabs(value) < minimalStep) value = isUp ? minimalStep : -minimalStep;
    if (value == 0 || !std::isfinite(value)) return value;
    if (value > 0) return isUp ? RungAbove(value) : RungBelow(value);
    return isUp ? -RungBelow(-value) : -RungAbove(-value);
}

double NextInteger(double value, StepDirection direction) noexcept {
    return std::trunc(direction == StepDirection::Up ? value + 1 : value - 1);
}

double ClampStep(double value, double minimum, double maximum) noexcept {
    if (value > maximum) value = maximum;
    if (value < minimum) value = minimum;
    return value;
}

}  // namespace kv::detail
