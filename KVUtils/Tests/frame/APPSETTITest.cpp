#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

#include <functional>
#include <limits>

namespace kv::test {

namespace {

using APPSETTITest = FrameTest;

TEST_F(APPSETTITest, AnEmptyValueIsNoValue) {
    sv::String const file = Write("app.ini", "[Group]\nFull=value\nEmpty=\n");
    AppConfig::CreateAppConfig(file);
    UserConfig::CreateUserConfig(file);
    for (char const* const key : {"Empty", "Missing"}) {
        EXPECT_EQ(AppConfig::ReadKey("Group", key), "");
        EXPECT_EQ(AppConfig::ReadKey("Group", key, "default"), "default");
        EXPECT_EQ(UserConfig::ReadKey("Group", key, "default"), "default");
    }
    EXPECT_EQ(AppConfig::ReadKey("Group", "Full", "default"), "value");
    EXPECT_EQ(UserConfig::ReadKey("Group", "Full", "default"), "value");
    EXPECT_EQ(AppConfig::ReadKey("Other", "Full"), "");
}

TEST_F(APPSETTITest, WritingLeavesTheSelectedGroup) {
    AppConfig::CreateAppConfig(PathOf("app.ini"))->SetGroup("selected");
    UserConfig::CreateUserConfig(PathOf("user.ini"));
    UserConfig::Instance()->SetGroup("selected");
    AppConfig::WriteKey("a", "k", "1");
    UserConfig::WriteKey("b", "k", "2");
    EXPECT_EQ(AppConfig::Instance()->GetGroup(), "selected");
    EXPECT_EQ(UserConfig::Instance()->GetGroup(), "selected");
    EXPECT_EQ(AppConfig::ReadKey("a", "k"), "1") << "the service's own object sees the file as it is now";
    EXPECT_EQ(UserConfig::ReadKey("b", "k", ""), "2");
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
    struct Row {
        KORVELiniGroup group;
        char const* read;
        char const* written;  // the group that a key lands in, with "Scales" selected before
    };
    static constexpr Row rows[] = {
        {KORVELiniGroup::HqmServer, "HQM-Server", "HQM-Server"},
        {KORVELiniGroup::Scales, "Scales", "Scales"},
        {KORVELiniGroup::VindaraApplications, "Vindara Applications", "Vindara Applications"},
        {KORVELiniGroup::Compatibility, "Compatibility", "Scales"},
        {static_cast<KORVELiniGroup>(4), "Scales", "Scales"},
    };
    for (Row const& row : rows) {
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
    for (SeenBox const& box : boxes.seen) {
        EXPECT_TRUE(box.text.starts_with("Internal ERROR!\n\nPOINTER -> NULL\nModule: APPSETTI.cpp   Date: "))
            << box.text;
    }
}

/// An application whose texts and documents lie elsewhere.
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

}  // namespace

}  // namespace kv::test
