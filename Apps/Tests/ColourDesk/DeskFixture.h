// The window of ColourDesk with its texts, a recorder of boxes and a temporary folder.
#pragma once

#include "Apps/ColourDesk/DeskWindow.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace colourdesk::test {

inline std::string const Chart = KV_APPS_DATA "/chart24-lab-a.csv";
inline std::string const InkSeries = KV_APPS_DATA "/ink-series.txt";

/// The application's services, in English.
class Texts {
  public:
    Texts() {
        kv::AppConfig::CreateAppConfig(testing::TempDir() + "no such.ini");
        kv::AppName::CreateAppName("ColourDesk", "1.0");
        kv::Language::CreateLanguage(nullptr, KV_TEXTS "/colourdesk1.lng");
        kv::Language::SetLanguageByCountryCode(1);
        kv::Text::LoadText(Stem, 1);
    }
    Texts(Texts const&) = delete;
    Texts& operator=(Texts const&) = delete;
    ~Texts() {
        kv::Text::FreeResources();
        for (kv::KVSingleton* const service :
             std::initializer_list<kv::KVSingleton*>{kv::KVSetting::Instance(), kv::Language::Instance(),
                                                     kv::AppName::Instance(), kv::AppConfig::Instance()})
            kv::test::EndService(service);
    }

    static constexpr char const* Stem = KV_TEXTS "/colourdesk";
};

class DeskTest : public testing::Test {
  protected:
    [[nodiscard]] std::string Cell(int row, int column) const {
        return std::string(desk.GetSamples().GetCell(row, column).text.View());
    }
    [[nodiscard]] std::string Status() const { return std::string(desk.GetStatus().View()); }
    [[nodiscard]] std::string File(std::string const& name) const { return files_ / name; }

    Texts texts;
    kv::test::BoxScript boxes;
    DeskWindow desk{Texts::Stem, [](sv::Window& /*window*/, sv::String const& /*path*/) { return false; }};

  private:
    tests::TemporaryDirectory files_;
};

}  // namespace colourdesk::test
