#include "SV/ui/Backend.h"

#include "SV/headless/HeadlessBackend.h"

namespace sv::detail {

namespace {

constinit Backend* installed = nullptr;

}  // namespace

Backend& CurrentBackend() noexcept {
    return installed != nullptr ? *installed : headless::HeadlessBackend::Instance();
}

void InstallBackend(Backend* backend) noexcept { installed = backend; }

}  // namespace sv::detail
