// Check and DisplayError: programming errors and errors of the database, shown to the person at the program
// with the source position that tells the developers where they come from.
//
// After an error these functions do not return: when the box is closed they throw the `int` 1. Clean-up is
// done by destructors, and the application's main loop catches the `int`.
#pragma once

#include "SV/core/String.h"

namespace kv {

class Check {
  public:
    /// "Module: ", the source file's name, "   Date: ", "   Time: ", both of its build, "   Line: " and the
    /// line, each followed by what it announces.
    [[nodiscard]] static sv::String CommonErrStr(char const* module, char const* date, char const* time,
                                                 int line);

    /// Returns if the database's result code is 0 to 1999; shows any other and throws.
    static void POET(int code, char const* module, char const* date, char const* time, int line);

    /// Returns if the pointer is not null; else shows a box and throws.
    static void POINTER(void const* pointer, char const* module, char const* date, char const* time,
                        int line);

    /// The same for the place where the call stands: its file, without the path, the date of this library's
    /// build, and its line.
    static void POINTER(void const* pointer, char const* file = __builtin_FILE(),
                        int line = __builtin_LINE());

    /// The day and the time at which this library was built, as the compiler writes them.
    [[nodiscard]] static char const* BuildDate() noexcept;
    [[nodiscard]] static char const* BuildTime() noexcept;
};

/// Shows the number of an internal error and throws.
[[noreturn]] void DisplayError(int number, char const* module, char const* date, char const* time, int line);

}  // namespace kv
