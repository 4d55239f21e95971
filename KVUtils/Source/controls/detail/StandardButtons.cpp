#include "KVUtils/Source/controls/detail/StandardButtons.h"

#include <algorithm>

namespace kv::detail {

StandardButton const* FindStandardButton(long id) noexcept {
    auto const found = std::ranges::find(StandardButtonTable, id, &StandardButton::id);
    return found == StandardButtonTable.end() ? nullptr : &*found;
}

std::string_view BitmapFile(unsigned short record) noexcept {
    auto const found = std::ranges::find(BitmapTable, record, &BitmapRecord::record);
    return found == BitmapTable.end() ? std::string_view() : found->file;
}

}  // namespace kv::detail
