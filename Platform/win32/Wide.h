// Wide: conversions from UTF-8, which the services take, to UTF-16, which the system takes.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <utility>

namespace platform::detail {

[[nodiscard]] std::wstring Decode(std::string_view text, UINT codePage);
/// A character that the code page lacks becomes "?", never a similar one.
[[nodiscard]] std::string Encode(std::wstring_view text, UINT codePage);

[[nodiscard]] inline std::wstring Widen(std::string_view utf8) { return Decode(utf8, CP_UTF8); }
[[nodiscard]] inline std::string Narrow(std::wstring_view text) { return Encode(text, CP_UTF8); }

/// Owns a handle of a system object.
class Handle {
  public:
    Handle() noexcept = default;
    explicit Handle(HANDLE handle) noexcept : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Handle(Handle const&) = delete;
    Handle& operator=(Handle const&) = delete;
    ~Handle() {
        if (handle_ != nullptr) ::CloseHandle(handle_);
    }

    [[nodiscard]] HANDLE Get() const noexcept { return handle_; }
    [[nodiscard]] explicit operator bool() const noexcept { return handle_ != nullptr; }
    /// Gives up the handle, which the caller must close.
    [[nodiscard]] HANDLE Release() noexcept { return std::exchange(handle_, nullptr); }

  private:
    HANDLE handle_ = nullptr;
};

}  // namespace platform::detail
