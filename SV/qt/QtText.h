// Text between the toolkit and Qt: the one place that knows both kinds of string.
#pragma once

#include "SV/core/String.h"

#include <QString>

namespace sv::qt {

/// Decodes a text of the suite, in the current `TextPage`, for the screen. A byte that means nothing becomes
/// a replacement character.
[[nodiscard]] QString ToQt(String const& text);
/// What the code page lacks becomes "?".
[[nodiscard]] String FromQt(QString const& text);
/// The same with "~" in front of the mnemonic letter turned into Qt's "&".
[[nodiscard]] QString ToQtWithMnemonic(String const& text);

}  // namespace sv::qt
