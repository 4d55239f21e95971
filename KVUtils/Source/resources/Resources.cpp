#include "KVUtils/Source/resources/Resources.h"

#include "KVUtils/Source/resources/detail/Bitmaps.h"

#include <algorithm>

namespace kv {

namespace {

constexpr std::string_view Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

sv::BitmapPixel PixelOf(std::uint32_t rgba) noexcept {
    auto const channel = [rgba](unsigned shift) { return static_cast<std::uint8_t>(rgba >> shift & 0xFFU); };
    return {channel(24), channel(16), channel(8), channel(0)};
}

sv::Bitmap Decoded(int side, std::span<std::uint32_t const> palette, std::string_view runs) {
    sv::Bitmap picture(sv::Size(side, side));
    int place = 0;
    for (std::size_t i = 0; i + 1 < runs.size(); i += 2) {
        sv::BitmapPixel const pixel = PixelOf(palette[Letters.find(runs[i])]);
        for (std::size_t left = Letters.find(runs[i + 1]) + 1; left > 0; --left, ++place) {
            picture.Set(place % side, place / side, pixel);
        }
    }
    return picture;
}

}  // namespace

sv::Bitmap LoadKVBitmap(unsigned short record) {
    auto const pictures = detail::EncodedBitmaps();
    auto const found = std::ranges::find(pictures, record, &detail::EncodedBitmap::record);
    if (found == pictures.end()) return {};
    sv::Bitmap picture = Decoded(found->side, found->palette, found->runs);
    picture.SetFine(Decoded(2 * found->side, found->palette, found->fineRuns));
    return picture;
}

}  // namespace kv
