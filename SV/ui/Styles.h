// The styles of the suite's windows and controls. Backends test single bits.
#pragma once

#include "SV/ui/Window.h"

namespace sv {

// Bits.
/// Of a button: Return activates it, wherever the focus is in its dialog.
inline constexpr Window::Style StyleBitDefaultButton = 0x100;
/// Of a text: aligned to the right.
inline constexpr Window::Style StyleBitRight = 0x400;

// Windows.
inline constexpr Window::Style StyleOfChild = 1;
inline constexpr Window::Style StyleOfTextWindow = 36;
inline constexpr Window::Style StyleOfWaitWindow = 0x20;
inline constexpr Window::Style StyleOfModalDialog = 0x120;

// Controls.
inline constexpr Window::Style StyleOfEdit = 257;
inline constexpr Window::Style StyleOfSpinButton = 16384;
inline constexpr Window::Style StyleOfText = 256;
inline constexpr Window::Style StyleOfNumberText = StyleBitRight;
inline constexpr Window::Style StyleOfLines = 16389;

}  // namespace sv
