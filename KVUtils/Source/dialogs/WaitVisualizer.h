// WaitVisualizer and its kin: small windows that stand while the program works: with a text, with a bar that
// fills, and with a button to give up.
//
// Each is made for the time of the work, as an object on the stack: it shows at once over its parent, or in
// the middle of the screen without one, with the pointer of waiting, and goes when it is destroyed. A person
// cannot close it.
#pragma once

#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "SV/ui/Controls.h"
#include "SV/ui/Dialog.h"

namespace kv {

class WaitVisualizer : public sv::ModelessDialog, public RegisterTopWindow {
  public:
    WaitVisualizer(sv::Window* parent, sv::String const& title, sv::String const& text);
    ~WaitVisualizer() override;

    /// What the program does now. Runs one turn of the loop, so that it shows.
    void ChangeText(sv::String const& text);

    void Paint(sv::Rectangle const& area) override;
    void WasClosed() override;

  protected:
    /// `height` of the window, in pixels.
    WaitVisualizer(sv::Window* parent, sv::String const& title, sv::String const& text, int height);

  private:
    sv::FixedText text_;
    sv::Bitmap picture_;
    bool wasWaiting_;
};

/// With a bar.
class WaitVisualizer2 : public WaitVisualizer {
  public:
    WaitVisualizer2(sv::Window* parent, sv::String const& title, sv::String const& text);

    /// 0 to 100, what lies outside counts as the nearest. Runs one turn of the loop when the bar has moved.
    void SetPercent(int percent);
    [[nodiscard]] int GetPercent() const noexcept { return percent_; }

    void Paint(sv::Rectangle const& area) override;

  protected:
    using WaitVisualizer::WaitVisualizer;

  private:
    int percent_ = 0;
};

/// With a button to cancel, and Escape for it. Whoever works asks from time to time.
class AbbruchDialog : public WaitVisualizer2 {
  public:
    AbbruchDialog(sv::Window* parent, sv::String const& title, sv::String const& text);

    /// Runs one turn of the loop. 1 once the person has cancelled, else 0.
    [[nodiscard]] unsigned char IsAborted();

    void WasClosed() override;

  private:
    long CancelHdl(KOBitmapButton* sender);

    KOBitmapButtonBar buttons_;
    bool isAborted_ = false;
};

}  // namespace kv
