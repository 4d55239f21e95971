#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/CgatsReader.h"

#include <gtest/gtest.h>

namespace files {
namespace {

using test::Cgats;
using test::CgatsWithHeader;
using test::Notes;
using test::Refusal;
using test::Repeat;
using test::Replaced;

/// Two samples "a b" and "c", 0.25 at all wavelengths but 0.75 at 730 nm, and Lab: 40 columns between tabs.
std::string Plain() {
    std::string const values = Repeat("0.25", "\t", {380, 720, 10}) + "\t0.75";
    return Cgats("CGATS.17\nNUMBER_OF_FIELDS\t40\nNUMBER_OF_SETS\t2\n",
                 "SAMPLE_NAME\tLAB_L\tLAB_A\tLAB_B\t" + Repeat("SPECTRAL_NM#", "\t"),
                 "\"a b\"\t50.5\t-1\t2\t" + values + "\nc\t50.5\t-1\t2\t" + values + "\n");
}

std::string Pairs(std::string const& valueName, std::string const& value) {
    return Cgats(
        "ISO28178\n", "SampleID\tLAB_L\tLAB_A\tLAB_B\t" + Repeat("SPECTRAL_NM\t" + valueName, "\t"),
        "\"a b\"\t50.5\t-1\t2\t" + Repeat("#\t" + value, "\t", {380, 720, 10}) + "\t730\t" + value + "\t\n");
}

TEST(CgatsReader, OneFileInManyDialects) {
    std::string const plain = Plain();
    std::vector<test::Dialect> const dialects = {
        {"plain", plain},
        {"CR LF", Replaced(plain, "\n", "\r\n")},
        {"CR", Replaced(plain, "\n", "\r")},
        {"byte order mark", "\xEF\xBB\xBF" + plain},
        {"end-of-file mark", plain + "\x1A"},
        {"blanks", Replaced(plain, "\t", "  ")},
        {"trailing tabs", Replaced(plain, "\n", "\t\t\n")},
        {"decimal commas", Replaced(Replaced(plain, "0.", "0,"), "CGATS,17", "CGATS.17")},
        {"percent", Replaced(Replaced(plain, "0.25", "25"), "0.75", "75")},
        {"SPECTRAL_380", Replaced(plain, "SPECTRAL_NM", "SPECTRAL_")},
        {"SPEC_380", Replaced(plain, "SPECTRAL_NM", "SPEC_")},
        {"NM_380", Replaced(plain, "SPECTRAL_NM", "NM_")},
        {"nm380", Replaced(plain, "SPECTRAL_NM", "nm")},
        {"SPECTRAL_PCT380", Replaced(Replaced(Replaced(plain, "0.25", "25"), "0.75", "75"), "_NM", "_PCT")},
        {"SPECTRAL_NORM", "SPECTRAL_NORM \"100\"\n" + Replaced(Replaced(plain, "0.25", "25"), "0.75", "75")},
        {"name in tripled quotes", Replaced(plain, "\"a b\"", "\"\"\"a b\"\"\"")},
        {"name with a blank and no quotes", Replaced(plain, "\"a b\"", "a b")},
        {"whole rows in quotes",
         Replaced(Replaced(Replaced(plain, "\"a b\"", "\"\"\"a b\"\""), "0.75\nc\t", "0.75\"\n\"c\t"),
                  "0.75\nEND", "0.75\"\nEND")},
        {"a value a line",
         Replaced(Replaced(plain, "\t", "\n"), "NUMBER_OF_FIELDS\n40\nNUMBER_OF_SETS\n2\n", "")},
        {"both samples in a line", Replaced(Replaced(plain, "0.75\nc", "0.75 c"), "\t", " ")},
        {"comments and blank lines", "\n# by hand\n" + Replaced(plain, "\nc", "\n\n# the second\nc")},
    };
    test::ExpectTheSameOfAll(dialects, [](MeasurementFile const& file) {
        for (Sample const& sample : file.samples) EXPECT_EQ(sample.lab, (std::array{50.5, -1.0, 2.0}));
    });
}

TEST(CgatsReader, WavelengthsInTheRows) {
    MeasurementFile const file = ParseMeasurements(Pairs("SPECTRAL_DEC", "0.5"), "file");
    EXPECT_EQ(file.dialect, "ISO28178");
    EXPECT_EQ(file.samples.front().name, "a b");
    EXPECT_EQ(file.samples.front().spectrum[35], 0.5F);
    EXPECT_EQ(ParseMeasurements(Pairs("SPECTRAL_PCT", "0.5"), "file").samples.front().spectrum[0], 0.005F);

    std::string const twoRows =
        Cgats("CGATS.17\n", Repeat("SPECTRAL_NM SPECTRAL_DEC", " "),
              Repeat("# 0.5", " ") + "\n" + Replaced(Repeat("# 0.5", " "), "390", "395") + "\n");
    EXPECT_EQ(Refusal(twoRows),
              "file:7: found 395 nm in column 3 (\"SPECTRAL_NM\"), expected 390 nm as in the first row");
}

TEST(CgatsReader, NamesAreThoseThatTellSamplesApart) {
    auto const name = [](std::string const& fields, std::string const& first, std::string const& second) {
        std::string const values = " " + Repeat("0.5", " ") + "\n";
        MeasurementFile const file = ParseMeasurements(
            Cgats("CGATS.17\n", fields + " " + Repeat("nm#", " "), first + values + second + values), "file");
        return file.samples[1].name;
    };
    EXPECT_EQ(name("SampleID SAMPLE_NAME", "1 cyan", "2 magenta"), "magenta");
    EXPECT_EQ(name("SAMPLE_ID SAMPLE_NAME", "A1 cyan", "A2 cyan"), "A2");
    EXPECT_EQ(name("SAMPLE_ID SAMPLE_NAME", "A1 cyan", "A1 cyan"), "cyan");
    EXPECT_EQ(name("SAMPLE_ID", "A1", "A1"), "A1");
    EXPECT_EQ(name("CMYK_C", "0", "100"), "2");
    EXPECT_EQ(name("SAMPLE_NAME", "a", "\"\""), "2");
    EXPECT_EQ(name("SAMPLE_NAME", "a",
                   "\"Gr\xFC"
                   "n\""),
              "Gr\xC3\xBCn")
        << "Windows-1252";
}

TEST(CgatsReader, CountsThatDisagreeAreSaid) {
    std::string const file = CgatsWithHeader("IS126422\nNUMBER_OF_FIELDS 40\nNUMBER_OF_SETS 15\n");
    std::string const notes = Notes(ParseMeasurements(file, "file"));
    EXPECT_NE(notes.find("NUMBER_OF_FIELDS says \"40\", the file has 37 fields\n"), std::string::npos)
        << notes;
    EXPECT_NE(notes.find("NUMBER_OF_SETS says \"15\", the file has 1 rows\n"), std::string::npos) << notes;
}

TEST(CgatsReader, StatedConditionsWithAndWithoutQuotes) {
    for (
        char const* header :
        {"CGATS.17\nWEIGHTING_FUNCTION \"ILLUMINANT, D65\"\nWEIGHTING_FUNCTION \"OBSERVER,10 degree\"\nFILTER Pol\n",
         "CGATS.17\n\"WEIGHTING_FUNCTION\t\"\"ILLUMINANT,D65\"\"\"\nOBSERVER 10 degree\nFILTER\t\"\"\"Pol\"\"\"\n",
         "ILLUMINANT\tD65\nOBSERVER\t\"10\"\nFILTER \"Pol\n"}) {
        MeasurementFile const file = ParseMeasurements(CgatsWithHeader(header), "file");
        EXPECT_EQ(file.stated.illuminant, kv::IllumClass(kv::IllumType::D65)) << header;
        EXPECT_EQ(file.stated.observer, kv::ObserverClass(kv::ObserverType::TenDegrees)) << header;
        EXPECT_EQ(file.stated.filter, "Pol") << header;
    }
    EXPECT_FALSE(ParseMeasurements(CgatsWithHeader("x\n"), "file").stated.observer);
}

TEST(CgatsReader, RefusedFiles) {
    std::string const fields = "SampleID " + Repeat("nm#", " ");
    auto const withRows = [&](std::string const& rows) { return Cgats("CGATS.17\n", fields, rows); };
    std::string const row = "1 " + Repeat("0.5", " ") + "\n";
    std::string const shortRow = row.substr(0, row.size() - 5) + "\n";
    std::string const emptyCell = Replaced(Replaced(row, " ", "\t"), "1\t0.5", "1\t");
    std::string const value = ", expected a finite decimal number";
    test::ExpectRefusals({
        {withRows(row + shortRow + row), "file:7: found a row of 36 values, expected 37, one for each field"},
        {withRows(row + shortRow), "file:7: found a row of 36 values, expected 37, one for each field"},
        {withRows(Replaced(Replaced(shortRow, " ", "\t"), "1\t", "patch 1\t")),
         "file:6: found a row of 36 values, expected 37, one for each field"},
        {withRows("0.5 " + row), "file:6: found a row of 38 values, expected 37, one for each field"},
        {withRows(emptyCell), "file:6: found nothing in column 2 (\"nm380\"), expected a number"},
        {withRows(Replaced(row, "1 0.5", "1 nan")), "file:6: found \"nan\" in column 2 (\"nm380\")" + value},
        {withRows(Replaced(row, "1 0.5", "1 1e400")),
         "file:6: found \"1e400\" in column 2 (\"nm380\")" + value},
        {withRows(Replaced(row, "1 0.5", "1 0x1A")),
         "file:6: found \"0x1A\" in column 2 (\"nm380\")" + value},
        {withRows(row + Replaced(row, "1 0.5", "1 0,5")),
         "file:7: found \"0,5\" in column 2 (\"nm380\"), expected a decimal point as in line 6"},
        {withRows("\"1" + row),
         "file:6: found a quote that is not closed, expected its end in the same line"},
        {withRows(""), "file:6: found no rows of data, expected one at least"},
        {Replaced(withRows(row), "END_DATA\n", ""), "file:6: found the end of the file, expected END_DATA"},
        {"CGATS.17\nBEGIN_DATA\n", "file:2: found BEGIN_DATA, expected BEGIN_DATA_FORMAT"},
        {"CGATS.17\nBEGIN_DATA_FORMAT\nnm380\nBEGIN_DATA\n",
         "file:4: found BEGIN_DATA, expected END_DATA_FORMAT"},
        {"CGATS.17\nBEGIN_DATA_FORMAT\nEND_DATA_FORMAT\n",
         "file:3: found no field names, expected some before END_DATA_FORMAT"},
        {"CGATS.17\nBEGIN_DATA_FORMAT nm380\n",
         "file:2: found \"nm380\" behind BEGIN_DATA_FORMAT, expected the end of the line"},
        {Replaced(withRows(row), "nm400", "nm390"),
         "file:2: found 390 nm twice (columns 3 and 4), expected each wavelength once"},
        {CgatsWithHeader("SPECTRAL_NORM 255\n"), "file:1: found SPECTRAL_NORM \"255\", expected 1 or 100"},
    });
}

TEST(CgatsReader, AFurtherTableIsSaid) {
    std::string const one = CgatsWithHeader("CGATS.17\n");
    MeasurementFile const file = ParseMeasurements(one + one, "file");
    EXPECT_EQ(file.samples.size(), 1U);
    EXPECT_NE(Notes(file).find("a further table from line 9 on is not read\n"), std::string::npos)
        << Notes(file);
}

}  // namespace
}  // namespace files
