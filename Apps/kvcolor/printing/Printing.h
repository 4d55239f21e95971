// Printing: the printing backend, if the build has one.
#pragma once

#include <memory>

namespace kvcolor {

/// Starts the backend, which lives as long as the result; null in a build without printing.
[[nodiscard]] std::shared_ptr<void> BeginPrinting();

/// The function that the printing library exports.
using BeginPrintingFunction = void(std::shared_ptr<void>& printing);
inline constexpr char BeginPrintingName[] = "KvcolorBeginPrinting";

}  // namespace kvcolor
