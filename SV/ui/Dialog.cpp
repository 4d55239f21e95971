#include "SV/ui/Dialog.h"

#include "SV/core/Application.h"
#include "SV/ui/Backend.h"

namespace sv {

Dialog::Dialog(Window* parent, Style style) : Window(detail::WindowKind::Dialog, parent, style) {}

void Dialog::WasClosed() { Hide(); }

short ModalDialog::Execute() {
    result_ = 0;
    isRunning_ = detail::CurrentBackend().HasDisplay();
    Window* const below = GetParent();
    bool const wasEnabled = below != nullptr && below->IsEnabled();
    if (isRunning_) {
        if (wasEnabled) below->Disable();
        Show();
        ToTop();
        while (isRunning_) Application::Reschedule();
        Hide();
        if (wasEnabled) below->Enable();
    }
    return result_;
}

void ModalDialog::EndDialog(short result) {
    result_ = result;
    isRunning_ = false;
}

void ModalDialog::WasClosed() { EndDialog(0); }

}  // namespace sv
