// ApplicationList: the programs that messages can be sent to, by number, with name and directory.
#pragma once

#include "SV/core/DirEntry.h"
#include "SV/core/String.h"

#include <memory>
#include <vector>

namespace kv::detail {

class ApplicationList {
  public:
    /// Returns the programs of the suite's ini file: 0 is the measuring server, 1 stays empty, and the others
    /// follow in file order. Without an entry the server is HQMSERV in the directory of the running program.
    [[nodiscard]] static ApplicationList OfTheSuite();

    /// Appends a program and returns the new number of slots.
    int Add(sv::String const& path, sv::String const& name);
    /// Empties a slot; the others keep their numbers. False if there is no such slot.
    bool Empty(int number);

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(slots_.size()); }
    /// Returns the first number with this name, ignoring the case of ASCII letters; -1 if there is none.
    [[nodiscard]] int Find(sv::String const& name) const noexcept;
    /// Null for an empty slot, and if there is no such slot.
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
