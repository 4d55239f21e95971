// Conditions: the illuminants, observers and density standards that a person chooses from, and their names.
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"

#include <span>
#include <string>

namespace evaluation {

/// Day numbers of the daylights on offer: 4000 K to 15000 K.
inline constexpr short FirstDayNumber = 40;
inline constexpr short LastDayNumber = 150;

/// The illuminants that the library has a table for.
[[nodiscard]] std::span<kv::IllumType const> TabledIlluminants() noexcept;
/// All density standards.
[[nodiscard]] std::span<kv::DStdType const> DensityStandards() noexcept;
/// Whether the standard has red, green and blue filters and not the visual one alone.
[[nodiscard]] bool HasColourFilters(kv::DStdClass const& standard) noexcept;

[[nodiscard]] std::string NameOf(kv::IllumClass const& illuminant);
/// "2 degrees".
[[nodiscard]] std::string NameOf(kv::ObserverClass const& observer);
[[nodiscard]] std::string NameOf(kv::DStdClass const& standard);

/// Puts these in force in the library's context and withdraws any paper white.
void PutInForce(kv::IllumClass const& illuminant, kv::ObserverClass const& observer,
                kv::DStdClass const& standard);

}  // namespace evaluation
