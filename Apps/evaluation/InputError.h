// InputError: an argument, or an argument and a file, that cannot be computed with.
#pragma once

#include <stdexcept>

namespace evaluation {

/// what() is one line: what is wrong, then what to do.
class InputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace evaluation
