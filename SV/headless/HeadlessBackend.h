// HeadlessBackend: windows without a display. They are painted when a test or the program asks for a picture;
// the pointer is moved by `MovePointer` alone.
#pragma once

#include "SV/headless/HeadlessPrinter.h"
#include "SV/headless/RecordingCanvas.h"
#include "SV/ui/Backend.h"

#include <vector>

namespace sv::headless {

class HeadlessBackend final : public detail::Backend {
  public:
    [[nodiscard]] static HeadlessBackend& Instance() noexcept;

    [[nodiscard]] std::unique_ptr<detail::WindowPeer> MakeWindow(Window& window, detail::WindowKind kind,
                                                                 detail::WindowPeer* parent) override;
    [[nodiscard]] std::unique_ptr<detail::Canvas> MakeSurface(Size size) override;
    [[nodiscard]] std::unique_ptr<detail::PrinterPeer> MakePrinter(String const& name) override;
    [[nodiscard]] bool HasDisplay() const noexcept override { return false; }
    [[nodiscard]] Size ScreenSize() const override { return {1280, 1024}; }
    [[nodiscard]] Point PointerPosition() const override { return pointer_; }
    /// Always returns none.
    [[nodiscard]] std::optional<FileAnswer> AskForFile(Window* /*parent*/,
                                                       FileQuestion const& /*question*/) override {
        return std::nullopt;
    }
    void MovePointer(Point position) noexcept { pointer_ = position; }
    void ChangePrinters(PrinterTraits const& traits) noexcept { printers_ = traits; }

  private:
    Point pointer_;
    PrinterTraits printers_;
};

/// Paints the window and its visible children and returns the picture.
[[nodiscard]] Bitmap Render(Window& window);
/// Paints the window without its children and returns the drawing calls, beginning with that for the
/// background.
[[nodiscard]] std::vector<DrawCall> Record(Window& window);
/// Whether painting was requested after the last one.
[[nodiscard]] bool IsInvalid(Window const& window);

}  // namespace sv::headless
