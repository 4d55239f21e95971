#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

namespace kv::test {

namespace {

class KVSettingTest : public FrameTest {
  protected:
    ~KVSettingTest() override { EndService(KVSetting::Instance()); }
};

void ExpectIlluminant(IllumClass illuminant, int type) {
    EXPECT_EQ(static_cast<int>(IllumType(illuminant)), type);
    EXPECT_EQ(static_cast<short>(illuminant), 65);
}

TEST_F(KVSettingTest, TheFirstCallReadsTheConfiguration) {
    struct Row {
        char const* content;
        int first;
        int second;
        char const* name;
    };
    static constexpr Row rows[] = {
        {"", 0, 0, ""},  // a missing number is 0, not what a fresh object holds
        {"[Settings]\nMetamerieTL1=3\nMetamerieTL2=34\nUserName=M\xFCller\n", 3, 34, "M\xFCller"},
        {"[Settings]\nMetamerieTL1=-1\nMetamerieTL2=4711\n", -1, 4711, ""},
        {"[Settings]\nMetamerieTL1=x\nMetamerieTL2=2.9\n", 0, 2, ""},
    };
    for (Row const& row : rows) {
        AppConfig::CreateAppConfig(Write("app.ini", row.content));
        KVSetting& setting = *KVSetting::Instance();
        EXPECT_EQ(&setting, KVSetting::Instance());
        ExpectIlluminant(setting.GetIllumClass1(), row.first);
        ExpectIlluminant(setting.GetIllumClass2(), row.second);
        EXPECT_EQ(setting.GetBenutzername(), row.name);
        EndService(&setting);
    }
}

TEST_F(KVSettingTest, OnlySavingMakesAChangeLast) {
    AppConfig::CreateAppConfig(PathOf("app.ini"));
    KVSetting& setting = *KVSetting::Instance();
    setting.SetIllumClasses(IllumClass(IllumType::Dxx1, 55), IllumClass(IllumType::F11));
    setting.SetBenutzername("name");
    EXPECT_EQ(AppConfig::GetKeyCount("Settings"), 0);
    setting.SaveProperties();
    EXPECT_EQ(AppConfig::ReadKey("Settings", "MetamerieTL1"), "16");
    EXPECT_EQ(AppConfig::ReadKey("Settings", "MetamerieTL2"), "34");

    setting.SetIllumClasses(IllumClass(IllumType::A), IllumClass(IllumType::A));
    setting.LoadProperties();
    IllumClass first(IllumType::A);
    IllumClass second(IllumType::A);
    setting.GetIllumClasses(first, second);
    ExpectIlluminant(first, 16);  // the day number is not kept
    ExpectIlluminant(second, 34);
    EXPECT_EQ(setting.GetBenutzername(), "name");
}

TEST_F(KVSettingTest, WithoutAConfigurationTheDefaultsStand) {
    BoxScript const boxes;
    EXPECT_THROW(static_cast<void>(KVSetting::Instance()), int);
    EXPECT_EQ(boxes.seen.size(), 1U);
    ExpectIlluminant(KVSetting::Instance()->GetIllumClass1(), 2);
    ExpectIlluminant(KVSetting::Instance()->GetIllumClass2(), 0);
}

}  // namespace

}  // namespace kv::test
