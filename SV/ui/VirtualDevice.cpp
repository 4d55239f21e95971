#include "SV/ui/VirtualDevice.h"

#include "SV/ui/Backend.h"

namespace sv {

VirtualDevice::VirtualDevice() : VirtualDevice(Size()) {}
VirtualDevice::VirtualDevice(Size size) { SetOutputSizePixel(size); }
VirtualDevice::~VirtualDevice() = default;

void VirtualDevice::SetOutputSizePixel(Size size) {
    canvas_ = detail::CurrentBackend().MakeSurface(size);
    size_ = size;
    Erase();
}

}  // namespace sv
