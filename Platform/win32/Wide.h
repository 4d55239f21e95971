// Wide: the system's calls take UTF-16, the services above take UTF-8.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <utility>

namespace platform::detail {

[[nodiscard]] std::wstring Decode(std::string_view text, UINT codePage);
/// A character that the code page lacks becomes "?", never one that looks alike.
[[nodiscard]] std::string Encode(std::wstring_view text, UINT codePage);

[[nodiscard]] inline std::wstring Widen(std::string_view utf8) { return Decode(utf8, CP_UTF8); }
[[nodiscard]] inline std::string Narrow(std::wstring_view text) { return Encode(text, CP_UTF8); }

/// An object of the system's that is closed when its owner goes.
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
    /// The handle, which the caller closes.
    [[nodiscard]] HANDLE Release() noexcept { return std::exchange(handle_, nullptr); }

  private:
    HANDLE handle_ = nullptr;
};

}  // namespace platform::detail
