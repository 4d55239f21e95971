// File and folder dialogs by Qt.
#pragma once

#include "SV/ui/FileChoice.h"

#include <optional>

namespace sv {
class Window;
}

namespace sv::qt {

/// Shows the dialog over `parent` or the active window, and runs the application's loop until it is answered.
/// If the suite's code page lacks a character of the name, shows a box and asks again.
[[nodiscard]] std::optional<FileAnswer> ShowFileDialog(Window* parent, FileQuestion const& question);

}  // namespace sv::qt
