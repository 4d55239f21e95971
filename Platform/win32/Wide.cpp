#include "Platform/win32/Wide.h"

namespace platform::detail {

std::wstring Decode(std::string_view text, UINT codePage) {
    int const length = static_cast<int>(text.size());
    int const needed = ::MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    ::MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), needed);
    return wide;
}

std::string Encode(std::wstring_view text, UINT codePage) {
    // UTF-8 has every character, and its conversion allows neither of the two.
    bool const isUtf8 = codePage == CP_UTF8;
    DWORD const flags = isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    char const* const lost = isUtf8 ? nullptr : "?";
    int const length = static_cast<int>(text.size());
    int const needed = ::WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, lost, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    ::WideCharToMultiByte(codePage, flags, text.data(), length, bytes.data(), needed, lost, nullptr);
    return bytes;
}

}  // namespace platform::detail
