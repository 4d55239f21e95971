// CMetry: the colorimetric context of the process. The application sets the conditions once per change of
// setup; constructors of vectors and densities read them. There is one context.
//
// The initial state is set before any code of the application runs, static initialisers included: D65 with
// the 2 degree observer, DIN density, no paper white. `xyzSumme` and the gamma tables are 0 until conditions
// are set, so `KSSpectrum::mean` and `RGBVector` need `SetMeasuringConditions` first.
//
// Threads: nothing here is locked. Set conditions from one thread while no other computes; constructors that
// take no weights read them, and may update the cached sums. Threads that need conditions of their own give
// each its own `CMetryFilter` and pass it to the constructors: copying from one shared `CMetryFilter const`
// is safe at any time, and computing with the copies too.
#pragma once

#include "KVUtils/Source/colorimetry/CMetryFilter.h"
#include "KVUtils/Source/colorimetry/MeasuringCondition.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"
#include "KVUtils/Source/metrics/DichteFilter.h"

#include <array>
#include <span>

namespace kv {

class CMetry {
  public:
    CMetry() = delete;

    /// The weights in force, with their illuminant and observer.
    static CMetryFilter LXYZFilter;
    /// The weights of the display: D65 with the 2 degree observer, always.
    static CMetryFilter RGBFilter;
    /// x + y + z of the observer in force, without any illuminant; 0 until conditions are set.
    static Filter xyzSumme;
    /// The density filters in force.
    static DichteFilter aDichteFilter;
    /// The physical conditions in force.
    static PhysicalConditions aPhysicalCondition;
    /// The paper white entered last, and whether it is in force.
    static Spectrum amPaperWhiteSpec;
    static unsigned char PapierSpektrumDefiniert;
    /// The paper white's response in each density channel, with the filters that were in force when it was
    /// entered.
    static std::array<float, 4> PapierweissNormfaktor;

    /// Puts an illuminant and an observer in force. The custom illuminant leaves weights 0 until
    /// `SetCustomLXYZ` follows, and `xyzSumme` unchanged.
    static void SetCMetry(IllumClass const& illuminant, ObserverClass const& observer);
    /// Puts a caller's own weights in force, with their illuminant and observer.
    static void SetCustomLXYZ(CMetryFilter const& weights) noexcept;
    static void SetDensityStandard(DStdClass const& standard) noexcept;
    /// Enters the paper white; a spectrum whose samples sum to exactly 0 withdraws it. The response factors
    /// are those of the current density filters: enter the white again after changing the standard.
    static void EnterWhite(Spectrum const& white) noexcept;
    /// Puts the whole condition in force, including what it leaves unset: without an illuminant the weights
    /// are 0 and vectors NaN, without an observer too, after a box; without a density standard all but the
    /// visual density are 0. Set all three. Keeps the paper white and its response factors.
    static void SetMeasuringConditions(MeasuringCondition const& condition);
    /// Sets `condition` to the conditions in force.
    static void GetMeasuringConditions(MeasuringCondition& condition) noexcept;

    /// The selectors in force, as references that follow later changes.
    [[nodiscard]] static ObserverClass const& GetObserver() noexcept { return LXYZFilter.GetObserver(); }
    [[nodiscard]] static IllumClass const& GetIllum() noexcept { return LXYZFilter.GetIllum(); }

    /// The wavelength in nm, from 410 to 700, at which the density -log10(reflectance) is greatest, and that
    /// density. Of equal ones the nearest to 560 nm wins. With `relative` and a paper white in force,
    /// reflectance is taken relative to it. 380 with density 0 when no sample is above 0 and at most 1.
    static short GetMaxDensity(Spectrum const& spectrum, float& density, bool relative) noexcept;

    /// Rescales `spectrum` to the colour strength of `reference` by the single-constant Kubelka-Munk relation
    /// K/S = (1 - r)^2 / (2 r). A sample outside (0, 1] comes out as 1.
    static void ToEqualStrength(Spectrum& spectrum, Spectrum const& reference) noexcept;

    /// The number of entries of a display channel's gamma table: two for each of 256 input levels.
    static constexpr std::size_t GammaEntries = 512;
    /// The table of display channel 0, 1 or 2: entry k is (k / 2 / 255)^(1 / 0.45). All 0 until
    /// `SetMeasuringConditions`.
    [[nodiscard]] static std::span<float const, GammaEntries> GammaTable(int channel) noexcept;

  private:
    static std::array<std::array<float, GammaEntries>, 3> gamma_;
};

}  // namespace kv
