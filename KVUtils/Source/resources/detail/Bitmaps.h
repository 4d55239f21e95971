// The pictures of the library, as the program holds them.
// Written by Tools/bitmaps.py, which draws them; not edited by hand.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kv::detail {

/// A square picture in two sizes. Each run of pixels, row by row from the top, is two letters of the base 64
/// alphabet: the colour's place in the palette, and the run's length less one.
struct EncodedBitmap {
    unsigned short record;
    std::int16_t side;
    std::span<std::uint32_t const> palette;  // 0xRRGGBBAA
    std::string_view runs;
    std::string_view fineRuns;  // of the picture with twice the side
};

/// Ascending by record.
[[nodiscard]] std::span<EncodedBitmap const> EncodedBitmaps() noexcept;

}  // namespace kv::detail
