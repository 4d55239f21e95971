#include "Platform/Locale.h"
#include "SV/core/International.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace sv {
namespace {

static_assert(Date(31, 12, 1999).GetDate() == 19991231);
static_assert(Date(20240229).GetDay() == 29 && Date(20240229).GetMonth() == 2);
static_assert(Date(20240229).GetYear() == 2024 && Date(131, 113, 12024) == Date(31, 13, 2024));
static_assert(Time(23595807).GetHour() == 23 && Time(23595807).GetMin() == 59);
static_assert(Time(23595807).GetSec() == 58 && Time(23595807).Get100Sec() == 7);
static_assert(Time(8, 5) == Time(8050000) && Time(124, 160, 199, 1234) == Time(24, 60, 99, 34));

// Lies between two readings of the standard clock, which may be a tick late. A change of day is allowed for.
TEST(International, NowIsLocalTime) {
    std::time_t const before = std::time(nullptr);
    Date const today;
    Time const now;
    std::time_t const after = std::time(nullptr);
    bool isFound = false;
    for (std::time_t moment = before; moment <= after + 1; ++moment) {
        std::tm const local = *std::localtime(&moment);
        isFound |=
            local.tm_hour == now.GetHour() && local.tm_min == now.GetMin() && local.tm_sec == now.GetSec() &&
            (moment != before || (local.tm_mday == today.GetDay() && local.tm_mon + 1 == today.GetMonth() &&
                                  local.tm_year + 1900 == today.GetYear()));
    }
    EXPECT_TRUE(isFound) << today.GetDate() << ' ' << now.GetTime();
}

// Formats of a German locale are tested where such a locale is created.
TEST(International, FormatsForTheLocale) {
    EXPECT_EQ(International::GetNumDecimalSep(), platform::DecimalSeparator());
    EXPECT_EQ(International::GetLanguage(), platform::LanguageIdentifier());
    Time const time(8, 5, 9, 7);
    EXPECT_EQ(International::GetTime(time), "08:05:09");
    EXPECT_EQ(International::GetTime(time, false, true), "08:05");
    EXPECT_EQ(International::GetTime(time, true, true),
              String("08:05:09") + International::GetNumDecimalSep() + "07");
    EXPECT_EQ(International::GetTime(Time(23, 59, 60)), "23:59:60");

    EXPECT_EQ(International::GetDate(Date(29, 2, 2024)), String::FromUtf8(platform::ShortDate(2024, 2, 29)));
    EXPECT_EQ(International::GetDate(Date(31, 2, 2024)), "2024-2-31");
    EXPECT_EQ(International::GetDate(Date(0UL)), "0-0-0");
    EXPECT_EQ(International::GetDate(Date(1, 13, 2024)), "2024-13-1");
}

}  // namespace
}  // namespace sv
