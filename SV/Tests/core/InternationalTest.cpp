#include "Platform/Locale.h"
#include "SV/core/International.h"
#include "SV/core/detail/Encoding.h"

#include <gtest/gtest.h>

#include <string>

using sv::Date;
using sv::International;
using sv::String;
using sv::Time;

namespace {

// What a German user sees is tested where a German locale is made.
TEST(International, AnswersForTheLocaleInForce) {
    EXPECT_EQ(International::GetNumDecimalSep(), platform::DecimalSeparator());
    EXPECT_EQ(International::GetLanguage(), platform::LanguageIdentifier());
}

TEST(International, WritesTimes) {
    Time const time(8, 5, 9, 7);
    EXPECT_EQ(International::GetTime(time), "08:05:09");
    EXPECT_EQ(International::GetTime(time, false), "08:05");
    EXPECT_EQ(International::GetTime(time, false, true), "08:05");
    EXPECT_EQ(International::GetTime(time, true, true),
              String("08:05:09") + International::GetNumDecimalSep() + "07");
    EXPECT_EQ(International::GetTime(Time(23, 59, 60)), "23:59:60");
}

TEST(International, WritesDatesInTheCodePage) {
    std::string const date(International::GetDate(Date(29, 2, 2024)).View());
    for (char const* const part : {"29", "2", "24"}) EXPECT_NE(date.find(part), std::string::npos) << date;
    EXPECT_EQ(date, sv::detail::ToSingleByte(sv::detail::FromUtf8(platform::ShortDate(2024, 2, 29)),
                                             sv::detail::Windows1252));
    EXPECT_EQ(International::GetDate(Date(31, 2, 2024)), "2024-2-31");
    EXPECT_EQ(International::GetDate(Date(0UL)), "0-0-0");
    EXPECT_EQ(International::GetDate(Date(1, 13, 2024)), "2024-13-1");
}

}  // namespace
