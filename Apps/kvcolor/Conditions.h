// Conditions: illuminants, observers and density standards by the names that people type.
#pragma once

#include "Apps/evaluation/Conditions.h"

#include <string_view>

namespace kvcolor {

using evaluation::DensityStandards;
using evaluation::FirstDayNumber;
using evaluation::HasColourFilters;
using evaluation::LastDayNumber;
using evaluation::NameOf;
using evaluation::PutInForce;
using evaluation::TabledIlluminants;

/// "D50", "a", "F11", or "D40" to "D150" for daylight of that number, in any case. Throws Unusable.
[[nodiscard]] kv::IllumClass ParseIlluminant(std::string_view name);
/// "2" or "10". Throws Unusable.
[[nodiscard]] kv::ObserverClass ParseObserver(std::string_view name);
/// "ANSI T", "ansit", "DIN NB", in any case. Throws Unusable.
[[nodiscard]] kv::DStdClass ParseDensityStandard(std::string_view name);

}  // namespace kvcolor
