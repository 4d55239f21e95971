// Observer: the three colour-matching functions of a standard observer.
#pragma once

#include "KVUtils/Source/colorimetry/Filter.h"
#include "KVUtils/Source/colorimetry/Selectors.h"

#include <array>

namespace kv {

class Observer {
  public:
    /// CIE 1931 or CIE 1964 (CIE 15). The client specific observer has three filters of weight 0 that are not
    /// defined; any other value too, after an `InfoBox` that says so.
    explicit Observer(ObserverClass const& observer);

    [[nodiscard]] ObserverClass const& GetObserver() const noexcept { return observer_; }
    /// 0 is x, 1 is y, 2 is z; the index is not checked.
    [[nodiscard]] Filter const& operator[](int function) const noexcept { return functions_[function]; }

  private:
    ObserverClass observer_;
    std::array<Filter, 3> functions_;
};

}  // namespace kv
