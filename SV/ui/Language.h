// The language of the texts that the window system supplies itself: the buttons of boxes, file dialogs and
// context menus.
#pragma once

#include "SV/core/String.h"

namespace sv {

/// Sets the language by its ISO 639 code, with a country where it matters ("de", "zh_CN"). The texts are
/// English for a language that the window system does not know, and initially.
void ChangeLanguage(String const& code);

}  // namespace sv
