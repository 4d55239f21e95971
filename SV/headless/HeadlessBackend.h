// HeadlessBackend: windows without a display. Nothing is painted before somebody asks for a picture, and
// nobody moves a mouse but by the operations below.
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
    /// Nobody chooses.
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

/// A picture of the window with all visible windows in it, painted anew.
[[nodiscard]] Bitmap Render(Window& window);
/// What painting the window alone draws, from the clearing of its ground on.
[[nodiscard]] std::vector<DrawCall> Record(Window& window);
/// Whether a painting was asked for since the last one.
[[nodiscard]] bool IsInvalid(Window const& window);

}  // namespace sv::headless
