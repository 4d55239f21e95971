// DeskStatus: the line at the bottom of the window.
#pragma once

#include "Apps/ColourDesk/DeskFile.h"

#include <span>

namespace colourdesk {

/// How many samples are selected, how many pass, and the first selected sample's reflectance at the cursor,
/// the index of a wavelength.
[[nodiscard]] sv::String StatusText(DeskFile const& file, std::span<int const> selected,
                                    std::optional<int> cursor);

}  // namespace colourdesk
