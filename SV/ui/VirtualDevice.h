// sv::VirtualDevice: a picture in memory that is drawn on like a window.
#pragma once

#include "SV/ui/OutputDevice.h"

#include <memory>

namespace sv {

// Never deleted through its base, whose destructor is protected.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class VirtualDevice final : public OutputDevice {
  public:
    /// A device without pixels.
    VirtualDevice();
    explicit VirtualDevice(Size size);
    ~VirtualDevice();

    /// Replaces the surface by one of this size, filled with the background brush.
    void SetOutputSizePixel(Size size);
    [[nodiscard]] Size GetOutputSizePixel() const noexcept { return size_; }

  private:
    [[nodiscard]] detail::Canvas& GetCanvas() const override { return *canvas_; }

    Size size_;
    std::unique_ptr<detail::Canvas> canvas_;
};

}  // namespace sv
