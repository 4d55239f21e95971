// The code page of the suite's texts, for the code that shows them on a screen.
#pragma once

namespace sv {

/// The values are Windows' own numbers.
enum class TextPage : int { Western = 1252, Japanese = 932, Chinese = 936 };

/// Initially `Western`.
[[nodiscard]] TextPage GetTextPage() noexcept;
/// Does not change texts that windows already show.
void ChangeTextPage(TextPage page) noexcept;

}  // namespace sv
