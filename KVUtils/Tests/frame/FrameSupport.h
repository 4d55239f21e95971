// What the tests of the application frame share.
#pragma once

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/Boxes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace kv::test {

struct SeenBox {
    sv::BoxKind kind;
    sv::WinBits style;
    sv::Window* parent;
    std::string text;

    friend bool operator==(SeenBox const&, SeenBox const&) = default;
};

inline void PrintTo(SeenBox const& box, std::ostream* out) {
    *out << (box.kind == sv::BoxKind::Error ? "error box " : "box ") << box.style << " '" << box.text << "'";
}

/// Keeps the boxes and gives the answers in their order, then the default ones.
class BoxScript {
  public:
    explicit BoxScript(std::initializer_list<sv::BoxAnswer> answers = {})
        : answers_(answers),
          before_(sv::SetBoxHandler([this](sv::MessBox const& box) { return Run(box); })) {}
    ~BoxScript() { sv::SetBoxHandler(before_); }
    BoxScript(BoxScript const&) = delete;
    BoxScript& operator=(BoxScript const&) = delete;

    std::vector<SeenBox> seen;

  private:
    sv::BoxAnswer Run(sv::MessBox const& box) {
        seen.push_back({box.GetKind(), box.GetStyle(), box.GetParent(), std::string(box.GetText().View())});
        if (answers_.empty()) return box.DefaultAnswer();
        sv::BoxAnswer const answer = answers_.front();
        answers_.pop_front();
        return answer;
    }

    std::deque<sv::BoxAnswer> answers_;
    sv::BoxHandler before_;
};

/// The directory in which the system's settings are looked for, as long as the object lives.
class Windir {
  public:
    explicit Windir(std::string const& directory) { Set(directory); }
    ~Windir() { Set(before_); }
    Windir(Windir const&) = delete;
    Windir& operator=(Windir const&) = delete;

  private:
    static void Set(std::string const& directory) {
#ifdef _WIN32
        ::_putenv_s("windir", directory.c_str());
#else
        ::setenv("windir", directory.c_str(), 1);
#endif
    }

    std::string before_ = std::getenv("windir") == nullptr ? "" : std::getenv("windir");
};

/// Takes a service out of the list and destroys it.
inline void EndService(KVSingleton* service) {
    KVSingleton::Remove(service);
    delete service;
}

/// A directory of the test's own, and a program without services, texts and choice of language behind it.
class FrameTest : public testing::Test {
  protected:
    ~FrameTest() override {
        EndService(AppConfig::Instance());
        EndService(UserConfig::Instance());
        EndService(KORVELConfig::Instance());
        EndService(AppDir::Instance());
        EndService(AppName::Instance());
        EndService(Language::Instance());
        Language::SetLanguageByCountryCode(1);
        Text::FreeResources();
    }

    [[nodiscard]] std::string PathOf(std::string_view name) const { return directory_ / name; }

    std::string Write(std::string_view name, std::string_view content) const {
        tests::PutBytes(PathOf(name), content);
        return PathOf(name);
    }

  private:
    tests::TemporaryDirectory directory_;
};

}  // namespace kv::test
