// Backend: what a window system has to offer the toolkit; everything else is the toolkit's own. Geometry,
// text and state live in the `sv` objects, and their peers mirror them.
#pragma once

#include "SV/core/Geometry.h"
#include "SV/core/String.h"
#include "SV/ui/Canvas.h"

#include <memory>

namespace sv {
class Window;
}

namespace sv::detail {

/// The window system's side of one `sv::Window`.
class WindowPeer {
  public:
    virtual ~WindowPeer() = default;

    /// To draw on while the window is painted, and to measure on at any time.
    [[nodiscard]] virtual Canvas& GetCanvas() = 0;
    /// In pixels, from the top left corner of the parent's area or of the screen.
    virtual void SetPosSize(Point position, Size size) = 0;
    virtual void Show(bool visible) = 0;
    virtual void Enable(bool enabled) = 0;
    virtual void SetText(String const& text) = 0;
    /// Has the window painted, some time soon.
    virtual void Invalidate() = 0;
    virtual void GrabFocus() = 0;
    /// Sends all events of the mouse to this window, wherever the pointer is.
    virtual void CaptureMouse(bool capture) = 0;
    virtual void ToTop() = 0;
};

class Backend {
  public:
    virtual ~Backend() = default;

    /// `parent` is null for a window of its own on the screen. The window outlives its peer.
    [[nodiscard]] virtual std::unique_ptr<WindowPeer> MakeWindow(Window& window, WindowPeer* parent) = 0;
    /// A surface to draw on and to read back, black at first.
    [[nodiscard]] virtual std::unique_ptr<Canvas> MakeSurface(Size size) = 0;
    [[nodiscard]] virtual Size ScreenSize() const = 0;
};

/// The backend in use: the one without a display, unless another is installed.
[[nodiscard]] Backend& CurrentBackend() noexcept;
/// Installs a backend for as long as the program lives, before the first window is made; null for the one
/// without a display.
void InstallBackend(Backend* backend) noexcept;

}  // namespace sv::detail
