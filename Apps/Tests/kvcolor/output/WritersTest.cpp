#include "Apps/Tests/kvcolor/Program.h"
#include "Apps/kvcolor/output/TableLayout.h"
#include "Apps/kvcolor/output/Text.h"
#include "Apps/kvcolor/output/Writers.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <ostream>
#include <streambuf>

namespace kvcolor::test {

namespace {

Answer AnswerOf(std::vector<Column> columns, std::vector<Row> rows) {
    return {"test", {{"file", "f.txt"}}, {{"samples", std::move(columns), std::move(rows)}}};
}

}  // namespace

TEST(WritersTest, TablesFitAHundredColumns) {
    std::string const longName =
        "ein sehr langer Name f\u00FCr ein Feld, wie ihn nur Werkzeuge schreiben, Nummer ";
    std::string const path =
        WriteFile("names.txt", {{longName + '1', "0.0"}, {longName + '2', "1.3"}, {"\u65E5", "0.5"}});
    Arguments lights = {"metamerism", path, "--standard", "#3"};
    for (int i = 40; i < 64; ++i) lights.insert(lights.end(), {"--test", "D" + std::to_string(i)});
    for (Arguments const& command :
         std::vector<Arguments>{{"convert", path},
                                {"convert", ChartA},
                                {"difference", path, "--standard", "#1"},
                                {"difference", ChartA, "--standard", ChartB},
                                {"density", path, "--all", "--paper", "#2", "--solid", "#3"},
                                {"strength", path, "--paper", "#2", "--solid", "#3"},
                                {"illuminants"},
                                lights}) {
        for (bool const isTerminal : {false, true}) {
            std::ostringstream out;
            std::ostringstream err;
            auto const variable = [](char const* name) {
                return std::string(name) == "COLORTERM" ? std::string("truecolor") : std::string();
            };
            Environment const environment{
                .out = out, .err = err, .outIsTerminal = isTerminal, .variable = variable};
            ASSERT_EQ(kvcolor::Run(command, environment), 0) << err.str();
            for (std::string line : LinesOf(out.str())) {
                // A swatch is two columns wide; its escape sequences are not.
                if (line.starts_with("\x1B[48")) line = "  " + line.substr(line.find("\x1B[0m") + 4);
                EXPECT_LE(Width(line), MaxLineWidth) << line;
                EXPECT_FALSE(line.ends_with(' ')) << line;
            }
        }
    }
}

TEST(WritersTest, LayoutCutsTextsThenFolds) {
    Table table{"samples", {TextColumn("name", "name")}, {{{std::string(60, 'n')}, std::nullopt}}};
    auto const addNumbers = [&](int count) {
        for (int i = 0; i < count; ++i) {
            table.columns.push_back(NumberColumn("k", "number"));
            table.rows[0].cells.emplace_back(1.0F);
        }
    };
    addNumbers(5);
    auto blocks = LayOut(table, 100);
    ASSERT_EQ(blocks.size(), 1U);
    EXPECT_EQ(blocks[0].widths, (std::vector<std::size_t>{60, 6, 6, 6, 6, 6}));
    addNumbers(5);
    blocks = LayOut(table, 100);
    ASSERT_EQ(blocks.size(), 1U);
    EXPECT_EQ(blocks[0].widths[0], 30U);
    addNumbers(5);
    blocks = LayOut(table, 100);
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0].columns.size(), 14U);
    EXPECT_EQ(blocks[1].columns, (std::vector<std::size_t>{0, 14, 15}));
}

/// Records the longest text written at once.
class LongestWrite : public std::streambuf {
  public:
    std::streamsize longest = 0;

  protected:
    std::streamsize xsputn(char const*, std::streamsize count) override {
        longest = std::max(longest, count);
        return count;
    }
    int overflow(int c) override { return c; }
};

TEST(WritersTest, RowsAreWrittenOneByOne) {
    std::vector<Row> const rows(1000, Row{{"name", 0.1F}, std::nullopt});
    Answer const answer = AnswerOf({TextColumn("name", "n"), NumberColumn("v", "v")}, rows);
    for (auto const& write : std::vector<std::function<void(std::ostream&)>>{
             [&](std::ostream& out) { WriteCsv(out, answer); },
             [&](std::ostream& out) { WriteJson(out, answer); },
             [&](std::ostream& out) { WriteTable(out, answer, ColourDepth::None); }}) {
        LongestWrite buffer;
        std::ostream out(&buffer);
        write(out);
        EXPECT_GT(buffer.longest, 0);
        EXPECT_LT(buffer.longest, 200);
    }
}

TEST(WritersTest, CsvQuotesAndLeavesOutWhatIsNotFinite) {
    Answer const answer = AnswerOf(
        {TextColumn("name", "n"), NumberColumn("v", "v"), NumberColumn("w, x", "w")},
        {{{"a \"b\", c", 0.1F, std::nanf("")}, std::nullopt}, {{"d\ne", 1e-7F, Cell()}, std::nullopt}});
    std::ostringstream out;
    WriteCsv(out, answer);
    EXPECT_EQ(out.str(),
              "name,v,\"w, x\",file\n"
              "\"a \"\"b\"\", c\",0.1,,f.txt\n"
              "\"d\ne\",1e-07,,f.txt\n");
}

TEST(WritersTest, JsonHasShortNumbersNullsAndValidText) {
    Answer const answer =
        AnswerOf({TextColumn("name", "n"), NumberColumn("v", "v"), NumberColumn("nm", "nm", 0)},
                 {{{"a\xFF", 0.1F, 620.0F}, std::nullopt},
                  {{"b", std::numeric_limits<float>::infinity(), Cell()}, std::nullopt}});
    std::ostringstream out;
    WriteJson(out, answer);
    std::string const text = out.str();
    EXPECT_NE(text.find("\"v\": 0.1,"), std::string::npos);
    EXPECT_NE(text.find("\"nm\": 620\n"), std::string::npos);
    auto const json = nlohmann::json::parse(text);
    EXPECT_EQ(json["samples"][0]["name"], "a\uFFFD");
    EXPECT_TRUE(json["samples"][1]["v"].is_null());
    EXPECT_TRUE(json["samples"][1]["nm"].is_null());
}

TEST(WritersTest, TextsAreCutByWidthAndMadeHarmless) {
    EXPECT_EQ(Cut("gr\u00FCngelb", 8), "gr\u00FCngelb");
    EXPECT_EQ(Cut("gr\u00FCngelb", 4), "gr\u00FC\u2026");
    EXPECT_EQ(Cut("\u65E5\u672C\u8A9E", 5), "\u65E5\u672C\u2026");
    EXPECT_EQ(Cut("\u65E5\u672C\u8A9E", 4), "\u65E5\u2026");
    EXPECT_EQ(Cut("e\u0301te\u0301", 3), "e\u0301te\u0301");
    EXPECT_EQ(Width("\U0001F3A8 \u65E5e\u0301"), 6U);
    EXPECT_EQ(Printable("a\x1B[2J\tb\x7F"),
              "a\uFFFD[2J\uFFFD"
              "b\uFFFD");
    // A lone continuation, an overlong form, a surrogate, C1, beyond the range, a cut end.
    EXPECT_EQ(Printable("\x80|\xC0\xAF|\xED\xA0\x80|\xC2\x9B|\xF4\x90\x80\x80|\xE6\x97"),
              "\uFFFD|\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD|\uFFFD|\uFFFD\uFFFD\uFFFD\uFFFD|\uFFFD\uFFFD");
    EXPECT_EQ(Printable("\U0001F3A8 \u65E5"), "\U0001F3A8 \u65E5");
}

}  // namespace kvcolor::test
