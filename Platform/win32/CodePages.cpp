#include "Platform/CodePages.h"

#include "Platform/win32/Wide.h"

namespace platform {

std::optional<std::string> Utf8OfCodePage(std::string_view text, int codePage) {
    auto const page = static_cast<UINT>(codePage);
    int const length = static_cast<int>(text.size());
    if (::MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, text.data(), length, nullptr, 0) == 0 &&
        length != 0)
        return std::nullopt;
    return detail::Narrow(detail::Decode(text, page));
}

std::optional<std::string> CodePageOfUtf8(std::string_view utf8, int codePage) {
    auto const page = static_cast<UINT>(codePage);
    if (::IsValidCodePage(page) == 0) return std::nullopt;
    return detail::Encode(detail::Widen(utf8), page);
}

}  // namespace platform
