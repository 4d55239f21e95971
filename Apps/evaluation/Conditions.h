// Conditions: the illuminants, observers, density standards, measurement conditions and instrument filters
// that users choose from, with their names.
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"

#include <span>
#include <string>
#include <string_view>

namespace evaluation {

/// Returns the illuminants that the library has a table for.
[[nodiscard]] std::span<kv::IllumType const> TabledIlluminants() noexcept;
/// Returns all density standards.
[[nodiscard]] std::span<kv::DStdType const> DensityStandards() noexcept;
/// Returns whether the standard has red, green and blue filters in addition to the visual one.
[[nodiscard]] bool HasColourFilters(kv::DStdClass const& standard) noexcept;

[[nodiscard]] std::string NameOf(kv::IllumClass const& illuminant);
/// "2 degrees".
[[nodiscard]] std::string NameOf(kv::ObserverClass const& observer);
[[nodiscard]] std::string NameOf(kv::DStdClass const& standard);

/// Parses "D50", "a", "F11" or a daylight "D40" to "D250", in any case. Throws InputError.
[[nodiscard]] kv::IllumClass ParseIlluminant(std::string_view name);
/// Parses "2" or "10". Throws InputError.
[[nodiscard]] kv::ObserverClass ParseObserver(std::string_view name);
/// Parses "ANSI T", "ansit", "DIN NB", in any case. Throws InputError.
[[nodiscard]] kv::DStdClass ParseDensityStandard(std::string_view name);
/// Parses "M0" to "M3" in any case. Throws InputError.
[[nodiscard]] std::string ParseMeasurementMode(std::string_view text);
/// Parses one of the library's filter names ("No", "Pol", "D65", ...) in any case. Throws InputError.
[[nodiscard]] std::string ParseFilter(std::string_view text);
/// Returns one spelling for the ways in which files write a physical filter ("No", "Pol", "UV"); other texts
/// are unchanged.
[[nodiscard]] std::string CanonicalFilter(std::string_view text);

/// Sets these conditions in the library's context and removes any paper white.
void ApplyConditions(kv::IllumClass const& illuminant, kv::ObserverClass const& observer,
                     kv::DStdClass const& standard = kv::DStdClass(kv::DStdType::AnsiT));

}  // namespace evaluation
