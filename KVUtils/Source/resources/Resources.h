// The resources of the library: its pictures by the numbers of their records, see `detail::BitmapTable`.
#pragma once

#include "SV/ui/ResId.h"

namespace kv {

/// The picture with this record number, with a finer copy; empty when there is none.
[[nodiscard]] sv::Bitmap LoadKVBitmap(unsigned short record);

/// The same for whoever takes a resource.
[[nodiscard]] constexpr sv::ResId KVResId(unsigned short record) noexcept { return {record, &LoadKVBitmap}; }

}  // namespace kv
