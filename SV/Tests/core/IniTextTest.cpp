#include "SV/core/detail/IniText.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

using sv::detail::IniText;

namespace {

constexpr std::string_view Sample =
    "; of the suite\r\n"
    "loose = above\r\n"
    "\r\n"
    "[HQM-Server]\r\n"
    "Path=C:\\Suite\\HQMSERV.EXE\r\n"
    "# not = a key\r\n"
    "  Spaced \t=  two  words  \r\n"
    "no value here\r\n"
    "empty=\r\n"
    "path=second\r\n"
    "[Scales] ; trailing\n"
    "formula=a=b=c\n"
    "[hqm-server]\n"
    "Late=unseen\n"
    "[open\n"
    "=nameless\n"
    "last=1";

struct Lookup {
    char const* group;
    char const* key;
    char const* value;  // null: no such key
};

TEST(IniText, FindsTheFirstOfAName) {
    Lookup const lookups[] = {
        {"", "loose", "above"},
        {"HQM-Server", "Path", "C:\\Suite\\HQMSERV.EXE"},
        {"hqm-SERVER", "pATH", "C:\\Suite\\HQMSERV.EXE"},
        {" HQM-Server ", " Path ", "C:\\Suite\\HQMSERV.EXE"},
        {"HQM-Server", "Spaced", "two  words"},
        {"HQM-Server", "empty", ""},
        {"HQM-Server", "# not", nullptr},
        {"HQM-Server", "no value here", nullptr},
        {"Scales", "formula", "a=b=c"},
        {"HQM-Server", "Late", nullptr},
        {"HQM-Server", "last", nullptr},
        {"Scales", "Path", nullptr},
        {"missing", "Path", nullptr},
        {"Scales", "", nullptr},
    };
    IniText const text{std::string(Sample)};
    for (Lookup const& lookup : lookups) {
        auto const value = text.Value(lookup.group, lookup.key);
        ASSERT_EQ(value.has_value(), lookup.value != nullptr) << lookup.group << ' ' << lookup.key;
        EXPECT_EQ(value.value_or(""), lookup.value == nullptr ? "" : lookup.value) << lookup.key;
    }
}

TEST(IniText, ListsNamesAsTheyAreSpelled) {
    using Names = std::vector<std::string>;
    IniText const text{std::string(Sample)};
    EXPECT_EQ(text.GroupNames(), (Names{"", "HQM-Server", "Scales"}));
    EXPECT_EQ(text.KeyNames("hqm-server"), (Names{"Path", "Spaced", "empty"}));
    EXPECT_EQ(text.KeyNames("missing"), Names{});
}

struct Edit {
    char const* about;
    std::string_view before;
    char const* group;
    char const* key;
    char const* value;  // null: the key is removed
    std::string_view after;
};

TEST(IniText, EditsOneLineAndNothingElse) {
    Edit const edits[] = {
        {"a value", "[a]\nx = 1  ;c\ny=2\n", "A", "X", "7", "[a]\nx = 7\ny=2\n"},
        {"the blanks after =", "k=  old  \r\n", "", "k", "new", "k=  new  \r\n"},
        {"an empty value", "[a]\r\nx=\r\n", "a", "x", "1", "[a]\r\nx=1\r\n"},
        {"a blank value", "x= \n", "", "x", "1", "x= 1\n"},
        {"the first of two", "[a]\nx=1\nx=2\n", "a", "x", "3", "[a]\nx=3\nx=2\n"},
        {"the first of two groups", "[a]\n[a]\nx=2\n", "a", "x", "3", "[a]\nx=3\n[a]\nx=2\n"},
        {"no end of the last line", "[a]\nx=1", "a", "x", "2", "[a]\nx=2"},
        {"a key after the last one", "[a]\r\nx=1\r\n\r\n; b\r\n[b]\n", "a", "y", "2",
         "[a]\r\nx=1\r\ny=2\r\n\r\n; b\r\n[b]\n"},
        {"a key like its neighbour", "[a]\r\n[b]\n", "b", "y", "2", "[a]\r\n[b]\ny=2\n"},
        {"a key after a line without end", "[a]\r\nx=1", "a", "y", "2", "[a]\r\nx=1\r\ny=2\r\n"},
        {"a group", "[a]\r\n", "b", "y", "2", "[a]\r\n[b]\r\ny=2\r\n"},
        {"a group after a line without end", "; only", "b", "y", "2", "; only\n[b]\ny=2\n"},
        {"into nothing", "", "b", "y", "2", "[b]\ny=2\n"},
        {"into nothing, no group", "", "", "y", "2", "y=2\n"},
        {"above the first group", "[a]\r\n", "", "y", "2", "y=2\r\n[a]\r\n"},
        {"after a mark", "\xEF\xBB\xBF[a]\n", "", "y", "2", "\xEF\xBB\xBFy=2\n[a]\n"},
        {"after a mark alone", "\xEF\xBB\xBF", "", "y", "2", "\xEF\xBB\xBFy=2\n"},
        {"a key after a mark", "\xEF\xBB\xBFx=1\n", "", "x", "2", "\xEF\xBB\xBFx=2\n"},
        {"line ends in all three", "", "g\nh", "k\rl", " v\r\nw\n", "[g h]\nk l=v  w\n"},
        {"removal", "[a]\nx=1\ny=2\n", "a", "x", nullptr, "[a]\ny=2\n"},
        {"removal of both", "[a]\nx=1\n;c\nX=2\n[a]\nx=3\n", "a", "x", nullptr, "[a]\n;c\n[a]\nx=3\n"},
        {"removal at the end", "[a]\ny=2\nx=1", "a", "x", nullptr, "[a]\ny=2\n"},
        {"removal keeps the mark", "\xEF\xBB\xBFx=1\ny=2", "", "x", nullptr, "\xEF\xBB\xBFy=2"},
    };
    for (Edit const& edit : edits) {
        IniText text{std::string(edit.before)};
        if (edit.value != nullptr) {
            ASSERT_TRUE(text.SetValue(edit.group, edit.key, edit.value)) << edit.about;
        } else {
            ASSERT_TRUE(text.RemoveKey(edit.group, edit.key)) << edit.about;
        }
        EXPECT_EQ(text.Text(), edit.after) << edit.about;
    }
}

TEST(IniText, RefusesWhatWouldBeReadAsSomethingElse) {
    Lookup const names[] = {{"a", "", "1"},   {"a", " \t\r\n", "1"}, {"a", "x=y", "1"},
                            {"a", ";x", "1"}, {"a", " #x", "1"},     {"a", "[x", "1"},
                            {"a]", "x", "1"}, {"a]b", "x", "1"},     {"a", "\xEF\xBB\xBF;x", "1"}};
    IniText text{std::string(Sample)};
    for (Lookup const& name : names) {
        EXPECT_FALSE(text.SetValue(name.group, name.key, name.value)) << name.group << ' ' << name.key;
    }
    EXPECT_FALSE(text.RemoveKey("Scales", "missing"));
    EXPECT_EQ(text.Text(), Sample);
}

// 2 MB take milliseconds; quadratic time would be minutes.
TEST(IniText, ReadsAnyTextInLinearTime) {
    for (std::string_view const part :
         {"x\n", "\n", "x=1\n", "[a]\n", "[", "=", "x= \t", "\xEF\xBB\xBF", " \r"}) {
        std::string text;
        while (text.size() < 2'000'000) text += part;
        std::clock_t const start = std::clock();
        EXPECT_EQ(IniText(text).Text(), text);
        EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC) << part;
    }
}

}  // namespace
