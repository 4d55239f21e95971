// The layout of a report's page, in tenths of a millimetre from the corner of the printable area; y grows
// downward.
#pragma once

#include "SV/core/Geometry.h"

namespace kv::detail {

/// The area of a page that a report uses.
struct PageEdges {
    int top = 0;
    int bottom = 0;
    int left = 0;
    int right = 0;

    friend constexpr bool operator==(PageEdges const&, PageEdges const&) noexcept = default;
};

/// 10 mm from the paper's edge above and below, 15 mm at the sides. `offset` is the unprintable border at the
/// left and top. Intentional: the bottom edge is limited to the printable area and the right edge is not,
/// since columns rely on the paper's width.
[[nodiscard]] PageEdges EdgesOf(sv::Size paper, sv::Size offset, int outputHeight) noexcept;

/// The bottom of the area for lines; three lines are reserved for a foot note.
[[nodiscard]] int BodyBottom(PageEdges const& edges, int lineHeight, bool hasFootNote) noexcept;
/// Whether a line at `y` does not fit.
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
