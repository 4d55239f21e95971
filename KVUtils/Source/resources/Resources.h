// The resources of the library: its bitmaps by record number.
#pragma once

#include "SV/ui/ResId.h"

namespace kv {

/// Returns the bitmap with this record number, which includes one of twice the size; empty if there is none.
[[nodiscard]] sv::Bitmap LoadKVBitmap(unsigned short record);

/// The same as a resource.
[[nodiscard]] constexpr sv::ResId KVResId(unsigned short record) noexcept { return {record, &LoadKVBitmap}; }

}  // namespace kv
