// The primaries of the display.
// Written by Tools/tables.py from the printed table; not edited by hand.
#pragma once

#include <array>

namespace kv::detail {

// clang-format off
/// Linear R, G, B (1 for full) from X, Y, Z (Y of 100 for white), row by row.
inline constexpr std::array<float, 9> DisplayMatrix = {{
    0.03065F, -0.01394F, -0.00476F,
    -0.00969F, 0.01876F, 0.00042F,
    0.00068F, -0.00229F, 0.0107F,
}};
// clang-format on

}  // namespace kv::detail
