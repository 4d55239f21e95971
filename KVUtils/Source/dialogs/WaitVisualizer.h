// WaitVisualizer, WaitVisualizer2 and AbbruchDialog: windows shown while the program works, with a text, a
// progress bar, and a button to cancel.
//
// Create one on the stack for the time of the work. It is shown at once, centred over its parent or, without
// one, on the screen, with the wait pointer, and closes when it is destroyed. The user cannot close it.
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

    /// Sets the text. Processes pending events, so that it shows.
    void ChangeText(sv::String const& text);

    void Paint(sv::Rectangle const& area) override;
    void WasClosed() override;

  protected:
    /// `height` is that of the window in pixels.
    WaitVisualizer(sv::Window* parent, sv::String const& title, sv::String const& text, int height);

  private:
    sv::FixedText text_;
    sv::Bitmap picture_;
    bool wasWaiting_;
};

/// With a progress bar.
class WaitVisualizer2 : public WaitVisualizer {
  public:
    WaitVisualizer2(sv::Window* parent, sv::String const& title, sv::String const& text);

    /// Clamps to 0 to 100. Processes pending events if the value changed.
    void SetPercent(int percent);
    [[nodiscard]] int GetPercent() const noexcept { return percent_; }

    void Paint(sv::Rectangle const& area) override;

  protected:
    using WaitVisualizer::WaitVisualizer;

  private:
    int percent_ = 0;
};

/// With a button to cancel; Escape cancels too. The caller polls `IsAborted` while it works.
class AbbruchDialog : public WaitVisualizer2 {
  public:
    AbbruchDialog(sv::Window* parent, sv::String const& title, sv::String const& text);

    /// Processes pending events. Returns 1 after the user has cancelled, otherwise 0.
    [[nodiscard]] unsigned char IsAborted();

    void WasClosed() override;

  private:
    long CancelHdl(KOBitmapButton* sender);

    KOBitmapButtonBar buttons_;
    bool isAborted_ = false;
};

}  // namespace kv
