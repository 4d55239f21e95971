#include "KVUtils/Source/controls/detail/StandardButtons.h"

#include <algorithm>
#include <bit>

namespace kv::detail {

static_assert(std::ranges::is_sorted(BitmapTable, {}, &BitmapRecord::record));
static_assert(std::ranges::all_of(StandardButtonTable, [](StandardButton const& button) {
    return std::has_single_bit(static_cast<unsigned long>(button.id));
}));

StandardButton const* FindStandardButton(long id) noexcept {
    auto const found = std::ranges::find(StandardButtonTable, id, &StandardButton::id);
    return found == StandardButtonTable.end() ? nullptr : &*found;
}

std::string_view BitmapFile(unsigned short record) noexcept {
    auto const found = std::ranges::find(BitmapTable, record, &BitmapRecord::record);
    return found == BitmapTable.end() ? std::string_view() : found->file;
}

}  // namespace kv::detail
