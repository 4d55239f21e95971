// RuntimeDirectory: replaces the user's directory for sockets by a private one. Windows keeps conversations
// in the session and needs none.
#pragma once

#include "Platform/Tests/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tests {

class RuntimeDirectory {
  public:
    RuntimeDirectory() { Set(directory_.Path().string()); }
    RuntimeDirectory(RuntimeDirectory const&) = delete;
    RuntimeDirectory& operator=(RuntimeDirectory const&) = delete;
    ~RuntimeDirectory() { Set(before_); }

    [[nodiscard]] std::filesystem::path const& Path() const noexcept { return directory_.Path(); }
    /// Returns the directory of the sockets.
    [[nodiscard]] std::filesystem::path Sockets() const { return Path() / "kvutils-dde"; }

  private:
#ifdef _WIN32
    static std::string Get() { return {}; }
    static void Set(std::string const& /*path*/) {}
#else
    static std::string Get() {
        char const* const path = std::getenv("XDG_RUNTIME_DIR");
        return path == nullptr ? "" : path;
    }
    static void Set(std::string const& path) {
        if (path.empty()) {
            unsetenv("XDG_RUNTIME_DIR");
        } else {
            setenv("XDG_RUNTIME_DIR", path.c_str(), 1);
        }
    }
#endif

    std::string before_ = Get();
    TemporaryDirectory directory_;
};

}  // namespace tests
