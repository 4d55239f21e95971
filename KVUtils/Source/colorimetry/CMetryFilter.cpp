#include "KVUtils/Source/colorimetry/CMetryFilter.h"

#include "KVUtils/Source/colorimetry/detail/StandardFilters.h"

namespace kv {

namespace {

constinit CMetryFilter const standard = StandardFilters::D65TwoDegrees();

}  // namespace

CMetryFilter::CMetryFilter() noexcept : CMetryFilter(standard) {}

CMetryFilter::CMetryFilter(Lichtart const& illuminant, Observer const& observer) noexcept
    : observer_(observer.GetObserver()), illuminant_(illuminant.GetIllum()) {
    for (int i = 0; i < 3; ++i) weights_[i] = observer[i].FilterXFilter(illuminant.GetFilter());
}

CMetryFilter::CMetryFilter(Filter const* weights) noexcept
    : CMetryFilter({weights[0], weights[1], weights[2]}, ObserverClass(ObserverType::ClientSpecific),
                   IllumClass(IllumType::Custom)) {
    for (Filter& filter : weights_) filter.CalculateSumme();
}

CMetryFilter::CMetryFilter(CMetryFilter const& other) noexcept
    : weights_(other.weights_), observer_(other.observer_), illuminant_(other.illuminant_) {
    for (Filter& filter : weights_) filter.CalculateSumme();
}

CMetryFilter& CMetryFilter::operator=(CMetryFilter const& other) noexcept {
    for (std::size_t i = 0; i < weights_.size(); ++i) weights_[i].AssignWeights(other.weights_[i]);
    observer_ = other.observer_;
    illuminant_ = other.illuminant_;
    return *this;
}

}  // namespace kv
