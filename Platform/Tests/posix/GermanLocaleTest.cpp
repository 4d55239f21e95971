// What a German user sees, with a real German locale: one that is at hand, or else one that the test makes.
#include "Platform/Locale.h"
#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/International.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

/// Sets the German locale for a test, and the one that was set before at its end.
class GermanLocale : public testing::Test {
  protected:
    void SetUp() override {
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr) return;
        auto const localedef =
            platform::Process::Start("localedef", {"-i", "de_DE", "-f", "UTF-8", directory_ / "de_DE.UTF-8"});
        ASSERT_TRUE(localedef) << "no program localedef";
        ASSERT_EQ(localedef->Wait(), 0) << "localedef could not make de_DE.UTF-8";
        if (char const* const path = std::getenv("LOCPATH")) locPath_ = path;
        setenv("LOCPATH", directory_.Path().c_str(), 1);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
        isMade_ = true;
    }

    void TearDown() override {
        if (isMade_) locPath_ ? setenv("LOCPATH", locPath_->c_str(), 1) : unsetenv("LOCPATH");
        std::setlocale(LC_ALL, before_.c_str());
    }

  private:
    tests::TemporaryDirectory directory_;
    std::string before_ = std::setlocale(LC_ALL, nullptr);
    std::optional<std::string> locPath_;
    bool isMade_ = false;
};

// One test, since making the locale takes seconds.
TEST_F(GermanLocale, SpeaksGerman) {
    EXPECT_EQ(sv::International::GetLanguage(), 1031);
    EXPECT_EQ(sv::International::GetNumDecimalSep(), ',');
    EXPECT_EQ(sv::International::GetDate(sv::Date(9, 2, 2024)), "09.02.2024");
    EXPECT_EQ(sv::International::GetTime(sv::Time(8, 5, 9, 7), true, true), "08:05:09,07");

    // Numbers in ini files and the like never take the locale's form.
    EXPECT_EQ(sv::String(1234567), "1234567");
    EXPECT_EQ(platform::ShortDate(2024, 13, 1), "2024-13-1");

    // The language is that of the messages, the separator that of the numbers.
    std::setlocale(LC_MESSAGES, "C");
    EXPECT_EQ(sv::International::GetLanguage(), 0);
    EXPECT_EQ(sv::International::GetNumDecimalSep(), ',');
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(sv::International::GetNumDecimalSep(), '.');
}

}  // namespace
