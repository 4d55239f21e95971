// The mnemonic of a caption: the letter after a "~", which activates the control from the keyboard.
#pragma once

#include "SV/core/String.h"

namespace sv {

/// Returns the position of the first "~", or `String::NotFound`. In a text of two bytes per character a
/// second byte with the code of "~" is not a mark.
[[nodiscard]] std::size_t FindMnemonic(String const& text) noexcept;
/// Returns the text as it is shown, without the mark.
[[nodiscard]] String WithoutMnemonic(String text);

}  // namespace sv
