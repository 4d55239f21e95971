// sv::VirtualDevice: a picture in memory that is drawn on like a window.
#pragma once

#include "SV/ui/OutputDevice.h"

#include <memory>

namespace sv {

// Nobody deletes it by way of its base, whose destructor is protected.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class VirtualDevice final : public OutputDevice {
  public:
    /// Of no size.
    VirtualDevice();
    explicit VirtualDevice(Size size);
    ~VirtualDevice();

    /// A new surface of this size, painted with the background brush.
    void SetOutputSizePixel(Size size);
    [[nodiscard]] Size GetOutputSizePixel() const noexcept { return size_; }

  private:
    [[nodiscard]] detail::Canvas& GetCanvas() const override { return *canvas_; }

    Size size_;
    std::unique_ptr<detail::Canvas> canvas_;
};

}  // namespace sv
