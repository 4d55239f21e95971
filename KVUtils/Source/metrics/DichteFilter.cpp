#include "KVUtils/Source/metrics/DichteFilter.h"

#include "KVUtils/Source/metrics/detail/StandardDensity.h"

namespace kv {

static_assert(detail::FollowsGrid(detail::DensityTable));

DichteFilter::DichteFilter(DStdType standard) noexcept : DichteFilter(StandardDensity::Filters(standard)) {}

}  // namespace kv
