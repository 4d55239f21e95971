// The conditions of a measurement and of a colour value. `PhysicalConditions` describe the measurement
// itself; `MeasuringCondition` adds what was chosen for the computation.
#pragma once

#include "KVUtils/Source/colorimetry/Selectors.h"
#include "SV/core/String.h"

namespace kv {

class PhysicalConditions {
  public:
    /// Filter not set, white base absolute.
    constexpr PhysicalConditions() noexcept = default;
    constexpr PhysicalConditions(ActualFilterClass const& filter, WBaseClass const& whiteBase) noexcept
        : filter_(filter), whiteBase_(whiteBase) {}

    [[nodiscard]] constexpr ActualFilterClass const& GetActualFilter() const noexcept { return filter_; }
    [[nodiscard]] constexpr WBaseClass const& GetWBase() const noexcept { return whiteBase_; }
    constexpr void SetActualFilterClass(ActualFilterClass filter) noexcept { filter_ = filter; }

    /// "[filter,white base]".
    operator sv::String() const;

    /// Compares the written texts, so that all values without a name are equal to one another.
    friend bool operator==(PhysicalConditions const& a, PhysicalConditions const& b) noexcept;

  private:
    ActualFilterClass filter_{ValueFilterType::NotSet};
    WBaseClass whiteBase_{StoredWBaseType::Absolute};
};

class MeasuringCondition : public PhysicalConditions {
  public:
    /// Nothing set.
    constexpr MeasuringCondition() noexcept = default;
    /// The density standard stays unset; see `CMetry::SetMeasuringConditions`.
    constexpr MeasuringCondition(IllumClass const& illuminant, ObserverClass const& observer,
                                 PhysicalConditions const& physical) noexcept
        : PhysicalConditions(physical), illuminant_(illuminant), observer_(observer) {}
    /// Illuminant and observer stay unset.
    constexpr MeasuringCondition(DStdClass const& standard, PhysicalConditions const& physical) noexcept
        : PhysicalConditions(physical), standard_(standard) {}
    constexpr MeasuringCondition(IllumClass const& illuminant, ObserverClass const& observer,
                                 DStdClass const& standard, PhysicalConditions const& physical) noexcept
        : PhysicalConditions(physical), illuminant_(illuminant), observer_(observer), standard_(standard) {}

    [[nodiscard]] constexpr IllumClass const& GetIllum() const noexcept { return illuminant_; }
    [[nodiscard]] constexpr ObserverClass const& GetObserver() const noexcept { return observer_; }
    [[nodiscard]] constexpr DStdClass const& GetDStd() const noexcept { return standard_; }

    /// "[illuminant,observer,density standard,filter,white base]"; omits the first three where they are not
    /// set.
    operator sv::String() const;

    /// Compares filter, white base and observer by text, the illuminant by its own rule. Ignores the density
    /// standard, so that densities and colours of one measurement have equal conditions.
    friend bool operator==(MeasuringCondition const& a, MeasuringCondition const& b) noexcept;

  private:
    IllumClass illuminant_{IllumType::NotSet};
    ObserverClass observer_{ObserverType::NotSet};
    DStdClass standard_{DStdType::NotSet};
};

}  // namespace kv
