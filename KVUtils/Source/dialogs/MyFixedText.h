// MyFixedText: a text as large as it has to be, on the ground of its window.
#pragma once

#include "SV/ui/Controls.h"

namespace kv {

/// Shown at once.
class MyFixedText : public sv::FixedText {
  public:
    MyFixedText(sv::Window* parent, sv::Point position, sv::String const& text);

    /// The text fits again.
    void ChangeText(sv::String const& text);
};

}  // namespace kv
