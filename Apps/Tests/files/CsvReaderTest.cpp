#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/CsvReader.h"

#include <gtest/gtest.h>

namespace files {
namespace {

using test::Notes;
using test::Refusal;
using test::Repeat;
using test::Replaced;

/// Two samples "a b" and "c" of 0.25, but 0.75 at 730 nm.
std::string Plain() {
    std::string const values = Repeat("0.25", ",", {380, 720, 10}) + ",0.75\n";
    return "name," + Repeat("#", ",") + "\na b," + values + "c," + values;
}

TEST(CsvReader, OneFileInManyDialects) {
    std::string const plain = Plain();
    std::string const semicolons = Replaced(plain, ",", ";");
    std::vector<test::Dialect> const dialects = {
        {"commas", plain},
        {"semicolons", semicolons},
        {"semicolons and decimal commas", Replaced(semicolons, ".", ",")},
        {"tabs and decimal commas", Replaced(Replaced(semicolons, ".", ","), ";", "\t")},
        {"decimal commas in quotes", Replaced(Replaced(plain, "0.25", "\"0,25\""), "0.75", "\"0,75\"")},
        {"CR LF and a byte order mark", "\xEF\xBB\xBF" + Replaced(plain, "\n", "\r\n")},
        {"announced separator, comment", "sep=;\n# from the press\n" + semicolons},
        {"no end of the last line", plain.substr(0, plain.size() - 1)},
        {"percent in the head",
         Replaced(Replaced(Replaced(plain, "0.25", "25"), "0.75", "75"), "0,", "0 nm (%),")},
        {"no name in the head", plain.substr(4)},
        {"another name in the head", "Colour" + plain.substr(4)},
        {"empty columns at the end, empty lines", Replaced(plain, "\n", ",,\n,,,,\n")},
        {"whole lines in quotes", Replaced(Replaced("\"" + plain, "\n", "\"\n\""), "c,", "c,") + "\""},
    };
    test::ExpectTheSameOfAll(dialects, [](MeasurementFile const& file) {
        EXPECT_EQ(file.dialect, "CSV");
        EXPECT_FALSE(file.stated.illuminant || file.stated.observer);
    });
}

TEST(CsvReader, ColumnsInAnyOrder) {
    std::string const bytes = Repeat("#", ";", {700, 400, -10}) + ";L*;a*;b*;patch\n" +
                              Repeat("0,#", ";", {700, 400, -10}) + ";50,5;1;2;\"x;y\"\n" +
                              Repeat("0,#", ";", {700, 400, -10}) + ";;;;z\n";
    MeasurementFile const file = ParseMeasurements(bytes, "file");
    EXPECT_EQ(file.samples[0].name, "x;y");
    EXPECT_EQ(file.samples[0].lab, (std::array{50.5, 1.0, 2.0}));
    EXPECT_FALSE(file.samples[1].lab) << "no values of its own";
    EXPECT_EQ(file.samples[0].spectrum[0], 0.4F) << "held at 400 nm";
    EXPECT_EQ(file.samples[0].spectrum[17], 0.55F);
    EXPECT_EQ(file.samples[0].spectrum[35], 0.7F) << "held at 700 nm";
}

TEST(CsvReader, RefusedFiles) {
    std::string const plain = Plain();
    test::ExpectRefusals({
        {"a,b\n1,2\n",
         "file:1: found \"a,b\", expected a CSV head with wavelengths, or a CGATS file with BEGIN_DATA_FORMAT and "
         "BEGIN_DATA"},
        {"CGATS.17\nSampleID nm380\n",
         "file:1: found \"CGATS.17\", expected a CSV head with wavelengths, or a CGATS file with BEGIN_DATA_FORMAT "
         "and BEGIN_DATA"},
        {"name," + Repeat("#", ",") + "\n\n", "file:2: found no rows behind the head, expected one at least"},
        {Replaced(plain, "c,0.25", "c"), "file:3: found a row of 36 cells, expected 37 as in the head"},
        {plain + "d," + Repeat("0.5", ",") + ",0.5\n",
         "file:4: found a row of 38 cells, expected 37 as in the head"},
        {Replaced(plain, "c,0.25", "c,"), "file:3: found nothing in column 2 (\"380\"), expected a number"},
        {Replaced(plain, "c,0.25", "c,inf"),
         "file:3: found \"inf\" in column 2 (\"380\"), expected a finite decimal number"},
        {Replaced(plain, "c,", "\"c,"),
         "file:3: found a quote that is not closed, expected its end in the same line"},
        {Replaced(plain, "400", "390"),
         "file:1: found 390 nm twice (columns 3 and 4), expected each wavelength once"},
    });
}

}  // namespace
}  // namespace files
