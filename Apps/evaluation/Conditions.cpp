#include "Apps/evaluation/Conditions.h"

#include "KVUtils/Source/colorimetry/CMetry.h"

#include <array>

namespace evaluation {

namespace {

using kv::DStdType;
using kv::IllumType;

constexpr std::array<IllumType, 16> Tabled = {IllumType::A,  IllumType::C,   IllumType::D50, IllumType::D65,
                                              IllumType::F1, IllumType::F2,  IllumType::F3,  IllumType::F4,
                                              IllumType::F5, IllumType::F6,  IllumType::F7,  IllumType::F8,
                                              IllumType::F9, IllumType::F10, IllumType::F11, IllumType::F12};

constexpr std::array<DStdType, 7> Standards = {DStdType::AnsiA, DStdType::AnsiT, DStdType::AnsiM,
                                               DStdType::Din,   DStdType::DinNb, DStdType::Spi,
                                               DStdType::Ds1};

}  // namespace

std::span<IllumType const> TabledIlluminants() noexcept { return Tabled; }
std::span<DStdType const> DensityStandards() noexcept { return Standards; }

bool HasColourFilters(kv::DStdClass const& standard) noexcept {
    return standard != DStdType::AnsiM && standard != DStdType::Ds1;
}

std::string NameOf(kv::IllumClass const& illuminant) { return std::string(sv::String(illuminant).View()); }

std::string NameOf(kv::ObserverClass const& observer) {
    return observer == kv::ObserverType::TenDegrees ? "10 degrees" : "2 degrees";
}

std::string NameOf(kv::DStdClass const& standard) { return std::string(sv::String(standard).View()); }

void PutInForce(kv::IllumClass const& illuminant, kv::ObserverClass const& observer,
                kv::DStdClass const& standard) {
    kv::CMetry::SetMeasuringConditions(
        kv::MeasuringCondition(illuminant, observer, standard, kv::PhysicalConditions()));
    kv::CMetry::EnterWhite(kv::Spectrum());
}

}  // namespace evaluation
