#include "Platform/CommandLine.h"

namespace platform {

std::vector<std::string> Arguments(int count, char const* const* values) {
    return {values + (count > 0 ? 1 : 0), values + count};
}

}  // namespace platform
