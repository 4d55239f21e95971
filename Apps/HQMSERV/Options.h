// Options: the command line of HQMSERV.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace hqmserv {

struct Options {
    std::string file;       // to replay; empty for the file that the suite's ini file names
    bool isCalled = false;  // -S: started by a message, without a terminal
    int language = 0;       // -LNG n: a country code; 0 for the system's language
    std::chrono::milliseconds measuringTime{0};
    bool wantsHelp = false;
    bool wantsVersion = false;
};

/// Throws std::invalid_argument with one line for the user.
[[nodiscard]] Options ParseOptions(std::vector<std::string> const& arguments);

inline constexpr char Usage[] =
    R"(usage: HQMSERV [FILE] [-S] [-LNG N] [--measuring-time MS]

A measuring server without an instrument: replays the measurements of FILE (CGATS, ISO 28178, CSV or a data file),
one patch for each measurement that a program requests. Exits one second after its last client has disconnected.

  FILE                 default: key "Measurements" in group "HQM-Server" of the suite's ini file ($KORVEL_INI,
                       else KORVEL.INI in the user's folder for settings)
  -S                   started by a program's first message: print nothing, exit if no client connects
  -LNG N               language of the display by country code: 1 English, 49 German
  --measuring-time MS  duration of a measurement (default 0)
  --help, --version
)";

}  // namespace hqmserv
