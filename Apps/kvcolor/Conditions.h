// Conditions: illuminants, observers and density standards by the names that people type and read.
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"

#include <span>
#include <string>
#include <string_view>

namespace kvcolor {

/// Day numbers of the daylights on offer: 4000 K to 15000 K.
inline constexpr short FirstDayNumber = 40;
inline constexpr short LastDayNumber = 150;

/// The illuminants that the library has a table for.
[[nodiscard]] std::span<kv::IllumType const> TabledIlluminants() noexcept;
/// All density standards.
[[nodiscard]] std::span<kv::DStdType const> DensityStandards() noexcept;
/// Whether the standard has red, green and blue filters and not the visual one alone.
[[nodiscard]] bool HasColourFilters(kv::DStdClass const& standard) noexcept;

/// "D50", "a", "F11", or "D40" to "D150" for daylight of that number, in any case. Throws Unusable.
[[nodiscard]] kv::IllumClass ParseIlluminant(std::string_view name);
/// "2" or "10". Throws Unusable.
[[nodiscard]] kv::ObserverClass ParseObserver(std::string_view name);
/// "ANSI T", "ansit", "DIN NB", in any case. Throws Unusable.
[[nodiscard]] kv::DStdClass ParseDensityStandard(std::string_view name);

[[nodiscard]] std::string NameOf(kv::IllumClass const& illuminant);
/// "2 degrees".
[[nodiscard]] std::string NameOf(kv::ObserverClass const& observer);
[[nodiscard]] std::string NameOf(kv::DStdClass const& standard);

/// Puts these in force in the library's context and withdraws any paper white.
void PutInForce(kv::IllumClass const& illuminant, kv::ObserverClass const& observer,
                kv::DStdClass const& standard);

}  // namespace kvcolor
