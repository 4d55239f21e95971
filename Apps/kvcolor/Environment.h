// Environment: what surrounds a run of the program, so that tests can stand in for it.
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
    /// An environment variable; empty when it is not set.
    std::function<std::string(char const* name)> variable = [](char const*) { return std::string(); };
    std::function<Clock::time_point()> now = &Clock::now;
    /// Whether the person has had enough (Ctrl-C).
    std::function<bool()> isInterrupted = [] { return false; };
    /// Brings up what prints, for as long as the answer lives; null where there is nothing.
    std::function<std::shared_ptr<void>()> beginPrinting = [] { return std::shared_ptr<void>(); };
};

}  // namespace kvcolor
