// How colours that are not neutral get their name.
// Written by Tools/tables.py from the printed table; not edited by hand.
#pragma once

#include <array>
#include <limits>

namespace kv::detail {

// clang-format off
/// A range of hues (whole degrees, both ends included), of chroma and of lightness (the upper ends not
/// included), with the number of its colour.
struct ColourNameRule {
    int hueFrom, hueTo;
    double chromaFrom, chromaBelow;
    double lightnessFrom, lightnessBelow;
    int number;
};

inline constexpr double Unbounded = std::numeric_limits<double>::infinity();

/// The first rule that fits decides.
inline constexpr std::array<ColourNameRule, 20> ColourNameRules = {{
    {300, 334, -Unbounded, Unbounded, -Unbounded, Unbounded,  1},
    {260, 299, -Unbounded, Unbounded, -Unbounded, Unbounded,  2},
    {210, 259, -Unbounded, Unbounded, -Unbounded, Unbounded,  3},
    {175, 209, -Unbounded, Unbounded, -Unbounded, Unbounded,  4},
    {135, 174, -Unbounded, Unbounded, -Unbounded, Unbounded,  5},
    {110, 134, -Unbounded,        50, -Unbounded,        50,  6},
    {110, 134, -Unbounded, Unbounded, -Unbounded, Unbounded,  7},
    { 80, 109, -Unbounded,        50,         65, Unbounded,  8},
    { 90, 109, -Unbounded,        70, -Unbounded,        65,  6},
    { 80, 109,         70, Unbounded, -Unbounded, Unbounded, 10},
    { 80,  89, -Unbounded, Unbounded, -Unbounded,        65,  9},
    { 80, 109, -Unbounded, Unbounded, -Unbounded, Unbounded, 10},
    { 45,  79, -Unbounded,        70,         65, Unbounded,  8},
    { 45,  79,         70, Unbounded, -Unbounded, Unbounded, 11},
    { 45,  79, -Unbounded, Unbounded, -Unbounded,        65,  9},
    { 45,  79, -Unbounded, Unbounded, -Unbounded, Unbounded, 11},
    { 20,  44, -Unbounded,        40, -Unbounded,        50,  9},
    { 20,  44,         55, Unbounded, -Unbounded, Unbounded, 12},
    { 36,  44, -Unbounded, Unbounded, -Unbounded,        65,  9},
    { 20,  44, -Unbounded, Unbounded, -Unbounded, Unbounded, 12},
}};
// clang-format on

}  // namespace kv::detail
