// QtPrinter: pages by Qt, drawn into a PDF that goes to a file or to a queue of the system.
#pragma once

#include "SV/ui/Backend.h"

#include <memory>

namespace sv::qt {

/// The file or queue of that name, see `sv::Printer`.
[[nodiscard]] std::unique_ptr<detail::PrinterPeer> MakeQtPrinter(String const& name);

}  // namespace sv::qt
