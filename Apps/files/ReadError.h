// ReadError: why a measurement file cannot be used, and the one way in which its text is put together.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace files {

/// A file that cannot be used. what() is one line: "FILE:LINE: found X, expected Y" (no line where there is
/// none).
class ReadError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Where in a file something stands. Lines count from 1; 0 is the file as a whole.
struct Place {
    std::string_view file;
    std::size_t line = 0;
};

/// Throws the ReadError of this place.
[[noreturn]] void Fail(Place const& place, std::string_view found, std::string_view expected);

/// A piece of a file for an error text or a note: in quotes, valid UTF-8, without control characters, and cut
/// when it is long.
[[nodiscard]] std::string Excerpt(std::string_view text);

}  // namespace files
