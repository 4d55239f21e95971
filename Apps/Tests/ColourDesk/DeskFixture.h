// The window of ColourDesk in front of nobody: its texts, its boxes, and folders of the test's own.
#pragma once

#include "Apps/ColourDesk/DeskWindow.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/Boxes.h"
#include "SV/ui/Window.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace colourdesk::test {

inline std::string const Chart = KV_APPS_DATA "/chart24-lab-a.csv";
inline std::string const InkSeries = KV_APPS_DATA "/ink-series.txt";

/// The application's services, in English, for as long as the object lives.
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
        kv::test::EndService(kv::KVSetting::Instance());
        kv::test::EndService(kv::Language::Instance());
        kv::test::EndService(kv::AppName::Instance());
        kv::test::EndService(kv::AppConfig::Instance());
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
