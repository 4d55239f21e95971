// MyFixedText: a label that fits its text, with the background of its window.
#pragma once

#include "SV/ui/Controls.h"

namespace kv {

/// Shown when it is constructed.
class MyFixedText : public sv::FixedText {
  public:
    MyFixedText(sv::Window* parent, sv::Point position, sv::String const& text);

    /// Sets the text and adapts the size.
    void ChangeText(sv::String const& text);
};

}  // namespace kv
