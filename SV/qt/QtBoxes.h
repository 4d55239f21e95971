// Boxes as dialogs of the desktop.
#pragma once

#include "SV/core/Boxes.h"

namespace sv::qt {

/// Shows the box over the active window and runs the application's loop until it is answered.
[[nodiscard]] BoxAnswer ShowBox(MessBox const& box);

}  // namespace sv::qt
