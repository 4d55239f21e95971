// Environment: the surroundings of a run of the program, which tests replace.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace kvcolor {

struct Environment {
    using Clock = std::chrono::steady_clock;

    std::ostream& out;
    std::ostream& err;
    bool outIsTerminal = false;
    bool errIsTerminal = false;
    /// Returns an environment variable; empty if it is not set.
    std::function<std::string(char const* name)> variable = [](char const*) { return std::string(); };
    std::function<Clock::time_point()> now = &Clock::now;
    /// Returns whether the user has pressed Ctrl-C.
    std::function<bool()> isInterrupted = [] { return false; };
    /// Starts the printing backend, which lives as long as the result; null if there is none.
    std::function<std::shared_ptr<void>()> beginPrinting = [] { return std::shared_ptr<void>(); };
};

}  // namespace kvcolor
