// WINDOWPL: where windows stand, and the balloon help beside a button. All of it belongs to the main thread.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "SV/ui/Controls.h"

namespace kv {

/// Puts a window where it should stand; its work is done when it is made.
class WindowPlacer {
  public:
    /// The bits of `flags`, of which the last one that applies decides: 1 centres on the reference, or on the
    /// screen when that is null; 2 centres on the screen; 4 goes 20 pixels right of and below the reference.
    /// The window never hangs over the right or bottom edge of the screen. A null window is reported by
    /// `Check::POINTER`, which throws.
    WindowPlacer(sv::Window* reference, sv::Window* window, long flags);
};

/// A line of help beside a button, at most one at a time. Hidden at first.
class BalloonWindow : public sv::Window, public KVSingleton {
  public:
    /// Takes the place of any older balloon. Not one of the services that end with the application: whoever
    /// makes a balloon deletes it, the button by itself. The button needs a parent.
    static BalloonWindow* CreateBalloonWindow(sv::Window* button, sv::String const& text);
    /// Null when none stands.
    [[nodiscard]] static BalloonWindow* Instance();
    /// Hides and deletes the balloon, if there is one.
    static void DeleteBalloonWindow();
    ~BalloonWindow() override;

    /// Whether buttons show their help: 0 or 1, 1 at first.
    static void SetBalloonActive(unsigned char active) noexcept { isActive_ = active; }
    [[nodiscard]] static unsigned char IsBalloonActive() noexcept { return isActive_; }
    /// Whether a balloon stands.
    [[nodiscard]] static bool Exists() noexcept { return instance_ != nullptr; }

  protected:
    BalloonWindow(sv::Window& button, sv::String const& text);

  private:
    sv::FixedText text_;

    static BalloonWindow* instance_;
    static unsigned char isActive_;
};

}  // namespace kv
