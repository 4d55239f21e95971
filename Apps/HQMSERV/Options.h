// Options: what HQMSERV is told on its command line.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace hqmserv {

struct Options {
    std::string file;       // the measurements to play; empty for those that the suite's ini file names
    bool isCalled = false;  // -S: started by a message, with nobody at the terminal
    int language = 0;       // -LNG n: a country code; 0 for the system's language
    std::chrono::milliseconds measuringTime{0};
    bool wantsHelp = false;
    bool wantsVersion = false;
};

/// Throws std::invalid_argument with one line for a person.
[[nodiscard]] Options ParseOptions(std::vector<std::string> const& arguments);

inline constexpr char Usage[] =
    R"(usage: HQMSERV [FILE] [-S] [-LNG N] [--measuring-time MS]

A measuring server without an instrument: it plays the measurements of FILE (CGATS, ISO 28178, CSV or a data file)
to the programs that ask for them, one patch a measurement, and ends a second after its last client.

  FILE                 without it, the file that the key "Measurements" of the group "HQM-Server" names in the
                       suite's ini file: $KORVEL_INI, else KORVEL.INI in the user's folder for settings
  -S                   started by a program's first message: says nothing, and ends when no client comes
  -LNG N               the language of the display, by country code: 1 English, 49 German
  --measuring-time MS  how long a measurement takes; 0 without it
  --help, --version
)";

}  // namespace hqmserv
