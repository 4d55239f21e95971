#include "Apps/evaluation/Conditions.h"

#include "Apps/evaluation/InputError.h"
#include "Apps/files/StatedConditions.h"
#include "Apps/files/Text.h"
#include "KVUtils/Source/colorimetry/CMetry.h"

#include <algorithm>
#include <array>
#include <vector>

namespace evaluation {

namespace {

using files::Key;
using files::Quoted;
using kv::DStdType;
using kv::IllumType;
using kv::ValueFilterType;

constexpr std::array<IllumType, 16> Tabled = {IllumType::A,  IllumType::C,   IllumType::D50, IllumType::D65,
                                              IllumType::F1, IllumType::F2,  IllumType::F3,  IllumType::F4,
                                              IllumType::F5, IllumType::F6,  IllumType::F7,  IllumType::F8,
                                              IllumType::F9, IllumType::F10, IllumType::F11, IllumType::F12};

constexpr std::array<DStdType, 7> Standards = {DStdType::AnsiA, DStdType::AnsiT, DStdType::AnsiM,
                                               DStdType::Din,   DStdType::DinNb, DStdType::Spi,
                                               DStdType::Ds1};

[[noreturn]] void FailUnknown(std::string_view what, std::string_view name, std::string const& choices) {
    throw InputError("unknown " + std::string(what) + ' ' + Quoted(name) + " (choose from " + choices + ')');
}

/// Returns the names of the library's instrument filters.
std::vector<std::string> FilterNames() {
    std::vector<std::string> names;
    for (int type = static_cast<int>(ValueFilterType::None); type <= static_cast<int>(ValueFilterType::D8t);
         ++type) {
        names.emplace_back(kv::ActualFilterClass(static_cast<ValueFilterType>(type)).Name());
    }
    return names;
}

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

kv::IllumClass ParseIlluminant(std::string_view name) {
    if (auto const illuminant = files::ToIlluminant(name)) return *illuminant;
    std::string const choices = "A, C, D50, D65, F1 to F12, D40 to D250";
    if (!kv::IllumClass::Parse(name)) FailUnknown("illuminant", name, choices);
    throw InputError("illuminant " + Quoted(name) + " has no spectral table (choose from " + choices + ')');
}

kv::ObserverClass ParseObserver(std::string_view name) {
    if (auto const observer = kv::ObserverClass::Parse(name)) return *observer;
    FailUnknown("observer", name, "2, 10");
}

kv::DStdClass ParseDensityStandard(std::string_view name) {
    if (auto const standard = kv::DStdClass::Parse(name)) return *standard;
    std::vector<std::string> choices;
    for (DStdType const type : Standards) choices.push_back(NameOf(kv::DStdClass(type)));
    FailUnknown("density standard", name, files::List(choices));
}

std::string ParseMeasurementMode(std::string_view text) {
    std::string mode(text);
    if (mode.starts_with('m')) mode[0] = 'M';
    if (mode == "M0" || mode == "M1" || mode == "M2" || mode == "M3") return mode;
    FailUnknown("measurement condition", text, "M0, M1, M2, M3");
}

std::string CanonicalFilter(std::string_view text) {
    std::string const key = Key(text);
    if (key == "NO" || key == "NONE" || key == "NOFILTER" || key == "OFF") return "No";
    if (key.starts_with("POL")) return "Pol";
    if (key.starts_with("UV")) return "UV";
    auto const filter = kv::ActualFilterClass::Parse(text);
    bool const isKnown = filter && *filter != ValueFilterType::Unknown;
    return std::string(isKnown ? filter->Name() : text);
}

std::string ParseFilter(std::string_view text) {
    std::vector<std::string> const names = FilterNames();
    std::string filter = CanonicalFilter(text);
    if (std::ranges::find(names, filter) != names.end()) return filter;
    FailUnknown("instrument filter", text, files::List(names));
}

void ApplyConditions(kv::IllumClass const& illuminant, kv::ObserverClass const& observer,
                     kv::DStdClass const& standard) {
    kv::CMetry::SetMeasuringConditions(
        kv::MeasuringCondition(illuminant, observer, standard, kv::PhysicalConditions()));
    kv::CMetry::EnterWhite(kv::Spectrum());
}

}  // namespace evaluation
