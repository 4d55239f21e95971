// CriticalSection: a lock on a name, held as long as the object lives.
#pragma once

#include <mutex>

namespace kv {

class CriticalSection {
  public:
    /// Waits until no other thread holds an object of this name. A thread may hold several of one name. What
    /// a name locks is made at its first use, by whichever thread comes first, and stays until the program
    /// ends.
    explicit CriticalSection(char const* name);
    CriticalSection(CriticalSection const&) = delete;
    CriticalSection& operator=(CriticalSection const&) = delete;

  private:
    std::unique_lock<std::recursive_mutex> lock_;
};

}  // namespace kv
