// Dialogs: windows of their own with a title, on top of another window.
#pragma once

#include "SV/ui/Window.h"

namespace sv {

class Dialog : public Window {
  public:
    explicit Dialog(Window* parent, Style style = 0);

    /// Hides the window.
    void WasClosed() override;
};

/// A dialog that shuts off the window below it while it runs.
class ModalDialog : public Dialog {
  public:
    using Dialog::Dialog;

    /// Shows the dialog, runs the loop until it is ended, and returns the result: 0 when it was closed.
    /// Without a display it ends at once.
    short Execute();
    void EndDialog(short result = 0);
    [[nodiscard]] bool IsInExecute() const noexcept { return isRunning_; }

    void WasClosed() override;

  private:
    bool isRunning_ = false;
    short result_ = 0;
};

class ModelessDialog : public Dialog {
  public:
    using Dialog::Dialog;
};

}  // namespace sv
