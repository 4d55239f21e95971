#include "KVUtils/Source/frame/KVSetting.h"

#include "KVUtils/Source/frame/APPSETTI.h"

namespace kv {

namespace {

constexpr char Group[] = "Settings";
constexpr char FirstKey[] = "MetamerieTL1";
constexpr char SecondKey[] = "MetamerieTL2";
constexpr char UserNameKey[] = "UserName";

IllumClass ReadIlluminant(char const* key) {
    return IllumClass(static_cast<IllumType>(AppConfig::ReadKey(Group, key).ToLong()));
}

void WriteIlluminant(char const* key, IllumClass illuminant) {
    AppConfig::WriteKey(Group, key, sv::String(static_cast<int>(IllumType(illuminant))));
}

}  // namespace

constinit KVSetting* KVSetting::instance_ = nullptr;

KVSetting::~KVSetting() { instance_ = nullptr; }

KVSetting* KVSetting::Instance() {
    if (instance_ == nullptr) Create(instance_, [] { return new KVSetting; })->LoadProperties();
    return instance_;
}

void KVSetting::LoadProperties() {
    first_ = ReadIlluminant(FirstKey);
    second_ = ReadIlluminant(SecondKey);
    userName_ = AppConfig::ReadKey(Group, UserNameKey);
}

void KVSetting::SaveProperties() const {
    WriteIlluminant(FirstKey, first_);
    WriteIlluminant(SecondKey, second_);
    AppConfig::WriteKey(Group, UserNameKey, userName_);
}

void KVSetting::GetIllumClasses(IllumClass& first, IllumClass& second) const noexcept {
    first = first_;
    second = second_;
}

void KVSetting::SetIllumClasses(IllumClass first, IllumClass second) noexcept {
    first_ = first;
    second_ = second;
}

}  // namespace kv
