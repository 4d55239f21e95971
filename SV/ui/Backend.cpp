#include "SV/ui/Backend.h"

#include "SV/headless/HeadlessBackend.h"
#include "SV/ui/Language.h"

namespace sv::detail {

namespace {

constinit Backend* installed = nullptr;

String& Language() {
    static String& code = *new String;
    return code;
}

}  // namespace

Backend& CurrentBackend() noexcept {
    return installed != nullptr ? *installed : headless::HeadlessBackend::Instance();
}

void InstallBackend(Backend* backend) noexcept {
    installed = backend;
    CurrentBackend().SetLanguage(Language());
}

}  // namespace sv::detail

namespace sv {

void ChangeLanguage(String const& code) {
    detail::Language() = code;
    detail::CurrentBackend().SetLanguage(code);
}

}  // namespace sv
