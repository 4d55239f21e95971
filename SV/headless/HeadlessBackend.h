// HeadlessBackend: windows without a display. Nothing is painted before somebody asks for a picture, and
// nobody moves a mouse but by the operations below.
#pragma once

#include "SV/headless/RecordingCanvas.h"
#include "SV/ui/Backend.h"

#include <vector>

namespace sv::headless {

class HeadlessBackend final : public detail::Backend {
  public:
    [[nodiscard]] static HeadlessBackend& Instance() noexcept;

    [[nodiscard]] std::unique_ptr<detail::WindowPeer> MakeWindow(Window& window,
                                                                 detail::WindowPeer* parent) override;
    [[nodiscard]] std::unique_ptr<detail::Canvas> MakeSurface(Size size) override;
    [[nodiscard]] Size ScreenSize() const override { return {1280, 1024}; }
};

/// A picture of the window with all visible windows in it, painted anew.
[[nodiscard]] Bitmap Render(Window& window);
/// What painting the window alone draws, from the clearing of its ground on.
[[nodiscard]] std::vector<DrawCall> Record(Window& window);
/// Whether a painting was asked for since the last one.
[[nodiscard]] bool IsInvalid(Window const& window);

}  // namespace sv::headless
