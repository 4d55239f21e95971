// TextSegment: the texts of one group, by name.
#pragma once

#include "KVUtils/Source/frame/Text.h"

namespace kv {

class TextSegment {
  public:
    /// Looks up the group once, so load its file first. Without the group all texts are empty.
    explicit TextSegment(sv::String const& groupName) : group_(Text::GetGroupNr(groupName)) {}

    [[nodiscard]] sv::String operator[](unsigned long index) const { return Text::GetText(group_, index); }

  private:
    unsigned group_;
};

}  // namespace kv
