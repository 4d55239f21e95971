#include "KVUtils/Source/frame/CriticalSection.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace kv {

namespace {

struct Registry {
    std::mutex mutex;
    std::map<std::string, std::recursive_mutex, std::less<>> sections;
};

std::recursive_mutex& Section(std::string_view name) {
    // Never destroyed: a thread may still hold or request a section while the program exits.
    static Registry& registry = *new Registry;
    std::lock_guard const guard(registry.mutex);
    auto const found = registry.sections.find(name);
    return found != registry.sections.end() ? found->second : registry.sections[std::string(name)];
}

}  // namespace

CriticalSection::CriticalSection(char const* name) : lock_(Section(name == nullptr ? "" : name)) {}

}  // namespace kv
