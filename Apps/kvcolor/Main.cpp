// The program kvcolor: connects Run with the standard streams.
#include "Apps/kvcolor/Run.h"
#include "Apps/kvcolor/output/Messages.h"
#include "Apps/kvcolor/printing/Printing.h"
#include "Platform/CommandLine.h"
#include "Platform/Terminal.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <system_error>

namespace {

volatile std::sig_atomic_t isInterrupted = 0;

/// Watches for Ctrl-C from the first call on; before, it ends the program at once.
bool Interrupted() {
    static bool const isWatched = [] {
        std::signal(SIGINT, [](int) { isInterrupted = 1; });
        return true;
    }();
    return isWatched && isInterrupted != 0;
}

std::string Variable(char const* name) {
    char const* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

}  // namespace

int main(int argc, char** argv) {
    platform::PrepareStandardOutput();
    kvcolor::Environment const environment{.out = std::cout,
                                           .err = std::cerr,
                                           .outIsTerminal = platform::IsTerminal(stdout),
                                           .errIsTerminal = platform::IsTerminal(stderr),
                                           .variable = &Variable,
                                           .isInterrupted = &Interrupted,
                                           .beginPrinting = &kvcolor::BeginPrinting};

    // A write fails while the answer is delivered or at the end; nothing in between sets errno.
    errno = 0;
    int const status = kvcolor::Run(platform::Arguments(argc, argv), environment);
    if (std::cout.flush()) return status;
    int const reason = errno;
    // The reader of the output has enough.
    if (reason == EPIPE) return kvcolor::OutputFailed;
    kvcolor::Messages(std::cerr).Error("cannot write the output" +
                                       (reason == 0 ? "" : ": " + std::generic_category().message(reason)));
    return kvcolor::OutputFailed;
}
