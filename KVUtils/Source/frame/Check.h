// Check and DisplayError: report programming errors and database errors to the user, with the source position
// that the developers need.
//
// On an error these functions do not return: once the box is closed they throw the `int` 1. Destructors clean
// up, and the application's main loop catches the `int`.
#pragma once

#include "SV/core/String.h"

namespace kv {

class Check {
  public:
    /// Returns "Module: ...   Date: ...   Time: ...   Line: ...", with the source file's name, the day and
    /// time of its build, and the line.
    [[nodiscard]] static sv::String CommonErrStr(char const* module, char const* date, char const* time,
                                                 int line);

    /// Returns if the database's result code is 0 to 1999; shows any other and throws.
    static void POET(int code, char const* module, char const* date, char const* time, int line);

    /// Returns if the pointer is not null; otherwise shows a box and throws.
    static void POINTER(void const* pointer, char const* module, char const* date, char const* time,
                        int line);

    /// The same with the position of the call: its file without the path, the day and time at which this
    /// library was built, and its line.
    static void POINTER(void const* pointer, char const* file = __builtin_FILE(),
                        int line = __builtin_LINE());

    /// Returns the day and the time at which this library was built, as `__DATE__` and `__TIME__` give them.
    [[nodiscard]] static char const* BuildDate() noexcept;
    [[nodiscard]] static char const* BuildTime() noexcept;
};

/// Shows the number of an internal error and throws.
[[noreturn]] void DisplayError(int number, char const* module, char const* date, char const* time, int line);

}  // namespace kv
