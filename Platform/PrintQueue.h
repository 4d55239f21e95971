// PrintQueue: the system's printers. Names and titles are UTF-8. The implementation needs a system library
// that not every program should load, so it is not part of the ground floor: a program that prints adds its
// source file.
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

/// Returns the queue; none if it does not exist or no print server can be reached. An empty name selects the
/// default queue.
[[nodiscard]] std::optional<PrintQueue> FindPrintQueue(std::string const& name);

/// The size of the paper in portrait orientation, in hundredths of a millimetre.
struct PrintMedia {
    int width = 0;
    int height = 0;
};

/// The unprintable edges of the paper in portrait orientation, in hundredths of a millimetre.
struct PrintMargins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// Returns the margins of a paper; all 0 if the queue does not state them.
[[nodiscard]] PrintMargins MarginsOf(std::string const& queue, PrintMedia const& media);

struct PrintRequest {
    std::string title;
    PrintMedia media;
    bool isLandscape = false;
};

/// Submits a document to a queue. Returns false if it is refused.
[[nodiscard]] bool SubmitPdf(std::string const& queue, PrintRequest const& request, std::string_view pdf);

}  // namespace platform
