#include "Platform/Locale.h"

#include "Platform/win32/Wide.h"

#include <array>

namespace platform {

unsigned short LanguageIdentifier() noexcept { return ::GetUserDefaultLangID(); }

char DecimalSeparator() noexcept {
    std::array<wchar_t, 4> text = {};  // maximum three characters, and the zero
    int const size = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text.data(), text.size());
    bool const isOneByte = size == 2 && text[0] < 0x80;
    return isOneByte ? static_cast<char>(text[0]) : '.';
}

std::string ShortDate(int year, int month, int day) {
    auto const narrow = [](int number) { return static_cast<WORD>(number); };
    SYSTEMTIME const date = {narrow(year), narrow(month), 0, narrow(day), 0, 0, 0, 0};
    std::array<wchar_t, 256> text = {};
    int const size =
        ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &date, nullptr, text.data(), text.size());
    if (size <= 1) return std::to_string(year) + '-' + std::to_string(month) + '-' + std::to_string(day);
    return detail::Narrow({text.data(), static_cast<std::size_t>(size) - 1});
}

std::string ToSystemText(std::string_view utf8) { return detail::Encode(detail::Widen(utf8), CP_ACP); }
std::string FromSystemText(std::string_view text) { return detail::Narrow(detail::Decode(text, CP_ACP)); }

}  // namespace platform
