// The window of ColourDesk in front of nobody: its texts, its boxes, and folders of the test's own.
#pragma once

#include "Apps/ColourDesk/DeskWindow.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"
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
        for (kv::KVSingleton* const service :
             std::initializer_list<kv::KVSingleton*>{kv::KVSetting::Instance(), kv::Language::Instance(),
                                                     kv::AppName::Instance(), kv::AppConfig::Instance()}) {
            kv::KVSingleton::Remove(service);
            delete service;
        }
    }

    static constexpr char const* Stem = KV_TEXTS "/colourdesk";
};

/// Keeps what boxes say, and answers them all alike.
class Boxes {
  public:
    Boxes()
        : before_(sv::SetBoxHandler([this](sv::MessBox const& box) {
              seen.emplace_back(box.GetText().View());
              return answer;
          })) {}
    Boxes(Boxes const&) = delete;
    Boxes& operator=(Boxes const&) = delete;
    ~Boxes() { sv::SetBoxHandler(before_); }

    std::vector<std::string> seen;
    sv::BoxAnswer answer = sv::BoxAnswer::No;

  private:
    sv::BoxHandler before_;
};

class DeskTest : public testing::Test {
  protected:
    [[nodiscard]] std::string Cell(int row, int column) const {
        return std::string(desk.GetSamples().GetCell(row, column).text.View());
    }
    [[nodiscard]] std::string Status() const { return std::string(desk.GetStatus().View()); }
    [[nodiscard]] std::string File(std::string const& name) const { return files_ / name; }

    Texts texts;
    Boxes boxes;
    DeskWindow desk{Texts::Stem, [](sv::Window& /*window*/, sv::String const& /*path*/) { return false; }};

  private:
    tests::TemporaryDirectory files_;
};

}  // namespace colourdesk::test
