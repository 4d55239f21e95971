// Choosing files and folders in a dialog of Qt's own.
#pragma once

#include "SV/ui/FileChoice.h"

#include <optional>

namespace sv {
class Window;
}

namespace sv::qt {

/// Shows the dialog over the window in use, or over `parent`, and runs the application's loop until it is
/// answered. A name that the suite's code page cannot hold is told in a box, and the person asked again.
[[nodiscard]] std::optional<FileAnswer> ShowFileDialog(Window* parent, FileQuestion const& question);

}  // namespace sv::qt
