// ApplicationList: the programs that messages can be sent to, by number: name and directory of each.
#pragma once

#include "SV/core/DirEntry.h"
#include "SV/core/String.h"

#include <memory>
#include <vector>

namespace kv::detail {

class ApplicationList {
  public:
    /// The programs that the suite's ini file names: 0 is the measuring server, 1 stays empty, and the others
    /// follow in the order of the file. Without an entry the server is HQMSERV, beside the running program.
    [[nodiscard]] static ApplicationList OfTheSuite();

    /// Appends a program and returns how many slots there are now.
    int Add(sv::String const& path, sv::String const& name);
    /// Empties a slot; the others keep their numbers. False when there is no such slot.
    bool Empty(int number);

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(slots_.size()); }
    /// The first number with this name, without regard to the case of ASCII letters; -1 when there is none.
    [[nodiscard]] int Find(sv::String const& name) const noexcept;
    /// Null for an empty slot, and when there is no such slot.
    [[nodiscard]] sv::String* Name(unsigned number) const noexcept;
    [[nodiscard]] sv::String* Path(unsigned number) const noexcept;

  private:
    struct Application {
        sv::String path;
        sv::String name;
    };

    void AddProgram(sv::DirEntry program);
    [[nodiscard]] Application* Slot(unsigned number) const noexcept;

    std::vector<std::unique_ptr<Application>> slots_;  // callers keep pointers to names
};

}  // namespace kv::detail
