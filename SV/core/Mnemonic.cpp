#include "SV/core/Mnemonic.h"

#include "SV/core/detail/TextPage.h"

namespace sv {

namespace {

/// Whether this byte begins a character of two bytes.
bool IsLead(char character, TextPage page) noexcept {
    auto const byte = static_cast<unsigned char>(character);
    switch (page) {
        case TextPage::Japanese:
            return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        case TextPage::Chinese:
            return byte >= 0x81 && byte <= 0xFE;
        case TextPage::Western:
            break;
    }
    return false;
}

}  // namespace

std::size_t FindMnemonic(String const& text) noexcept {
    TextPage const page = GetTextPage();
    for (std::size_t i = 0; i < text.Len(); i += IsLead(text[i], page) ? 2 : 1) {
        if (text[i] == '~') return i;
    }
    return String::NotFound;
}

String WithoutMnemonic(String text) {
    text.Erase(FindMnemonic(text), 1);
    return text;
}

}  // namespace sv
