// Text conversion between the toolkit and Qt; no other file knows both kinds of string.
#pragma once

#include "SV/core/String.h"

#include <QString>

namespace sv::qt {

/// Decodes a text in the current `TextPage`. A byte that the code page leaves open becomes a replacement
/// character.
[[nodiscard]] QString ToQt(String const& text);
/// Encodes a text; a character that the code page lacks becomes "?".
[[nodiscard]] String FromQt(QString const& text);
/// Like `ToQt`, with the "~" of the mnemonic replaced by Qt's "&".
[[nodiscard]] QString ToQtWithMnemonic(String const& text);

}  // namespace sv::qt
