#include "SV/core/DateTime.h"

#include <gtest/gtest.h>

#include <ctime>

using sv::Date;
using sv::Time;

namespace {

static_assert(Date(31, 12, 1999).GetDate() == 19991231);
static_assert(Date(20240229).GetDay() == 29 && Date(20240229).GetMonth() == 2 &&
              Date(20240229).GetYear() == 2024);
static_assert(Time(23, 59, 58, 7).GetTime() == 23595807);
static_assert(Time(23595807).GetHour() == 23 && Time(23595807).GetMin() == 59 &&
              Time(23595807).GetSec() == 58);
static_assert(Time(23595807).Get100Sec() == 7);
static_assert(Time(8, 5) == Time(8050000));

TEST(DateTime, FieldsWrapAsTheirDigitsDo) {
    EXPECT_EQ(Date(131, 113, 12024), Date(31, 13, 2024));
    EXPECT_EQ(Time(124, 160, 199, 1234), Time(24, 60, 99, 34));
}

/// A moment as the standard library shows it where the user is.
std::tm LocalMoment(std::time_t moment) { return *std::localtime(&moment); }

// The library's answer lies between two readings of the standard clock, which may be a tick late, so that a
// second begins for it later. A change of day does no harm.
TEST(DateTime, NowIsLocal) {
    std::time_t const before = std::time(nullptr);
    Date const today;
    Time const now;
    std::time_t const after = std::time(nullptr);
    bool isFound = false;
    for (std::time_t moment = before; moment <= after + 1; ++moment) {
        std::tm const local = LocalMoment(moment);
        isFound |=
            local.tm_hour == now.GetHour() && local.tm_min == now.GetMin() && local.tm_sec == now.GetSec() &&
            (moment != before || (local.tm_mday == today.GetDay() && local.tm_mon + 1 == today.GetMonth() &&
                                  local.tm_year + 1900 == today.GetYear()));
    }
    EXPECT_TRUE(isFound) << today.GetDate() << ' ' << now.GetTime();
}

}  // namespace
