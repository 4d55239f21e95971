#include "Apps/HQMSERV/Options.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace hqmserv {

namespace {

TEST(OptionsTest, ReadsWhatAMessageStartsItWith) {
    Options const options = ParseOptions({"-S", "-LNG", "49"});
    EXPECT_TRUE(options.isCalled);
    EXPECT_EQ(options.language, 49);
    EXPECT_EQ(options.file, "");
    EXPECT_EQ(ParseOptions({"chart.csv", "--measuring-time", "20"}).measuringTime.count(), 20);
}

TEST(OptionsTest, SaysWhatIsNotUnderstood) {
    std::vector<std::pair<std::vector<std::string>, std::string>> const rows = {
        {{"-LNG"}, "-LNG takes a number"},
        {{"-LNG", "x"}, "-LNG takes a number from 0 to 999, and not \"x\""},
        {{"-LNG", "-1"}, "-LNG takes a number from 0 to 999, and not \"-1\""},
        {{"--measuring-time", "60001"}, "--measuring-time takes a number from 0 to 60000, and not \"60001\""},
        {{"a.csv", "b.csv"}, "\"b.csv\" is not understood (see HQMSERV --help)"},
        {{"-s"}, "\"-s\" is not understood (see HQMSERV --help)"},
    };
    for (auto const& [arguments, text] : rows) {
        try {
            static_cast<void>(ParseOptions(arguments));
            ADD_FAILURE() << text;
        } catch (std::invalid_argument const& error) {
            EXPECT_EQ(error.what(), text);
        }
    }
}

}  // namespace

}  // namespace hqmserv
