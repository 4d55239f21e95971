#include "SV/core/International.h"

#include "Platform/Locale.h"

#include <utility>

namespace sv {

namespace {

void AppendTwoDigits(String& text, unsigned short number) {
    text += static_cast<char>('0' + number / 10 % 10);
    text += static_cast<char>('0' + number % 10);
}

enum Forms : int { OfSystem, Iso, German };

thread_local constinit int formsInForce = OfSystem;

String IsoDate(Date const& date) {
    String text;
    AppendTwoDigits(text, static_cast<unsigned short>(date.GetYear() / 100));
    AppendTwoDigits(text, date.GetYear());
    text += '-';
    AppendTwoDigits(text, date.GetMonth());
    text += '-';
    AppendTwoDigits(text, date.GetDay());
    return text;
}

String GermanDate(Date const& date) {
    String text;
    AppendTwoDigits(text, date.GetDay());
    text += '.';
    AppendTwoDigits(text, date.GetMonth());
    return text + "." + String(date.GetYear());
}

}  // namespace

InternationalForms::InternationalForms(std::string_view language) noexcept
    : before_(std::exchange(formsInForce, language.empty()   ? OfSystem
                                          : language == "de" ? German
                                                             : Iso)) {}

InternationalForms::~InternationalForms() { formsInForce = before_; }

char International::GetNumDecimalSep() noexcept {
    if (formsInForce == OfSystem) return platform::DecimalSeparator();
    return formsInForce == German ? ',' : '.';
}

unsigned short International::GetLanguage() noexcept { return platform::LanguageIdentifier(); }

String International::GetDate(Date const& date) {
    if (formsInForce != OfSystem) return formsInForce == German ? GermanDate(date) : IsoDate(date);
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
