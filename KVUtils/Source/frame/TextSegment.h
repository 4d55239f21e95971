// TextSegment: the texts of one group, by name.
#pragma once

#include "KVUtils/Source/frame/Text.h"

namespace kv {

class TextSegment {
  public:
    /// The group is looked for once, so its file has to be loaded before. Without it all texts are empty.
    explicit TextSegment(sv::String const& groupName) : group_(Text::GetGroupNr(groupName)) {}

    [[nodiscard]] sv::String operator[](unsigned long index) const { return Text::GetText(group_, index); }

  private:
    unsigned group_;
};

}  // namespace kv
