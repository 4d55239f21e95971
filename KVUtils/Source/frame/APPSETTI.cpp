#include "KVUtils/Source/frame/APPSETTI.h"

#include "KVUtils/Source/frame/Check.h"

#include <utility>

namespace kv {

namespace {

// Overloads, since the name of a class is not available as text.
constexpr char const* ClassName(AppConfig const* /*service*/) noexcept { return "AppConfig"; }
constexpr char const* ClassName(UserConfig const* /*service*/) noexcept { return "UserConfig"; }
constexpr char const* ClassName(KORVELConfig const* /*service*/) noexcept { return "KORVELConfig"; }

}  // namespace

template <class Service>
constinit Service* ConfigService<Service>::instance_ = nullptr;

template <class Service>
ConfigService<Service>::ConfigService(sv::String const& file) : Config(file) {}

template <class Service>
ConfigService<Service>::~ConfigService() {
    instance_ = nullptr;
}

template <class Service>
Service* ConfigService<Service>::Instance() {
    return InstanceOrNull(instance_, ClassName(instance_));
}

template <class Service>
sv::String ConfigService<Service>::ReadKey(sv::String const& group, sv::String const& key,
                                           sv::String const& defaultValue) {
    Check::POINTER(instance_);
    instance_->SetGroup(group);
    sv::String value = instance_->Config::ReadKey(key);
    return value.IsEmpty() ? defaultValue : value;
}

template <class Service>
void ConfigService<Service>::WriteKey(sv::String const& group, sv::String const& key,
                                      sv::String const& value) {
    Check::POINTER(instance_);
    // A separate object, so that the group selected in the service does not change.
    Config writer(instance_->GetPathName());
    writer.SetGroup(group);
    writer.WriteKey(key, value);
}

template class ConfigService<AppConfig>;
template class ConfigService<UserConfig>;
template class ConfigService<KORVELConfig>;

AppConfig* AppConfig::CreateAppConfig(sv::String const& file) {
    return Create(instance_, [&file] { return new AppConfig(file); });
}

void UserConfig::CreateUserConfig(sv::String const& file) {
    Create(instance_, [&file] { return new UserConfig(file); });
}

KORVELConfig* KORVELConfig::CreateKORVELConfig(sv::String const& file) {
    return Create(instance_, [&file] { return new KORVELConfig(file); });
}

unsigned short AppConfig::GetKeyCount(sv::String const& group) {
    Check::POINTER(instance_);
    instance_->SetGroup(group);
    return instance_->Config::GetKeyCount();
}

sv::String AppConfig::GetKeyName(sv::String const& group, unsigned short index) {
    Check::POINTER(instance_);
    instance_->SetGroup(group);
    return instance_->Config::GetKeyName(index);
}

void AppConfig::EmptyGroup(sv::String const& group) {
    Check::POINTER(instance_);
    Config& config = *instance_;
    sv::String const selected = config.GetGroup();
    config.SetGroup(group);
    // Stop when the count does not change: the file cannot be written.
    unsigned short before = 0;
    unsigned short count = config.GetKeyCount();
    while (count > 0 && count != before) {
        config.DeleteKey(config.GetKeyName(static_cast<unsigned short>(count - 1)));
        before = count;
        count = config.GetKeyCount();
    }
    config.SetGroup(selected);
}

namespace {

constexpr char const* GroupName(KORVELiniGroup group) noexcept {
    switch (group) {
        case KORVELiniGroup::HqmServer:
            return "HQM-Server";
        case KORVELiniGroup::Scales:
            return "Scales";
        case KORVELiniGroup::VindaraApplications:
            return "Vindara Applications";
        case KORVELiniGroup::Compatibility:
            return "Compatibility";
    }
    return nullptr;
}

void Select(sv::Config& config, KORVELiniGroup group) {
    if (char const* const name = GroupName(group)) config.SetGroup(name);
}

}  // namespace

sv::String KORVELConfig::ReadKORVELKey(KORVELiniGroup group, sv::String const& key,
                                       sv::String const& defaultValue) {
    Check::POINTER(instance_);
    Select(*instance_, group);
    return ConfigService::ReadKey(instance_->GetGroup(), key, defaultValue);
}

void KORVELConfig::WriteKORVELKey(KORVELiniGroup group, sv::String const& key, sv::String const& value) {
    Check::POINTER(instance_);
    // No program of the suite writes to "Compatibility"; applications rely on the key going elsewhere.
    if (group != KORVELiniGroup::Compatibility) Select(*instance_, group);
    instance_->WriteKey(key, value);
}

sv::String KORVELConfig::ReadVindaraApplication(int index) {
    Check::POINTER(instance_);
    Select(*instance_, KORVELiniGroup::VindaraApplications);
    if (index < 0 || index >= instance_->GetKeyCount()) return {};
    return instance_->GetKeyName(static_cast<unsigned short>(index));
}

constinit AppDir* AppDir::instance_ = nullptr;

AppDir::AppDir(sv::String const& path) : DirEntry(path, sv::PathStyle::System) {}

AppDir::~AppDir() { instance_ = nullptr; }

AppDir* AppDir::CreateAppDir(sv::String const& path) {
    return Create(instance_, [&path] { return new AppDir(path); });
}

AppDir* AppDir::Instance() { return InstanceOrNull(instance_, "AppDir"); }

sv::DirEntry AppDir::RootDirEntry() const { return BinDirEntry().GetPath(); }

sv::DirEntry AppDir::LngDirEntry() const { return RootDirEntry() + "LNG"; }

// Uses the instance, so that a derived object moves the directories relative to the running program.
sv::DirEntry AppDir::BinDirEntry() const {
    Check::POINTER(instance_);
    return instance_->GetPath();
}

sv::DirEntry AppDir::HlpDirEntry() const { return RootDirEntry() + "DOC"; }

sv::DirEntry AppDir::TargetDisk() const { return GetDevice(); }

constinit AppName* AppName::instance_ = nullptr;

AppName::AppName(sv::String title, sv::String version)
    : title_(std::move(title)), version_(std::move(version)) {}

AppName::~AppName() { instance_ = nullptr; }

AppName* AppName::CreateAppName(sv::String const& title, sv::String const& version) {
    return Create(instance_, [&] { return new AppName(title, version); });
}

AppName* AppName::Instance() { return InstanceOrNull(instance_, "AppName"); }

}  // namespace kv
