// TemporaryDirectory: a directory for one test, removed with its content by the destructor.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace tests {

class TemporaryDirectory {
  public:
    TemporaryDirectory() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("kvutils-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    TemporaryDirectory(TemporaryDirectory const&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory const&) = delete;
    ~TemporaryDirectory() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }

    [[nodiscard]] std::filesystem::path const& Path() const noexcept { return path_; }
    /// Returns the full name of an entry.
    [[nodiscard]] std::string operator/(std::string_view name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

/// Returns the bytes of a file; empty if there is no such file.
inline std::string Bytes(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void PutBytes(std::filesystem::path const& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace tests
