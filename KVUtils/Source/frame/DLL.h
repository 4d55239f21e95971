// DLL: base class for a library that is loaded at run time.
#pragma once

#include <string>

namespace kv {

class DLL {
  public:
    /// Loads the library of this name plus the system's suffix (".dll", ".so"). Throws the system's error
    /// number as an `unsigned long`, never 0.
    explicit DLL(std::string const& name);
    /// Leaves the library loaded until the program exits, so that function pointers stay valid.
    virtual ~DLL() = default;
    DLL(DLL const&) = delete;
    DLL& operator=(DLL const&) = delete;

  protected:
    /// Returns the address of an exported function. Throws like the constructor if there is none.
    [[nodiscard]] void* GetFunctionPointer(std::string const& name) const;

  private:
    void* module_;
};

}  // namespace kv
