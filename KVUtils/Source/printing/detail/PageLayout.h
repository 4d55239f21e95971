// Where a report's lines stand on its pages. Tenths of a millimetre, from the corner of the area that the
// printer prints on; y grows downward.
#pragma once

#include "SV/core/Geometry.h"

namespace kv::detail {

/// The area of a page that a report takes up.
struct PageEdges {
    int top = 0;
    int bottom = 0;
    int left = 0;
    int right = 0;

    friend constexpr bool operator==(PageEdges const&, PageEdges const&) noexcept = default;
};

/// 10 mm from the paper's edge above and below, 15 mm at the sides. `offset` is the border that cannot be
/// printed on, at the left and top. The bottom edge ends with the printer's area, and the right edge does
/// not: that is meant, columns count on the paper's width.
[[nodiscard]] PageEdges EdgesOf(sv::Size paper, sv::Size offset, int outputHeight) noexcept;

/// Down to where lines may stand: three lines are kept for the foot note.
[[nodiscard]] int BodyBottom(PageEdges const& edges, int lineHeight, bool hasFootNote) noexcept;
/// Whether the line at `y` does not fit any more.
[[nodiscard]] bool IsPageFull(int y, int lineHeight, int bodyBottom) noexcept;

/// The head line: text, two lines below it a rule, and two lines below that the body.
struct HeadPlaces {
    int rule = 0;
    int body = 0;
};
[[nodiscard]] HeadPlaces PlaceHead(int y, int lineHeight) noexcept;

/// The foot note: a rule, and one line below it the text.
struct FootPlaces {
    int rule = 0;
    int text = 0;
};
[[nodiscard]] FootPlaces PlaceFoot(PageEdges const& edges, int lineHeight) noexcept;

}  // namespace kv::detail
