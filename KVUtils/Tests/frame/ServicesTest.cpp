#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Check.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "SV/core/Application.h"

#include <climits>

#include <functional>
#include <limits>
#include <new>

namespace kv::test {
namespace {

std::string destroyed;  // the names of the services in the order of their destruction

class Service : public KVSingleton {
  public:
    explicit Service(char name) : name_(name) {}
    ~Service() override {
        destroyed += name_;
        instance_ = instance_ == this ? nullptr : instance_;
    }

    static Service* CreateService(char name) {
        return Create(instance_, [name] { return new Service(name); });
    }
    static Service* Instance() { return InstanceOrNull(instance_, "Service"); }

  private:
    char name_;
    static inline Service* instance_ = nullptr;
};

TEST(KVSingletonTest, TheYoungestIsDestroyedFirst) {
    destroyed.clear();
    Service* const all[] = {new Service('a'), new Service('b'), new Service('c'), new Service('e')};
    Service d('d');
    for (int i = 0; i < 3; ++i) KVSingleton::Insert(all[i]);
    KVSingleton::Remove(&d);  // not in the list, here and below
    KVSingleton::Replace(&d, &d);
    KVSingleton::Replace(all[1], all[3]);
    KVSingleton::DeleteAllSingleton();
    EXPECT_EQ(destroyed, "cea") << "a replacement has the same position";
    for (Service* const dangling : all) KVSingleton::Remove(dangling);
    KVSingleton::DeleteAllSingleton();
    KVSingleton::Destroy(all[1]);
    KVSingleton::Destroy(nullptr);
    EXPECT_EQ(destroyed, "ceab");
}

TEST(KVSingletonTest, ASecondCreationReplacesTheObject) {
    destroyed.clear();
    BoxScript const boxes;
    EXPECT_EQ(Service::Instance(), nullptr);
    EXPECT_TRUE(boxes.seen.empty());
    Service::CreateService('a');
    Service* const b = Service::CreateService('b');
    EXPECT_EQ(destroyed, "a");
    EXPECT_EQ(Service::Instance(), b);
    KVSingleton::Destroy(b);
    KVSingleton::DeleteAllSingleton();
    EXPECT_EQ(destroyed, "ab") << "removed from the list";
    EXPECT_EQ(Service::Instance(), nullptr);
}

using APPSETTITest = FrameTest;

TEST_F(APPSETTITest, KeysAreReadWithADefaultAndWrittenWithoutSelecting) {
    sv::String const file = Write("app.ini", "[Group]\nFull=value\nEmpty=\n");
    auto const check = [](auto const& service) {
        using Config = std::remove_cvref_t<decltype(service)>;
        for (char const* const key : {"Empty", "Missing"}) {
            EXPECT_EQ(Config::ReadKey("Group", key), "");
            EXPECT_EQ(Config::ReadKey("Group", key, "default"), "default") << "an empty value is no value";
        }
        EXPECT_EQ(Config::ReadKey("Group", "Full", "default"), "value");
        EXPECT_EQ(Config::ReadKey("Other", "Full"), "");
        Config::Instance()->SetGroup("selected");
        Config::WriteKey("a", "k", "1");
        EXPECT_EQ(Config::Instance()->GetGroup(), "selected");
        EXPECT_EQ(Config::ReadKey("a", "k"), "1") << "the service reads the file as it is now";
    };
    check(*AppConfig::CreateAppConfig(file));
    UserConfig::CreateUserConfig(Write("user.ini", "[Group]\nFull=value\nEmpty=\n"));
    check(*UserConfig::Instance());
}

TEST_F(APPSETTITest, KeysOfAGroup) {
    AppConfig::CreateAppConfig(Write("app.ini", "[kept]\nx=1\n[gone]\na=1\nb=\nc=3\n"));
    EXPECT_EQ(AppConfig::GetKeyCount("gone"), 3);
    EXPECT_EQ(AppConfig::GetKeyName("gone", 2), "c");
    EXPECT_EQ(AppConfig::GetKeyName("gone", 3), "");
    AppConfig::Instance()->SetGroup("selected");
    AppConfig::EmptyGroup("gone");
    EXPECT_EQ(AppConfig::Instance()->GetGroup(), "selected");
    EXPECT_EQ(AppConfig::GetKeyCount("gone"), 0);
    EXPECT_EQ(AppConfig::ReadKey("kept", "x"), "1");
}

TEST_F(APPSETTITest, GroupsOfTheSuite) {
    // The group that a key is read from, and the one that it is written to, with "Scales" selected before.
    struct {
        KORVELiniGroup group;
        char const* read;
        char const* written;
    } const rows[] = {
        {KORVELiniGroup::HqmServer, "HQM-Server", "HQM-Server"},
        {KORVELiniGroup::Scales, "Scales", "Scales"},
        {KORVELiniGroup::VindaraApplications, "Vindara Applications", "Vindara Applications"},
        {KORVELiniGroup::Compatibility, "Compatibility", "Scales"},
        {static_cast<KORVELiniGroup>(4), "Scales", "Scales"},
    };
    for (auto const& row : rows) {
        sv::String const file = Write("KORVEL.INI", std::string("[") + row.read + "]\nk=here\ne=\n");
        KORVELConfig& config = *KORVELConfig::CreateKORVELConfig(file);
        config.SetGroup("Scales");
        EXPECT_EQ(KORVELConfig::ReadKORVELKey(row.group, "k"), "here");
        EXPECT_EQ(KORVELConfig::ReadKORVELKey(row.group, "e", "no KORVEL.INI"), "no KORVEL.INI");
        config.SetGroup("Scales");
        KORVELConfig::WriteKORVELKey(row.group, "new", "written");
        config.SetGroup(row.written);
        EXPECT_EQ(config.ReadKey("new"), "written") << row.read;
    }
}

TEST_F(APPSETTITest, ApplicationsOfTheSuite) {
    KORVELConfig::CreateKORVELConfig(Write("KORVEL.INI", "[Vindara Applications]\nOne=/a\nTwo=/b\n"));
    EXPECT_EQ(KORVELConfig::ReadVindaraApplication(0), "One");
    EXPECT_EQ(KORVELConfig::ReadVindaraApplication(1), "Two");
    for (int const index : {-1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(KORVELConfig::ReadVindaraApplication(index), "") << index;
    }
}

TEST_F(APPSETTITest, UseBeforeTheCreationIsReported) {
    std::function<void()> const uses[] = {
        [] { static_cast<void>(AppConfig::ReadKey("g", "k")); },
        [] { AppConfig::WriteKey("g", "k", "v"); },
        [] { static_cast<void>(AppConfig::GetKeyCount("g")); },
        [] { static_cast<void>(AppConfig::GetKeyName("g", 0)); },
        [] { AppConfig::EmptyGroup("g"); },
        [] { static_cast<void>(UserConfig::ReadKey("g", "k", "d")); },
        [] { UserConfig::WriteKey("g", "k", "v"); },
        [] { static_cast<void>(KORVELConfig::ReadKORVELKey(KORVELiniGroup::Scales, "k")); },
        [] { KORVELConfig::WriteKORVELKey(KORVELiniGroup::Scales, "k", "v"); },
        [] { static_cast<void>(KORVELConfig::ReadVindaraApplication(0)); },
    };
    BoxScript const boxes;
    for (auto const& use : uses) EXPECT_THROW(use(), int);
    ASSERT_EQ(boxes.seen.size(), std::size(uses));
    for (SeenBox const& box : boxes.seen)
        EXPECT_TRUE(
            box.text.starts_with("Internal ERROR!\n\nPOINTER -> NULL\nModule: APPSETTI.cpp   Date: "));
}

/// An application with its texts and documents elsewhere.
class MovedAppDir : public AppDir {
  public:
    static void CreateMovedAppDir(sv::String const& path) {
        AppDir::Create(instance_, [&path]() -> AppDir* { return new MovedAppDir(path); });
    }
    [[nodiscard]] sv::DirEntry RootDirEntry() const override { return sv::DirEntry("/elsewhere"); }

  private:
    explicit MovedAppDir(sv::String const& path) : AppDir(path) {}
};

TEST_F(APPSETTITest, DirectoriesOfAnApplication) {
    auto const joined = [](char const* directory, char const* name) {
        return sv::DirEntry(directory) + name;
    };
    AppDir const& dir = *AppDir::CreateAppDir("C:\\Suite\\BIN\\DESK.EXE");
    EXPECT_EQ(dir.GetFull(), "C:\\Suite\\BIN\\DESK.EXE");
    EXPECT_EQ(dir.BinDirEntry().GetFull(), "C:\\Suite\\BIN");
    EXPECT_EQ(dir.RootDirEntry().GetFull(), "C:\\Suite");
    EXPECT_EQ(dir.LngDirEntry(), joined("C:\\Suite", "LNG"));
    EXPECT_EQ(dir.HlpDirEntry(), joined("C:\\Suite", "DOC"));
    EXPECT_EQ(dir.TargetDisk().GetFull(), "C:");

    MovedAppDir::CreateMovedAppDir("/suite/bin/desk");
    AppDir const& moved = *AppDir::Instance();
    EXPECT_EQ(moved.BinDirEntry().GetFull(), "/suite/bin");
    EXPECT_EQ(moved.LngDirEntry(), joined("/elsewhere", "LNG"));
    EXPECT_EQ(moved.TargetDisk().GetFull(), "");
}

TEST_F(APPSETTITest, NameOfAnApplication) {
    AppName& name = *AppName::CreateAppName("ColourDesk", "1.2");
    name.SetTitel("Desk");
    EXPECT_EQ(AppName::Instance()->GetTitel(), "Desk");
    EXPECT_EQ(AppName::Instance()->GetVersion(), "1.2");
}

class KVSettingTest : public FrameTest {
  protected:
    ~KVSettingTest() override { EndService(KVSetting::Instance()); }
};

void ExpectIlluminants(int first, int second) {
    IllumClass found[] = {IllumClass(IllumType::F2), IllumClass(IllumType::F2)};
    KVSetting::Instance()->GetIllumClasses(found[0], found[1]);
    EXPECT_EQ(static_cast<int>(IllumType(found[0])), first);
    EXPECT_EQ(static_cast<int>(IllumType(found[1])), second);
    for (IllumClass const& each : found) EXPECT_EQ(static_cast<short>(each), 65) << "the day number";
}

TEST_F(KVSettingTest, TheFirstCallReadsTheConfiguration) {
    struct Row {
        char const* content;
        int first;
        int second;
        char const* name;
    };
    static constexpr Row rows[] = {
        {"", 0, 0, ""},  // a missing number is 0, not the default of the object
        {"[Settings]\nMetamerieTL1=3\nMetamerieTL2=34\nUserName=M\xFCller\n", 3, 34, "M\xFCller"},
        {"[Settings]\nMetamerieTL1=-1\nMetamerieTL2=4711\n", -1, 4711, ""},
        {"[Settings]\nMetamerieTL1=x\nMetamerieTL2=2.9\n", 0, 2, ""},
    };
    for (Row const& row : rows) {
        AppConfig::CreateAppConfig(Write("app.ini", row.content));
        ExpectIlluminants(row.first, row.second);
        EXPECT_EQ(KVSetting::Instance()->GetBenutzername(), row.name);
        EndService(KVSetting::Instance());
    }
}

TEST_F(KVSettingTest, OnlySavingStoresAChange) {
    AppConfig::CreateAppConfig(PathOf("app.ini"));
    KVSetting& setting = *KVSetting::Instance();
    setting.SetIllumClasses(IllumClass(IllumType::Dxx1, 55), IllumClass(IllumType::F11));
    setting.SetBenutzername("name");
    EXPECT_EQ(AppConfig::GetKeyCount("Settings"), 0);
    setting.SaveProperties();
    setting.SetIllumClasses(IllumClass(IllumType::A), IllumClass(IllumType::A));
    setting.LoadProperties();
    ExpectIlluminants(16, 34);
    EXPECT_EQ(setting.GetIllumClass1(), IllumClass(IllumType::Dxx1));
    EXPECT_EQ(setting.GetIllumClass2(), IllumClass(IllumType::F11));
    EXPECT_EQ(AppConfig::ReadKey("Settings", "MetamerieTL1"), "16");
    EXPECT_EQ(AppConfig::ReadKey("Settings", "MetamerieTL2"), "34");
    EXPECT_EQ(AppConfig::ReadKey("Settings", "UserName"), "name");
}

TEST_F(KVSettingTest, WithoutAConfigurationTheDefaultsRemain) {
    BoxScript const boxes;
    EXPECT_THROW(static_cast<void>(KVSetting::Instance()), int);
    EXPECT_EQ(boxes.seen.size(), 1U);
    ExpectIlluminants(2, 0);
}

constexpr char Position[] = "Module: a.cpp   Date: Jan  2 2003   Time: 04:05:06   Line: 7";

/// The `int` that was thrown; 0 for none.
int Thrown(std::function<void()> const& call) {
    try {
        call();
    } catch (int error) {
        return error;
    }
    return 0;
}

TEST(CheckTest, WhatIsShownAndThrown) {
    auto const poet = [](int code) { Check::POET(code, "a.cpp", "Jan  2 2003", "04:05:06", 7); };
    auto const pointer = [](char const* p) { Check::POINTER(p, "a.cpp", "Jan  2 2003", "04:05:06", 7); };
    std::pair<std::function<void()>, std::string> const rows[] = {
        {[&] { poet(0), poet(1999), pointer("anything"), Check::POINTER("anything"); }, ""},
        {[&] { poet(2000); }, "Database error!\n\nErrorCode: 2000\n"},
        {[&] { poet(-1); }, "Database error!\n\nErrorCode: -1\n"},
        {[&] { poet(INT_MIN); }, "Database error!\n\nErrorCode: -2147483648\n"},
        {[&] { pointer(nullptr); }, "Internal ERROR!\n\nPOINTER -> NULL\n"},
        {[] { DisplayError(42, "a.cpp", "Jan  2 2003", "04:05:06", 7); }, "Internal ERROR!\n\nErrNo. 42\n"},
    };
    int place = 0;
    auto* const window = reinterpret_cast<sv::Window*>(&place);
    sv::Application::SetAppWindow(window);
    for (auto const& [call, text] : rows) {
        BoxScript const boxes;
        EXPECT_EQ(Thrown(call), text.empty() ? 0 : 1) << text;
        std::vector<SeenBox> expected;
        if (!text.empty()) expected.push_back({sv::BoxKind::Error, 16, window, text + Position});
        EXPECT_EQ(boxes.seen, expected);
    }
    sv::Application::SetAppWindow(nullptr);
}

TEST(CheckTest, ACallNamesItsOwnPosition) {
    BoxScript const boxes;
    int const line = __LINE__ + 1;
    EXPECT_EQ(Thrown([] { Check::POINTER(nullptr); }), 1);
    ASSERT_EQ(boxes.seen.size(), 1U);
    sv::String const position =
        Check::CommonErrStr("ServicesTest.cpp", Check::BuildDate(), Check::BuildTime(), line);
    EXPECT_TRUE(boxes.seen[0].text.ends_with("\n" + std::string(position.View())));
}

TEST(CheckTest, WithoutMemoryForTheBoxTheErrorIsThrown) {
    auto const before =
        sv::SetBoxHandler([](sv::MessBox const&) -> sv::BoxAnswer { throw std::bad_alloc(); });
    EXPECT_EQ(Thrown([] { Check::POINTER(nullptr); }), 1);
    sv::SetBoxHandler(before);
}

}  // namespace
}  // namespace kv::test
