#include "KVUtils/Source/metrics/Metamerie.h"

#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/metrics/DeltaE.h"

namespace kv {

Metamerie::operator sv::String() const {
    return GString(index_, 4, 1) + " (" + sv::String(reference_) + "->" + sv::String(test_) + ")";
}

MetamerieRechner::MetamerieRechner(Spectrum const& standard, CMetryFilter const& reference,
                                   CMetryFilter const& test) noexcept
    : reference_(reference),
      test_(test),
      standardUnderReference_(reference_, standard),
      standardUnderTest_(test_, standard) {}

MetamerieRechner::MetamerieRechner(Spectrum const& standard, IllumClass const& reference,
                                   IllumClass const& test, Observer const& observer) noexcept
    : MetamerieRechner(standard, CMetryFilter(Lichtart(reference), observer),
                       CMetryFilter(Lichtart(test), observer)) {}

// One observer for both illuminants, so that an invalid one shows one box.
MetamerieRechner::MetamerieRechner(Spectrum const& standard, IllumClass const& reference,
                                   IllumClass const& test, ObserverClass const& observer)
    : MetamerieRechner(standard, reference, test, Observer(observer)) {}

Metamerie MetamerieRechner::RechneMetamerie(Spectrum const& sample) noexcept {
    XYZVector const underReference(reference_, sample);
    XYZVector underTest(test_, sample);
    if (underReference[0] != 0 && underReference[1] != 0 && underReference[2] != 0) {
        XYZVector correction = standardUnderReference_;
        correction /= underReference;
        underTest *= correction;
    }
    LABVector const corrected(test_, underTest);
    return Metamerie(DeltaE::CIELAB(corrected, standardUnderTest_), reference_.GetIllum(), test_.GetIllum());
}

}  // namespace kv
