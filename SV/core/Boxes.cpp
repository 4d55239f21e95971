#include "SV/core/Boxes.h"

#include <cstdio>
#include <utility>

namespace sv {

namespace {

// Created at the first use: a static initialiser of another file may run a box.
BoxHandler& CurrentHandler() {
    static BoxHandler handler;
    return handler;
}

void PrintBox(MessBox const& box) {
    if (!box.GetTitle().IsEmpty()) std::fprintf(stderr, "%s: ", box.GetTitle().GetStr());
    std::fprintf(stderr, "%s\n", box.GetText().GetStr());
}

}  // namespace

MessBox::MessBox(Window* parent, WinBits style, String title, String text)
    : MessBox(BoxKind::Message, parent, style, std::move(title), std::move(text)) {}

MessBox::MessBox(BoxKind kind, Window* parent, WinBits style, String title, String text)
    : kind_(kind), parent_(parent), style_(style), title_(std::move(title)), text_(std::move(text)) {}

BoxAnswer MessBox::Execute() const {
    // Copied, since the handler may install another one.
    if (BoxHandler const handler = CurrentHandler()) return handler(*this);
    PrintBox(*this);
    return DefaultAnswer();
}

BoxAnswer MessBox::DefaultAnswer() const noexcept {
    if ((style_ & WB_SAVE_DISCARD_CANCEL) != 0) return BoxAnswer::Cancel;
    if ((style_ & WB_YES_NO) == 0) return BoxAnswer::Ok;
    return (style_ & WB_DEF_YES) != 0 ? BoxAnswer::Yes : BoxAnswer::No;
}

InfoBox::InfoBox(Window* parent, String text) : MessBox(BoxKind::Info, parent, WB_OK, {}, std::move(text)) {}

ErrorBox::ErrorBox(Window* parent, WinBits style, String text)
    : MessBox(BoxKind::Error, parent, style, {}, std::move(text)) {}

BoxHandler SetBoxHandler(BoxHandler handler) { return std::exchange(CurrentHandler(), std::move(handler)); }

}  // namespace sv
