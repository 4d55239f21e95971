// CriticalSection: a scoped lock on a name.
#pragma once

#include <mutex>

namespace kv {

class CriticalSection {
  public:
    /// Waits until no other thread holds a section of this name. One thread may hold several of the same
    /// name. A section is created when its name is first used, from any thread, and lasts until the program
    /// exits. Null is the empty name.
    explicit CriticalSection(char const* name);
    CriticalSection(CriticalSection const&) = delete;
    CriticalSection& operator=(CriticalSection const&) = delete;

  private:
    std::unique_lock<std::recursive_mutex> lock_;
};

}  // namespace kv
