// WINDOWPL: window placement, and balloon help beside a button. Main thread only.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/ui/Controls.h"

namespace kv {

/// Places a window; the constructor does all the work.
class WindowPlacer {
  public:
    /// The last of the bits of `flags` that applies decides: 1 centres on the reference, or on the screen
    /// when that is null; 2 centres on the screen; 4 places it 20 pixels right of and below the reference.
    /// The window never extends past the right or bottom edge of the screen. A null window is reported by
    /// `Check::POINTER`, which throws.
    WindowPlacer(sv::Window* reference, sv::Window* window, long flags);
};

/// A line of help beside a button, at most one at a time. Hidden at first.
class BalloonWindow : public sv::Window, public KVSingleton {
  public:
    /// Replaces any earlier balloon. Unlike the services, it is not deleted with the application: its creator
    /// deletes it, as `KOBitmapButton` does. The button must have a parent.
    static BalloonWindow* CreateBalloonWindow(sv::Window* button, sv::String const& text);
    /// Null if there is none.
    [[nodiscard]] static BalloonWindow* Instance();
    /// Hides and deletes the balloon, if there is one.
    static void DeleteBalloonWindow();
    ~BalloonWindow() override;

    /// Whether buttons show their help: 0 or 1, 1 at first.
    static void SetBalloonActive(unsigned char active) noexcept { isActive_ = active; }
    [[nodiscard]] static unsigned char IsBalloonActive() noexcept { return isActive_; }
    /// Whether there is a balloon.
    [[nodiscard]] static bool Exists() noexcept { return instance_ != nullptr; }

  protected:
    BalloonWindow(sv::Window& button, sv::String const& text);

  private:
    sv::FixedText text_;

    static BalloonWindow* instance_;
    static unsigned char isActive_;
};

}  // namespace kv
