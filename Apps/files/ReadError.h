// ReadError: why a measurement file cannot be read, and the functions that compose its message.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace files {

/// A file that cannot be read. what() is one line: "FILE:LINE: found X, expected Y" or "FILE: no such file".
class ReadError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A line of a file. Lines count from 1; 0 is the whole file.
struct Location {
    std::string_view file;
    std::size_t line = 0;
};

/// Throws a ReadError "FILE:LINE: PROBLEM".
[[noreturn]] void Fail(Location const& location, std::string_view problem);
/// Throws a ReadError "FILE:LINE: found X, expected Y".
[[noreturn]] void Fail(Location const& location, std::string_view found, std::string_view expected);

/// Quotes a piece of a file for a message: valid UTF-8 without control characters, shortened if it is long.
[[nodiscard]] std::string Excerpt(std::string_view text);

}  // namespace files
