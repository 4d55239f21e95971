// Case conversion of ASCII letters, independent of the locale; other bytes stay.
#pragma once

namespace sv::detail {

[[nodiscard]] constexpr char ToUpper(char character) noexcept {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

[[nodiscard]] constexpr char ToLower(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace sv::detail
