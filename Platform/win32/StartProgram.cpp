#include "Platform/Process.h"
#include "Platform/Utf8Path.h"

#include <windows.h>

#include <filesystem>

namespace platform {

namespace {

namespace fs = std::filesystem;

/// Changes the current directory for the lifetime of the object.
class CurrentDirectory {
  public:
    explicit CurrentDirectory(std::optional<std::string> const& directory) {
        std::error_code error;
        if (directory) fs::current_path(PathOf(*directory), error);
    }
    CurrentDirectory(CurrentDirectory const&) = delete;
    CurrentDirectory& operator=(CurrentDirectory const&) = delete;
    ~CurrentDirectory() {
        std::error_code error;
        fs::current_path(before_, error);
    }

  private:
    fs::path before_ = fs::current_path();
};

/// Converts UTF-8 to the system's code page.
std::string Ansi(std::string const& text) {
    std::wstring const wide = PathOf(text).wstring();
    int const size = WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0,
                                         nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), result.data(), size, nullptr,
                        nullptr);
    return result;
}

}  // namespace

bool StartProgram(std::string const& commandLine, std::optional<std::string> const& directory) {
    constexpr UINT LargestError = 31;
    CurrentDirectory const here(directory);
    return WinExec(Ansi(commandLine).c_str(), SW_MINIMIZE) > LargestError;
}

}  // namespace platform
