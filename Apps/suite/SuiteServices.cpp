#include "Apps/suite/SuiteServices.h"

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "Platform/CommandLine.h"
#include "Platform/UserFolders.h"
#include "Platform/Utf8Path.h"
#include "SV/core/Application.h"
#include "SV/core/NativePath.h"

#include <cstdlib>
#include <filesystem>

namespace suite {

namespace {

constexpr int English = 1;
constexpr int German = 49;

}  // namespace

std::string SuiteIniFile() {
    char const* const named = std::getenv("KORVEL_INI");  // NOLINT(concurrency-mt-unsafe): nothing sets it
    std::filesystem::path const file = named != nullptr && *named != '\0'
                                           ? std::filesystem::path(named)
                                           : platform::SettingsFolder() / "KORVEL.INI";
    return platform::Utf8Of(file);
}

sv::String ProgramIniFile(std::string const& program) {
    return sv::FromNativePath(platform::Utf8Of(platform::SettingsFolder() / (program + ".ini")));
}

int CountryCodeOf(std::string_view language) noexcept { return language == "de" ? German : English; }
char const* LanguageOf(int countryCode) noexcept { return countryCode == German ? "de" : "en"; }

SuiteServices::SuiteServices(sv::String const& name, sv::String const& version, int language) {
    kv::KORVELConfig::CreateKORVELConfig(sv::FromNativePath(SuiteIniFile()));
    kv::AppDir::CreateAppDir(sv::FromNativePath(platform::RunningProgram()));
    kv::AppName::CreateAppName(name, version);
    sv::DirEntry const texts = kv::AppDir::Instance()->LngDirEntry() + (sv::String(name).Lower() + "1.lng");
    kv::Language::CreateLanguage(nullptr, texts.GetFull());
    if (language != 0) kv::Language::SetLanguageByCountryCode(static_cast<unsigned short>(language));
    sv::Application::SetUserEventHdl(&kv::DDE::UserEvent);
    kv::PostOffice::CreatePostOffice(name);
}

SuiteServices::~SuiteServices() {
    kv::KVSingleton::Destroy(kv::PostOffice::Instance());
    sv::Application::SetUserEventHdl(nullptr);
}

}  // namespace suite
