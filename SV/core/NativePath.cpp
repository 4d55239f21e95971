#include "SV/core/NativePath.h"

#include "Platform/CodePages.h"
#include "Platform/Utf8Path.h"
#include "SV/core/detail/Encoding.h"
#include "SV/core/detail/TextPage.h"

#include <algorithm>
#include <cstddef>
#include <optional>

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

/// A name that is not valid in the code page of the language is decoded as Western.
std::string Decoded(std::string_view path) {
    if (GetTextPage() != TextPage::Western) {
        if (auto utf8 = platform::Utf8OfCodePage(path, static_cast<int>(GetTextPage()))) return *utf8;
    }
    return detail::ToUtf8(detail::FromSingleByte(path, PathPage));
}

}  // namespace

std::string NativePath(String const& path) {
    std::string name = Decoded(path.View());
    std::ranges::replace_if(
        name, [](char character) { return character == '/' || character == '\\'; }, PathSeparator);
    return name;
}

String FromNativePath(std::string_view path) {
    if (GetTextPage() != TextPage::Western) {
        if (auto text = platform::CodePageOfUtf8(path, static_cast<int>(GetTextPage()))) return *text;
    }
    return detail::ToSingleByte(detail::FromUtf8(path), PathPage);
}

std::filesystem::path FilePath(String const& path) { return platform::PathOf(NativePath(path)); }

}  // namespace sv
