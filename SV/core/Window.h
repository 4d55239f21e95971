// sv::Window: what the library asks of a window that it did not make.
#pragma once

namespace sv {

class Window {
  public:
    Window() = default;
    Window(Window const&) = delete;
    Window& operator=(Window const&) = delete;
    virtual ~Window() = default;

    /// Lets the window take input, or shuts it off.
    virtual void Enable(bool enable) = 0;
    void Enable() { Enable(true); }
    void Disable() { Enable(false); }
    [[nodiscard]] virtual bool IsEnabled() const = 0;
};

}  // namespace sv
