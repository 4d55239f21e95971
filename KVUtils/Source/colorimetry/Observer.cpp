#include "KVUtils/Source/colorimetry/Observer.h"

#include "KVUtils/Source/colorimetry/detail/ObserverTables.h"
#include "SV/core/Boxes.h"

namespace kv {

namespace {

using detail::ObserverTable;

static_assert(detail::FollowsGrid(ObserverTable));

/// Three functions from neighbouring columns of the table.
std::array<Filter, 3> Functions(std::size_t firstColumn) noexcept {
    std::array<Filter, 3> functions;
    for (std::size_t i = 0; i < functions.size(); ++i) {
        functions[i] = Filter(Column(ObserverTable, firstColumn + i).data());
    }
    return functions;
}

}  // namespace

Observer::Observer(ObserverClass const& observer) : observer_(observer) {
    constexpr std::size_t columnX2 = 0;
    constexpr std::size_t columnX10 = 3;
    switch (static_cast<ObserverType>(observer)) {
        case ObserverType::TwoDegrees:
            functions_ = Functions(columnX2);
            break;
        case ObserverType::TenDegrees:
            functions_ = Functions(columnX10);
            break;
        case ObserverType::ClientSpecific:
            break;
        default:
            sv::InfoBox(nullptr,
                        "Client specific observer angle not supported!\nUse 2 or 10 degree observer!")
                .Execute();
    }
}

}  // namespace kv
