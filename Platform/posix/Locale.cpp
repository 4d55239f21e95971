#include "Platform/Locale.h"

#include "Platform/posix/LocaleNames.h"

#include <array>
#include <chrono>
#include <clocale>
#include <cstddef>
#include <ctime>
#include <iconv.h>
#include <langinfo.h>

namespace platform {

namespace {

/// Returns the time structure of a day, including the weekday, which some locales print.
std::tm DayAsTm(std::chrono::year_month_day date) noexcept {
    std::tm day = {};
    day.tm_year = static_cast<int>(date.year()) - 1900;
    day.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    day.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    std::chrono::sys_days const days = date;
    day.tm_wday = static_cast<int>(std::chrono::weekday(days).c_encoding());
    day.tm_yday = static_cast<int>((days - std::chrono::sys_days(date.year() / 1 / 1)).count());
    return day;
}

/// Converts a text of the locale to UTF-8; returns it unchanged if the system cannot convert it.
std::string LocaleTextAsUtf8(std::string text) {
    std::string_view const set = ::nl_langinfo(CODESET);
    if (set == "UTF-8") return text;
    auto* const converter = ::iconv_open("UTF-8", set.data());
    if (converter == reinterpret_cast<iconv_t>(-1)) return text;  // NOLINT(performance-no-int-to-ptr)
    std::string converted(4 * text.size(), '\0');
    char* source = text.data();
    char* target = converted.data();
    std::size_t sourceLeft = text.size();
    std::size_t targetLeft = converted.size();
    bool const isDone = ::iconv(converter, &source, &sourceLeft, &target, &targetLeft) != std::size_t(-1);
    ::iconv_close(converter);
    converted.resize(converted.size() - targetLeft);
    return isDone ? converted : text;
}

}  // namespace

unsigned short LanguageIdentifier() noexcept {
    char const* const name = std::setlocale(LC_MESSAGES, nullptr);
    return name == nullptr ? 0 : detail::LanguageIdentifierOf(name);
}

char DecimalSeparator() noexcept {
    char const* const point = std::localeconv()->decimal_point;
    bool const isOneByte = point[0] != '\0' && point[1] == '\0';
    return isOneByte ? point[0] : '.';
}

std::string ShortDate(int year, int month, int day) {
    namespace chrono = std::chrono;
    auto const number = [](int value) { return static_cast<unsigned>(value); };
    chrono::year_month_day const date(chrono::year(year), chrono::month(number(month)),
                                      chrono::day(number(day)));
    bool const isInRange = year >= 0 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31;
    if (!isInRange || !date.ok()) {
        return std::to_string(year) + '-' + std::to_string(month) + '-' + std::to_string(day);
    }
    std::tm const time = DayAsTm(date);
    std::array<char, 256> text = {};
    return LocaleTextAsUtf8({text.data(), std::strftime(text.data(), text.size(), "%x", &time)});
}

std::string ToSystemText(std::string_view utf8) { return std::string(utf8); }
std::string FromSystemText(std::string_view text) { return std::string(text); }

}  // namespace platform
