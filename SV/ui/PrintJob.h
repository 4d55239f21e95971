// What a print job is besides its pages.
#pragma once

#include "SV/core/Geometry.h"
#include "SV/core/String.h"

namespace sv {

enum class Orientation : int { Portrait = 0, Landscape = 1 };

struct PageSetup {
    Size paper{2100, 2970};  // tenths of a millimetre, upright
    Orientation orientation = Orientation::Portrait;

    friend constexpr bool operator==(PageSetup const&, PageSetup const&) noexcept = default;
};

/// The paper as it is read: lying on its long side in landscape.
[[nodiscard]] constexpr Size PaperAsRead(PageSetup const& setup) noexcept {
    bool const lies = setup.orientation == Orientation::Landscape;
    return lies ? Size(setup.paper.Height(), setup.paper.Width()) : setup.paper;
}

/// What a document says of itself: it goes into files, and its title into the queue.
struct PrintDocument {
    String title;
    String author;
    String language;  // as of RFC 3066: "de", "en-GB"; empty where it is not known
};

struct PrintJob {
    String name;  // in the queue; empty for the document's title
    PageSetup setup;
    PrintDocument document;
};

}  // namespace sv
