// sv::VirtualDevice: a picture in memory that is drawn on like a window.
#pragma once

#include "SV/ui/OutputDevice.h"

#include <memory>

namespace sv {

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
