// FaultTexts: shows messages of readers, writers and the measuring server in the language of the window.
#pragma once

#include "SV/core/String.h"

#include <string>
#include <string_view>

namespace colourdesk {

/// Translates a message by the texts "ENGLISH -> TRANSLATION" of the group "ColourDeskFaults". %1, %2, ... in
/// them match any text, which is translated in turn. A message without a matching text stays. UTF-8; the
/// result is in the suite's code page.
[[nodiscard]] sv::String FaultText(std::string_view message);
/// The same for "FILE:LINE: MESSAGE" and "FILE: MESSAGE".
[[nodiscard]] sv::String FaultText(std::string_view file, std::string_view message);

}  // namespace colourdesk
