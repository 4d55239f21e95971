#include "SV/core/NativePath.h"

#include "Platform/Utf8Path.h"
#include "SV/core/detail/Encoding.h"

#include <algorithm>
#include <cstddef>

namespace sv {

namespace {

/// The suite's code page, with control characters for the bytes that it leaves open, as Windows reads them.
constexpr detail::CodePage PathPage = [] {
    detail::CodePage page = detail::Windows1252;
    for (std::size_t i = 0; i < page.size(); ++i) {
        if (page[i] == 0) page[i] = static_cast<char16_t>(0x80 + i);
    }
    return page;
}();

}  // namespace

std::string NativePath(String const& path) {
    std::string name = detail::ToUtf8(detail::FromSingleByte(path.View(), PathPage));
    std::ranges::replace_if(
        name, [](char character) { return character == '/' || character == '\\'; }, PathSeparator);
    return name;
}

String FromNativePath(std::string_view path) {
    return detail::ToSingleByte(detail::FromUtf8(path), PathPage);
}

std::filesystem::path FilePath(String const& path) { return platform::PathOf(NativePath(path)); }

}  // namespace sv
