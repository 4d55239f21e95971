// The filters in force before anything is set, computed at compile time so that every static initialiser sees
// them.
#pragma once

#include "KVUtils/Source/colorimetry/CMetryFilter.h"
#include "KVUtils/Source/colorimetry/detail/IlluminantTables.h"
#include "KVUtils/Source/colorimetry/detail/ObserverTables.h"

namespace kv {

struct StandardFilters {
    /// D65 with the 2 degree observer.
    [[nodiscard]] static consteval CMetryFilter D65TwoDegrees() noexcept {
        constexpr std::size_t columnD65 = 3;
        Filter const power(Column(detail::IlluminantTable, columnD65).data());
        std::array<Filter, 3> weights;
        for (std::size_t i = 0; i < weights.size(); ++i) {
            weights[i] = Filter(Column(detail::ObserverTable, i).data()).FilterXFilter(power);
        }
        return CMetryFilter(weights, ObserverClass(ObserverType::TwoDegrees), IllumClass(IllumType::D65));
    }
};

}  // namespace kv
