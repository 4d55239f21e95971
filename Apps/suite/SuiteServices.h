// SuiteServices: what a program needs before it can talk to the others of the suite.
#pragma once

#include "SV/core/String.h"

#include <string>
#include <string_view>

namespace suite {

/// The ini file that all programs share, in UTF-8: the one that the environment variable KORVEL_INI names,
/// else KORVEL.INI in the user's folder for settings ($XDG_CONFIG_HOME or ~/.config; %APPDATA% on Windows).
[[nodiscard]] std::string SuiteIniFile();

/// The ini file of one program alone, in the user's folder for settings; as `kv::AppConfig` takes it.
[[nodiscard]] sv::String ProgramIniFile(std::string const& program);

// The languages that there are texts in: "en" and "de", and their country codes. Any other is English.
[[nodiscard]] int CountryCodeOf(std::string_view language) noexcept;
[[nodiscard]] char const* LanguageOf(int countryCode) noexcept;

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

}  // namespace suite
