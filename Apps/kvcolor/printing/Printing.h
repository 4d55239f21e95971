// Printing: what prints, where the build has it.
#pragma once

#include <memory>

namespace kvcolor {

/// Brings it up, for as long as the answer lives; null in a build without printing.
[[nodiscard]] std::shared_ptr<void> BeginPrinting();

/// What the library with the printing exports.
using BeginPrintingFunction = void(std::shared_ptr<void>& printing);
inline constexpr char BeginPrintingName[] = "KvcolorBeginPrinting";

}  // namespace kvcolor
