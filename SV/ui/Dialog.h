// Dialogs: top-level windows with a title, above another window.
#pragma once

#include "SV/ui/Window.h"

namespace sv {

class Dialog : public Window {
  public:
    explicit Dialog(Window* parent, Style style = 0);

    /// Hides the window.
    void WasClosed() override;
};

/// A dialog that disables the window below it while it is executed.
class ModalDialog : public Dialog {
  public:
    using Dialog::Dialog;

    /// Shows the dialog, runs the loop until the dialog is ended, and returns its result; 0 if the user
    /// closed it. Returns at once if there is no display.
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
