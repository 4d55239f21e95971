// Remark: a line for the user on how a result was obtained.
#pragma once

#include <string>
#include <vector>

namespace evaluation {

struct Remark {
    /// A note reports a choice; a warning, a result that may differ from what is expected.
    enum class Kind : int { Note, Warning };

    Kind kind;
    std::string text;
};

using Remarks = std::vector<Remark>;

}  // namespace evaluation
