#include "Apps/kvcolor/SampleNames.h"
#include "gtest/gtest.h"

#include <sstream>

namespace kvcolor::test {

namespace {

files::MeasurementFile FileOf(std::vector<std::string> const& names) {
    files::MeasurementFile file;
    file.path = "f.txt";
    for (std::string const& name : names) file.samples.push_back({name, {}, {}});
    return file;
}

}  // namespace

TEST(SampleNamesTest, Patterns) {
    struct Case {
        char const* text;
        char const* pattern;
        bool matches;
    };
    for (Case const& c : {Case{"neutral 5", "neutral*", true},
                          {"neutral 5", "*5", true},
                          {"neutral 5", "n*l*5", true},
                          {"neutral 5", "n*l*6", false},
                          {"abcabd", "*abd", true},
                          {"", "*", true},
                          {"", "?", false},
                          {"gr\u00FCn", "gr?n", true},
                          {"gr\u00FCn", "gr??n", false},
                          {"a", "A", false},
                          {"ab", "a", false},
                          {"a", "a**", true}}) {
        EXPECT_EQ(MatchesGlob(c.text, c.pattern), c.matches) << c.text << ' ' << c.pattern;
    }
}

TEST(SampleNamesTest, Choices) {
    auto const file = FileOf({"a", "b, c", "b", "#1", "a*", "a"});
    struct Case {
        std::vector<std::string> choices;
        std::vector<std::size_t> chosen;
    };
    for (Case const& c :
         {Case{{}, {0, 1, 2, 3, 4, 5}}, Case{{"a"}, {0, 5}}, Case{{"b, c"}, {1}}, Case{{"b,a"}, {0, 2, 5}},
          Case{{"#1"}, {3}}, Case{{"#2"}, {1}}, Case{{"a*"}, {4}}, Case{{"b*", "#3"}, {1, 2}}}) {
        EXPECT_EQ(ChooseSamples(file, c.choices), c.chosen) << testing::PrintToString(c.choices);
    }
}

TEST(SampleNamesTest, WarnsOfAnAmbiguousName) {
    std::ostringstream err;
    Messages messages(err);
    auto const file = FileOf({"x", "a", "b", "a"});
    EXPECT_EQ(FindSample(file, "a", messages), 1U);
    EXPECT_EQ(err.str(), "kvcolor: warning: f.txt has 2 samples \"a\" (#2, #4): using #2\n");
    err.str("");
    EXPECT_EQ(FindSample(file, "#4", messages), 3U);
    EXPECT_EQ(err.str(), "");
}

}  // namespace kvcolor::test
