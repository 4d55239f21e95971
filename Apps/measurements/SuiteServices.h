// SuiteServices: what a program needs before it can talk to the others of the suite.
#pragma once

#include "SV/core/String.h"

#include <string>

namespace measurements {

/// The ini file that all programs share, in UTF-8: the one that the environment variable KORVEL_INI names,
/// else KORVEL.INI in the user's folder for settings ($XDG_CONFIG_HOME or ~/.config; %APPDATA% on Windows).
[[nodiscard]] std::string SuiteIniFile();

/// Creates the services in their order, from the suite's configuration to the post office, for as long as the
/// object lives; then the conversations with other programs end. One at a time.
class SuiteServices {
  public:
    /// `name` is the one under which other programs reach this one. The texts are those of the files
    /// NAMEn.lng in the folder LNG beside the programs' own, where n is a country code; `language` is one
    /// too, 0 for the system's.
    SuiteServices(sv::String const& name, sv::String const& version, int language = 0);
    SuiteServices(SuiteServices const&) = delete;
    SuiteServices& operator=(SuiteServices const&) = delete;
    ~SuiteServices();
};

}  // namespace measurements
