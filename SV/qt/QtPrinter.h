// QtPrinter: pages drawn into a PDF, which goes to a file or to a queue of the system.
#pragma once

#include "SV/ui/Backend.h"

#include <memory>

namespace sv::qt {

/// Returns the printer for the file or queue of this name, see `sv::Printer`.
[[nodiscard]] std::unique_ptr<detail::PrinterPeer> MakeQtPrinter(String const& name);

}  // namespace sv::qt
