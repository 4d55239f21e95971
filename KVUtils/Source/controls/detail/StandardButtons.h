// The buttons that the suite's windows share, each known by a single bit, so that an application can hold a
// set of them in one number.
#pragma once

#include "KVUtils/Source/controls/detail/ButtonTables.h"

#include <string_view>

namespace kv::detail {

/// The ids that the library's own windows use.
enum StandardButtonId : long { CloseButton = 0x1, CancelButton = 0x4, PrintButton = 0x20, OkButton = 0x800 };

/// Null when no button has this id; two bits at once are none.
[[nodiscard]] StandardButton const* FindStandardButton(long id) noexcept;

/// The file of the library's bitmap with this record number; empty when there is none.
[[nodiscard]] std::string_view BitmapFile(unsigned short record) noexcept;

}  // namespace kv::detail
