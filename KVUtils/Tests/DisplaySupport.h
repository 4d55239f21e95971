// A window system with nobody at it but the test: windows without a display, of which the program thinks that
// somebody sees them, so that it waits for a person. What that person does is a handler in the loop.
#pragma once

#include "SV/core/Application.h"
#include "SV/headless/HeadlessBackend.h"

#include <functional>
#include <utility>

namespace kv::test {

class Person final : public sv::detail::Backend {
  public:
    /// Does `act` once, when the program waits.
    explicit Person(std::function<void()> act) : act_(std::move(act)) {
        sv::detail::InstallBackend(this);
        sv::Application::InsertIdleHdl(sv::Link::To<&Person::Act>(*this), 0);
    }
    Person(Person const&) = delete;
    Person& operator=(Person const&) = delete;
    ~Person() override {
        sv::Application::RemoveIdleHdl(sv::Link::To<&Person::Act>(*this));
        sv::detail::InstallBackend(nullptr);
    }

    std::unique_ptr<sv::detail::WindowPeer> MakeWindow(sv::Window& window, sv::detail::WindowKind kind,
                                                       sv::detail::WindowPeer* parent) override {
        return below_.MakeWindow(window, kind, parent);
    }
    std::unique_ptr<sv::detail::Canvas> MakeSurface(sv::Size size) override {
        return below_.MakeSurface(size);
    }
    /// The answers to come, the next one first; none when they have run out.
    std::optional<sv::FileAnswer> AskForFile(sv::Window* /*parent*/,
                                             sv::FileQuestion const& question) override {
        asked.push_back(question);
        if (answers.empty()) return std::nullopt;
        sv::FileAnswer answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }
    std::unique_ptr<sv::detail::PrinterPeer> MakePrinter(sv::String const& name) override {
        return below_.MakePrinter(name);
    }
    [[nodiscard]] bool HasDisplay() const noexcept override { return true; }
    [[nodiscard]] sv::Size ScreenSize() const override { return below_.ScreenSize(); }
    [[nodiscard]] sv::Point PointerPosition() const override { return below_.PointerPosition(); }

    std::vector<sv::FileAnswer> answers;
    std::vector<sv::FileQuestion> asked;

  private:
    long Act(void* /*sender*/) {
        if (auto const act = std::exchange(act_, nullptr)) act();
        return 1;
    }

    sv::detail::Backend& below_ = sv::headless::HeadlessBackend::Instance();
    std::function<void()> act_;
};

}  // namespace kv::test
