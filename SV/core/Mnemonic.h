// The letter of a caption that presses its control from the keyboard, marked by a "~" in front of it.
#pragma once

#include "SV/core/String.h"

namespace sv {

/// The first mark, or `String::NotFound`. In a text of two bytes a character the second of them may have the
/// mark's code, and is none.
[[nodiscard]] std::size_t FindMnemonic(String const& text) noexcept;
/// The text as it shows, without the mark.
[[nodiscard]] String WithoutMnemonic(String text);

}  // namespace sv
