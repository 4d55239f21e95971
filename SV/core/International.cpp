#include "SV/core/International.h"

#include "Platform/Locale.h"

namespace sv {

namespace {

void AppendTwoDigits(String& text, unsigned short number) {
    text += static_cast<char>('0' + number / 10 % 10);
    text += static_cast<char>('0' + number % 10);
}

}  // namespace

char International::GetNumDecimalSep() noexcept { return platform::DecimalSeparator(); }

unsigned short International::GetLanguage() noexcept { return platform::LanguageIdentifier(); }

String International::GetDate(Date const& date) {
    return String::FromUtf8(platform::ShortDate(date.GetYear(), date.GetMonth(), date.GetDay()));
}

String International::GetTime(Time const& time, bool seconds, bool hundredths) {
    String text;
    AppendTwoDigits(text, time.GetHour());
    text += ':';
    AppendTwoDigits(text, time.GetMin());
    if (!seconds) return text;
    text += ':';
    AppendTwoDigits(text, time.GetSec());
    if (!hundredths) return text;
    text += GetNumDecimalSep();
    AppendTwoDigits(text, time.Get100Sec());
    return text;
}

}  // namespace sv
