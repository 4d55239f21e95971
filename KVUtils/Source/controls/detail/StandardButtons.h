// The standard buttons of the suite, each identified by a single bit, so that an application can hold a set
// of them in one number.
#pragma once

#include "KVUtils/Source/controls/detail/ButtonTables.h"

#include <string_view>

namespace kv::detail {

/// The ids used by the library's own windows.
enum StandardButtonId : long { CloseButton = 0x1, CancelButton = 0x4, PrintButton = 0x20, OkButton = 0x800 };

/// Null if no button has this id, as for several bits.
[[nodiscard]] StandardButton const* FindStandardButton(long id) noexcept;

/// The file of the library's bitmap with this record number; empty if there is none.
[[nodiscard]] std::string_view BitmapFile(unsigned short record) noexcept;

}  // namespace kv::detail
