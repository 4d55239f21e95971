// The code page that texts of the suite are in, which whoever shows them on a screen has to know.
#pragma once

namespace sv {

/// By the numbers that Windows gives them.
enum class TextPage : int { Western = 1252, Japanese = 932, Chinese = 936 };

/// Western at first.
[[nodiscard]] TextPage GetTextPage() noexcept;
/// Texts that windows show already stay as they are until they are set again.
void ChangeTextPage(TextPage page) noexcept;

}  // namespace sv
