#include "Apps/files/Quotes.h"

#include <gtest/gtest.h>

namespace files {
namespace {

TEST(Quotes, CellTextIsFreedOfEveryLayer) {
    struct Row {
        char const* cell;
        char const* text;
    };
    for (auto const& [cell, text] :
         {Row{"plain", "plain"}, Row{R"("in quotes")", "in quotes"}, Row{R"("""2013-11-21""")", "2013-11-21"},
          Row{R"(""D50"")", "D50"}, Row{R"("5"" tape")", "5\" tape"}, Row{R"("")", ""}, Row{R"(")", "\""},
          Row{R"("  padded ")", "padded"}}) {
        EXPECT_EQ(Unquoted(cell), text) << cell;
    }
}

TEST(Quotes, OnlyALineThatASpreadsheetQuotedIsUnwrapped) {
    std::string store;
    for (std::string_view const untouched : {"\"5\"", "\"dark skin\"", "\"a\"\t\"b\"", "plain", "\"", ""}) {
        std::string_view line = untouched;
        EXPECT_FALSE(UnwrapLine(line, store)) << untouched;
        EXPECT_EQ(line, untouched);
    }
    std::string_view line = R"("WEIGHTING_FUNCTION ""ILLUMINANT,D50""")";
    ASSERT_TRUE(UnwrapLine(line, store));
    EXPECT_EQ(line, R"(WEIGHTING_FUNCTION "ILLUMINANT,D50")");
}

}  // namespace
}  // namespace files
