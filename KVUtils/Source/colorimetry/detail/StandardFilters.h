// The filters that are in force before anything is set: computed by the compiler, so that they are right in
// every static initialiser of every file. For the two files that need them, not for users.
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
