// RegisterTopWindow: keeps track of the top window, the parent for boxes. Dialogs derive from it. Main thread
// only.
#pragma once

#include "SV/core/Application.h"

namespace kv {

class RegisterTopWindow {
  public:
    /// Makes the window the top one and remembers the previous one. Neither is owned.
    explicit RegisterTopWindow(sv::Window* window) noexcept;
    /// Restores the previous window. Destroy objects in reverse order of construction.
    ~RegisterTopWindow();
    RegisterTopWindow(RegisterTopWindow const&) = delete;
    RegisterTopWindow& operator=(RegisterTopWindow const&) = delete;

    /// The top window, or the application's window if none is registered; null without either.
    [[nodiscard]] static sv::Window* GetActiveTopWindow() noexcept;

  private:
    sv::Window* previous_;

    static sv::Window* current_;
};

}  // namespace kv
