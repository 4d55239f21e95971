#include "SV/core/detail/TextPage.h"

namespace sv {

namespace {

constinit TextPage current = TextPage::Western;

}  // namespace

TextPage GetTextPage() noexcept { return current; }
void ChangeTextPage(TextPage page) noexcept { current = page; }

}  // namespace sv
