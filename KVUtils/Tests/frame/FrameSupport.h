// What the tests of the application frame share.
#pragma once

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Tests/data/TestFile.h"
#include "SV/core/Boxes.h"

#include <cstdlib>
#include <deque>
#include <initializer_list>
#include <ostream>
#include <string>
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

/// Records the boxes and gives these answers in turn, then the default ones.
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

/// Sets the directory of "win.ini" while the object exists.
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

inline void EndService(KVSingleton* service) { KVSingleton::Destroy(service); }

/// Destroys the services and resets the texts and the language after each test.
class FrameTest : public FileTest {
  protected:
    ~FrameTest() override {
        for (KVSingleton* const service : std::initializer_list<KVSingleton*>{
                 AppConfig::Instance(), UserConfig::Instance(), KORVELConfig::Instance(), AppDir::Instance(),
                 AppName::Instance(), Language::Instance()})
            EndService(service);
        Language::SetLanguageByCountryCode(1);
        Text::FreeResources();
    }
};

}  // namespace kv::test
