#include "Apps/kvcolor/Conditions.h"

#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/output/Numbers.h"
#include "Apps/kvcolor/output/Text.h"

#include <algorithm>
#include <array>

namespace kvcolor {

namespace {

using kv::DStdType;
using kv::IllumType;

/// Names that measuring conditions can hold, but that no light belongs to.
constexpr std::array<IllumType, 5> WithoutTable = {IllumType::Il1, IllumType::Il2, IllumType::Il3,
                                                   IllumType::Il4, IllumType::Custom};

constexpr std::string_view Offer =
    "A, C, D50, D65, F1 to F12, or D40 to D150 for daylight of 4000 K to 15000 K";

bool IsNamed(IllumType type, std::string const& lower) {
    return Lower(NameOf(kv::IllumClass(type))) == lower;
}

/// Lower case without blanks, so that "ANSI T" and "ansit" are one.
std::string StandardKey(std::string_view name) {
    std::string key = Lower(name);
    std::erase(key, ' ');
    return key;
}

}  // namespace

kv::IllumClass ParseIlluminant(std::string_view name) {
    std::string const lower = Lower(name);
    auto const isNamed = [&](IllumType type) { return IsNamed(type, lower); };
    if (auto const type = std::ranges::find_if(TabledIlluminants(), isNamed);
        type != TabledIlluminants().end()) {
        return kv::IllumClass(*type);
    }
    if (std::ranges::any_of(WithoutTable, isNamed) || lower.starts_with("dxx")) {
        throw Unusable("illuminant " + std::string(name) + " has no spectral table: use " +
                       std::string(Offer));
    }
    if (lower.size() >= 3 && lower[0] == 'd' && lower[1] != '0') {
        auto const number = ParseWhole(std::string_view(lower).substr(1));
        if (number && *number >= FirstDayNumber && *number <= LastDayNumber) {
            return kv::IllumClass(IllumType::Dxx1, static_cast<short>(*number));
        }
    }
    throw Unusable("no illuminant \"" + std::string(name) + "\": there are " + std::string(Offer));
}

kv::ObserverClass ParseObserver(std::string_view name) {
    if (name == "2") return kv::ObserverClass(kv::ObserverType::TwoDegrees);
    if (name == "10") return kv::ObserverClass(kv::ObserverType::TenDegrees);
    throw Unusable("no observer \"" + std::string(name) + "\": there are 2 and 10 (degrees)");
}

kv::DStdClass ParseDensityStandard(std::string_view name) {
    auto const key = [](DStdType type) { return StandardKey(NameOf(kv::DStdClass(type))); };
    auto const standards = DensityStandards();
    auto const type = std::ranges::find(standards, StandardKey(name), key);
    if (type != standards.end()) return kv::DStdClass(*type);
    std::vector<std::string> names;
    names.reserve(standards.size());
    for (DStdType const standard : standards) names.push_back(NameOf(kv::DStdClass(standard)));
    throw Unusable("no density standard \"" + std::string(name) + "\": there are " +
                   List(names, names.size()));
}

}  // namespace kvcolor
