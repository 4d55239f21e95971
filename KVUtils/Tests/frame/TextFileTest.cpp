#include "KVUtils/Source/frame/detail/TextFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kv::test {

namespace {

using detail::TextFault;
using detail::TextGroups;

/// What both passes make of a file. A fault stands in `faults` as its missing character and the group.
struct Passes {
    std::vector<std::string> names;
    std::vector<unsigned long> starts;
    unsigned long entryCount = 0;
    std::vector<std::string> faults;
    std::vector<std::string> texts;
};

Passes BothPasses(std::string_view file, bool goOn = true) {
    Passes result;
    TextGroups groups;
    bool const isFaultless =
        CountTexts(file, groups, [&](TextFault fault, char missing, sv::String const& group) {
            std::string const kind = fault == TextFault::TooManyGroups ? "groups" : std::string(1, missing);
            result.faults.push_back(kind + " " + std::string(group.View()));
            return goOn;
        });
    EXPECT_EQ(isFaultless, result.faults.empty());
    detail::ReadTexts(file, [&](std::string_view text) { result.texts.emplace_back(text); });
    for (sv::String const& name : groups.names) result.names.emplace_back(name.View());
    result.starts = groups.starts;
    result.entryCount = groups.entryCount;
    return result;
}

using Texts = std::vector<std::string>;
using Starts = std::vector<unsigned long>;

TEST(TextFileTest, FilesWithoutAFault) {
    struct Row {
        std::string file;
        Texts names;
        Starts starts;
        Texts texts;
    };
    Row const rows[] = {
        {"", {}, {0}, {}},
        {"{A}\n[a]\n[b]\n{B}\n[c]\n", {"A", "B"}, {0, 2, 3}, {"a", "b", "c"}},
        {"{A}\r\n[a]\r\n\r\n[b]\r\n", {"A"}, {0, 2}, {"a", "b"}},
        {std::string("{A}\0[a]\0[b]\r", 12), {"A"}, {0, 2}, {"a", "b"}},
        {"remark {A} x [a] y [b] z\nremark\n", {"A"}, {0, 1}, {"a] y [b"}},
        {"{A}[a]\n", {"A"}, {0, 1}, {"a"}},
        {"[before]\n{A}\n[a]\n", {"A"}, {1, 2}, {"before", "a"}},
        {"{A}\n[]\n[x]\n", {"A"}, {0, 2}, {"", "x"}},
        {"{A}\n[a[b]c]\n[[a]]\n[a]]\n[][x]\n[{A}]\n", {"A"}, {0, 5}, {"a[b]c", "a]", "a]", "][x", "{A}"}},
        {"{A\nB]}\n}\n", {"A\nB]"}, {0, 0}, {}},
        {"{A{B}\n", {"B"}, {0, 0}, {}},
        {"{A[a]\n{B}\n[b]\n", {"B"}, {1, 2}, {"a", "b"}},  // the entry breaks the name off
        {"{A}\n[a]\n{A}\n[b]\n", {"A", "A"}, {0, 1, 2}, {"a", "b"}},
        // Comments. Their first "/" stays; "//" takes the line end along, so the entry goes on below.
        {"// {X}\n{A}// remark\n[a]\n", {"A"}, {0, 1}, {"a"}},
        {"{A}\n[a/*]*/b]\n", {"A"}, {0, 1}, {"a/b"}},
        {"{A}\n[a//]\nb]\n", {"A"}, {0, 1}, {"a/b"}},
        {"{A/**/B}\n[/*/]*/a]\n", {"A/B"}, {0, 1}, {"/a"}},
        {"{A}\n[a/*x*//b]\n[c / * d]\n", {"A"}, {0, 2}, {"a//b", "c / * d"}},
        {"{A}\n[a]\n/* not closed\n[b]\n", {"A"}, {0, 1}, {"a"}},
        // Without its last line end an entry is read and not counted, and its group has no end.
        {"{A}\n[a]\n[b]", {"A"}, {0}, {"a", "b"}},
        {"{A}\n[a", {"A"}, {0}, {}},
    };
    for (Row const& row : rows) {
        Passes const passes = BothPasses(row.file);
        EXPECT_EQ(passes.names, row.names) << row.file;
        EXPECT_EQ(passes.starts, row.starts) << row.file;
        EXPECT_EQ(passes.texts, row.texts) << row.file;
        EXPECT_EQ(passes.faults, Texts()) << row.file;
    }
}

TEST(TextFileTest, Faults) {
    std::string const longest(80, 'n');
    struct Row {
        std::string file;
        bool goOn;
        Texts faults;
        Texts names;
        unsigned long entryCount;
    };
    Row const rows[] = {
        {"[a\n", true, {"] "}, {}, 0},
        {"{A}\n[a\n[b]\n[c]\n", true, {"] A"}, {"A"}, 2},  // still in the entry: "a[b]" is one
        {"{A}\n[a\n\n[b]\n", true, {"] A", "] A"}, {"A"}, 1},
        {"{A}\n[a\n[b]\n", false, {"] A"}, {"A"}, 0},
        {"{A}\n[a//]\r\n[b]\r\n", true, {"] A"}, {"A"}, 1},  // of CR LF the comment takes only the CR
        {"{A}\n{Bc[d\n", true, {"] Bc"}, {"A"}, 0},
        {"{" + longest + "}\n", true, {}, {longest}, 0},
        {"{" + longest + "n}\n[a]\n", true, {"} " + longest}, {longest}, 1},
        {"{" + longest + "n}\n[a]\n", false, {"} " + longest}, {longest}, 0},
    };
    for (Row const& row : rows) {
        Passes const passes = BothPasses(row.file, row.goOn);
        EXPECT_EQ(passes.faults, row.faults) << row.file;
        EXPECT_EQ(passes.names, row.names) << row.file;
        EXPECT_EQ(passes.entryCount, row.entryCount) << row.file;
    }
}

TEST(TextFileTest, TooManyGroups) {
    struct Row {
        int groups;
        std::size_t faults;
        std::size_t names;
    };
    // The end of the file asks for a place behind the last group, too.
    static constexpr Row rows[] = {{199, 0, 199}, {200, 1, 200}, {201, 2, 200}, {203, 4, 200}};
    for (Row const& row : rows) {
        std::string file;
        for (int i = 0; i < row.groups; ++i) file += "{" + std::to_string(i) + "}\n[t]\n";
        Passes const passes = BothPasses(file, false);
        EXPECT_EQ(passes.faults, Texts(row.faults, "groups ")) << row.groups;
        EXPECT_EQ(passes.names.size(), row.names) << row.groups;
        EXPECT_EQ(passes.entryCount, static_cast<unsigned long>(row.groups));
        EXPECT_LE(passes.starts.size(), 200U);
    }
}

}  // namespace

}  // namespace kv::test
