#include "Platform/Process.h"
#include "Platform/win32/Wide.h"

#include <string>

namespace platform {

namespace {

/// Changes the current directory for the lifetime of the object; one that cannot be entered changes nothing.
class CurrentDirectory {
  public:
    explicit CurrentDirectory(std::optional<std::string> const& directory) {
        if (directory) SetCurrentDirectoryW(detail::Widen(*directory).c_str());
    }
    CurrentDirectory(CurrentDirectory const&) = delete;
    CurrentDirectory& operator=(CurrentDirectory const&) = delete;
    ~CurrentDirectory() { SetCurrentDirectoryW(before_.c_str()); }

  private:
    static std::wstring Now() {
        std::wstring name(GetCurrentDirectoryW(0, nullptr), L'\0');
        name.resize(GetCurrentDirectoryW(static_cast<DWORD>(name.size()), name.data()));
        return name;
    }

    std::wstring before_ = Now();
};

}  // namespace

bool StartProgram(std::string const& commandLine, std::optional<std::string> const& directory) {
    constexpr UINT LargestError = 31;
    CurrentDirectory const here(directory);
    return WinExec(detail::Encode(detail::Widen(commandLine), CP_ACP).c_str(), SW_MINIMIZE) > LargestError;
}

}  // namespace platform
