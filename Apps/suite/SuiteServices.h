// SuiteServices: the services that a program of the suite needs to exchange messages.
#pragma once

#include "SV/core/String.h"

#include <string>
#include <string_view>

namespace suite {

/// Path of the ini file that all programs share, in UTF-8: the environment variable KORVEL_INI, else
/// KORVEL.INI in the user's folder for settings ($XDG_CONFIG_HOME or ~/.config; %APPDATA% on Windows).
[[nodiscard]] std::string SuiteIniFile();

/// Path of a program's own ini file in the same folder, for `kv::AppConfig`.
[[nodiscard]] sv::String ProgramIniFile(std::string const& program);

// "en" and "de" have texts, and country codes 1 and 49. Any other language is English.
[[nodiscard]] int CountryCodeOf(std::string_view language) noexcept;
[[nodiscard]] char const* LanguageOf(int countryCode) noexcept;

/// Creates the services in their order, from the suite's configuration to the post office. The destructor
/// ends all conversations with other programs. Only one object may exist at a time.
class SuiteServices {
  public:
    /// Other programs reach this one as `name`. Its texts are the files NAMEn.lng in the folder LNG beside
    /// the programs' folder, where n is a country code. `language` is a country code, 0 for the system's.
    SuiteServices(sv::String const& name, sv::String const& version, int language = 0);
    SuiteServices(SuiteServices const&) = delete;
    SuiteServices& operator=(SuiteServices const&) = delete;
    ~SuiteServices();
};

}  // namespace suite
