// Unusable: an argument, or a pair of argument and file, that gives no sensible computation.
#pragma once

#include <stdexcept>

namespace kvcolor {

/// what() says what was found and what there is instead.
class Unusable : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace kvcolor
