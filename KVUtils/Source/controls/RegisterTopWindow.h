// RegisterTopWindow: which window is in front, so that boxes know what to stand over. Dialogs derive from it;
// it belongs to the main thread.
#pragma once

#include "SV/core/Application.h"

namespace kv {

class RegisterTopWindow {
  public:
    /// Makes the window the one in front; the one before is remembered. Not owned.
    explicit RegisterTopWindow(sv::Window* window) noexcept;
    /// The one before is in front again. Objects are destroyed in the reverse order of their making.
    ~RegisterTopWindow();
    RegisterTopWindow(RegisterTopWindow const&) = delete;
    RegisterTopWindow& operator=(RegisterTopWindow const&) = delete;

    /// The window in front, or the application's where none is registered; null without either.
    [[nodiscard]] static sv::Window* GetActiveTopWindow() noexcept;

  private:
    sv::Window* previous_;

    static sv::Window* current_;
};

}  // namespace kv
