// What the compared units call outside themselves, so that BitsHash is built from them alone: no box ever
// opens, as all its observers are valid, and numbers have a point in every locale.
#include "SV/core/Boxes.h"
#include "SV/core/International.h"

#include <cstdlib>

namespace sv {

MessBox::MessBox(BoxKind kind, Window* parent, WinBits style, String title, String text)
    : kind_(kind), parent_(parent), style_(style), title_(std::move(title)), text_(std::move(text)) {}
InfoBox::InfoBox(Window* parent, String text) : MessBox(BoxKind::Info, parent, 0, {}, std::move(text)) {}
BoxAnswer MessBox::Execute() const { std::abort(); }

char International::GetNumDecimalSep() noexcept { return '.'; }

}  // namespace sv
