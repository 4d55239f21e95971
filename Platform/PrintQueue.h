// PrintQueue: the system's printers. Names and titles are UTF-8. It needs a library of the system's and is
// not part of the ground floor that every program carries: whoever prints adds its source file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct PrintQueue {
    std::string name;
    bool acceptsJobs = false;
    bool hasColours = false;
};

/// None when there is no such queue, or none at all can be asked. An empty name is the default queue.
[[nodiscard]] std::optional<PrintQueue> FindPrintQueue(std::string const& name);

/// The upright paper, in hundredths of a millimetre.
struct PrintMedia {
    int width = 0;
    int height = 0;
};

/// What the upright paper cannot be printed on along its edges, in hundredths of a millimetre.
struct PrintMargins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// No margins where the queue tells none of this paper.
[[nodiscard]] PrintMargins MarginsOf(std::string const& queue, PrintMedia const& media);

struct PrintRequest {
    std::string title;
    PrintMedia media;
    bool isLandscape = false;
};

/// Hands a document over to a queue. False when it was refused.
[[nodiscard]] bool SubmitPdf(std::string const& queue, PrintRequest const& request, std::string_view pdf);

}  // namespace platform
