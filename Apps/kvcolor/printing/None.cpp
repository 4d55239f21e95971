#include "Apps/kvcolor/printing/Printing.h"

namespace kvcolor {

std::shared_ptr<void> BeginPrinting() { return nullptr; }

}  // namespace kvcolor
