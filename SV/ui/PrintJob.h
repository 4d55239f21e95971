// The properties of a print job besides its pages.
#pragma once

#include "SV/core/Geometry.h"
#include "SV/core/String.h"

namespace sv {

enum class Orientation : int { Portrait = 0, Landscape = 1 };

struct PageSetup {
    Size paper{2100, 2970};  // tenths of a millimetre, in portrait orientation
    Orientation orientation = Orientation::Portrait;

    friend constexpr bool operator==(PageSetup const&, PageSetup const&) noexcept = default;
};

/// Whether a printer of this name is a file, see `sv::Printer`.
[[nodiscard]] inline bool IsPrintFile(String const& name) {
    String const ending(".pdf");
    return name.Len() >= ending.Len() && name.Copy(name.Len() - ending.Len()).EqualsIgnoreCase(ending);
}

/// Returns the size of the paper as it is read, wider than high in landscape orientation.
[[nodiscard]] constexpr Size PaperAsRead(PageSetup const& setup) noexcept {
    bool const lies = setup.orientation == Orientation::Landscape;
    return lies ? Size(setup.paper.Height(), setup.paper.Width()) : setup.paper;
}

/// The properties of a document: they are written to files, and the title is shown in the queue.
struct PrintDocument {
    String title;
    String author;
    String language;  // as in RFC 3066: "de", "en-GB"; empty if unknown
};

struct PrintJob {
    String name;  // in the queue; empty for the title of the document
    PageSetup setup;
    PrintDocument document;
};

}  // namespace sv
