// Descriptor: owns a file descriptor.
#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace platform::detail {

class Descriptor {
  public:
    constexpr Descriptor() noexcept = default;
    constexpr explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    [[nodiscard]] int Number() const noexcept { return number_; }
    [[nodiscard]] explicit operator bool() const noexcept { return number_ >= 0; }
    /// Gives up the number, which the caller must close.
    [[nodiscard]] int Release() noexcept { return std::exchange(number_, -1); }

  private:
    int number_ = -1;
};

/// Repeats a system call that a signal interrupted.
template <class Call>
auto Retry(Call const& call) noexcept {
    while (true) {
        auto const result = call();
        if (result != -1 || errno != EINTR) return result;
    }
}

}  // namespace platform::detail
