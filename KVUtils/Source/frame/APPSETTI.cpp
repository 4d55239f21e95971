#include "KVUtils/Source/frame/APPSETTI.h"

#include "KVUtils/Source/frame/Check.h"

#include <utility>

namespace kv {

namespace {

sv::String ReadFrom(sv::Config& config, sv::String const& group, sv::String const& key,
                    sv::String const& defaultValue) {
    config.SetGroup(group);
    sv::String value = config.ReadKey(key);
    return value.IsEmpty() ? defaultValue : value;
}

// Through an object of its own, so that the group selected in `config` stays.
void WriteBeside(sv::Config const& config, sv::String const& group, sv::String const& key,
                 sv::String const& value) {
    sv::Config writer(config.GetPathName());
    writer.SetGroup(group);
    writer.WriteKey(key, value);
}

}  // namespace

// ------------------------------------------------------------------------------------------------ AppConfig

constinit AppConfig* AppConfig::instance_ = nullptr;

AppConfig::AppConfig(sv::String const& file) : Config(file) {}

AppConfig::~AppConfig() { instance_ = nullptr; }

AppConfig* AppConfig::CreateAppConfig(sv::String const& file) {
    return Create(instance_, [&file] { return new AppConfig(file); });
}

AppConfig* AppConfig::Instance() { return InstanceOrNull(instance_, "AppConfig"); }

sv::String AppConfig::ReadKey(sv::String const& group, sv::String const& key,
                              sv::String const& defaultValue) {
    Check::POINTER(instance_);
    return ReadFrom(*instance_, group, key, defaultValue);
}

void AppConfig::WriteKey(sv::String const& group, sv::String const& key, sv::String const& value) {
    Check::POINTER(instance_);
    WriteBeside(*instance_, group, key, value);
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
    // A file that cannot be written keeps its keys, and must not keep the program.
    unsigned short before = 0;
    unsigned short count = config.GetKeyCount();
    while (count > 0 && count != before) {
        config.DeleteKey(config.GetKeyName(static_cast<unsigned short>(count - 1)));
        before = count;
        count = config.GetKeyCount();
    }
    config.SetGroup(selected);
}

// ----------------------------------------------------------------------------------------------- UserConfig

constinit UserConfig* UserConfig::instance_ = nullptr;

UserConfig::UserConfig(sv::String const& file) : Config(file) {}

UserConfig::~UserConfig() { instance_ = nullptr; }

void UserConfig::CreateUserConfig(sv::String const& file) {
    Create(instance_, [&file] { return new UserConfig(file); });
}

UserConfig* UserConfig::Instance() { return InstanceOrNull(instance_, "UserConfig"); }

sv::String UserConfig::ReadKey(sv::String const& group, sv::String const& key,
                               sv::String const& defaultValue) {
    Check::POINTER(instance_);
    return ReadFrom(*instance_, group, key, defaultValue);
}

void UserConfig::WriteKey(sv::String const& group, sv::String const& key, sv::String const& value) {
    Check::POINTER(instance_);
    WriteBeside(*instance_, group, key, value);
}

// --------------------------------------------------------------------------------------------- KORVELConfig

constinit KORVELConfig* KORVELConfig::instance_ = nullptr;

KORVELConfig::KORVELConfig(sv::String const& file) : Config(file) {}

KORVELConfig::~KORVELConfig() { instance_ = nullptr; }

KORVELConfig* KORVELConfig::CreateKORVELConfig(sv::String const& file) {
    return Create(instance_, [&file] { return new KORVELConfig(file); });
}

KORVELConfig* KORVELConfig::Instance() { return InstanceOrNull(instance_, "KORVELConfig"); }

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
    return ReadFrom(*instance_, instance_->GetGroup(), key, defaultValue);
}

void KORVELConfig::WriteKORVELKey(KORVELiniGroup group, sv::String const& key, sv::String const& value) {
    Check::POINTER(instance_);
    // Nothing of the suite writes to "Compatibility"; its applications count on the key landing elsewhere.
    if (group != KORVELiniGroup::Compatibility) Select(*instance_, group);
    instance_->WriteKey(key, value);
}

sv::String KORVELConfig::ReadVindaraApplication(int index) {
    Check::POINTER(instance_);
    Select(*instance_, KORVELiniGroup::VindaraApplications);
    if (index < 0 || index >= instance_->GetKeyCount()) return {};
    return instance_->GetKeyName(static_cast<unsigned short>(index));
}

// --------------------------------------------------------------------------------------------------- AppDir

constinit AppDir* AppDir::instance_ = nullptr;

AppDir::AppDir(sv::String const& path) : DirEntry(path, sv::PathStyle::System) {}

AppDir::~AppDir() { instance_ = nullptr; }

AppDir* AppDir::CreateAppDir(sv::String const& path) {
    return Create(instance_, [&path] { return new AppDir(path); });
}

AppDir* AppDir::Instance() { return InstanceOrNull(instance_, "AppDir"); }

sv::DirEntry AppDir::RootDirEntry() const { return BinDirEntry().GetPath(); }

sv::DirEntry AppDir::LngDirEntry() const { return RootDirEntry() + "LNG"; }

// By the instance, so that an object that moves the directories is moved against the running program's.
sv::DirEntry AppDir::BinDirEntry() const {
    Check::POINTER(instance_);
    return instance_->GetPath();
}

sv::DirEntry AppDir::HlpDirEntry() const { return RootDirEntry() + "DOC"; }

sv::DirEntry AppDir::TargetDisk() const { return GetDevice(); }

// -------------------------------------------------------------------------------------------------- AppName

constinit AppName* AppName::instance_ = nullptr;

AppName::AppName(sv::String title, sv::String version)
    : title_(std::move(title)), version_(std::move(version)) {}

AppName::~AppName() { instance_ = nullptr; }

AppName* AppName::CreateAppName(sv::String const& title, sv::String const& version) {
    return Create(instance_, [&] { return new AppName(title, version); });
}

AppName* AppName::Instance() { return InstanceOrNull(instance_, "AppName"); }

}  // namespace kv
