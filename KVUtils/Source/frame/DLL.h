// DLL: the base of a class that stands for a library loaded while the program runs.
#pragma once

#include <string>

namespace kv {

class DLL {
  public:
    /// Loads the library of this name, to which the system's ending (".dll", ".so") is added. Throws the
    /// system's error number as an `unsigned long`, never 0.
    explicit DLL(std::string const& name);
    /// The library stays loaded until the program ends, so that functions that were asked for stay callable.
    virtual ~DLL() = default;
    DLL(DLL const&) = delete;
    DLL& operator=(DLL const&) = delete;

  protected:
    /// The address of an exported function. Throws like the constructor when there is none.
    [[nodiscard]] void* GetFunctionPointer(std::string const& name) const;

  private:
    void* module_;
};

}  // namespace kv
