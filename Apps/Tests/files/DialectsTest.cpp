// Files that differ in dialect alone give the same samples.
#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/MeasurementFile.h"

#include <gtest/gtest.h>

namespace files {
namespace {

using test::Cgats;
using test::CgatsWithHeader;
using test::Repeat;
using test::Replaced;

/// Two samples "a b" and "c", 0.25 at all wavelengths but 0.75 at 730 nm, and Lab: 40 columns between tabs.
std::string PlainCgats() {
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

/// The same without Lab.
std::string PlainCsv() {
    std::string const values = Repeat("0.25", ",", {380, 720, 10}) + ",0.75\n";
    return "name," + Repeat("#", ",") + "\na b," + values + "c," + values;
}

TEST(Dialects, OfCgats) {
    std::string const plain = PlainCgats();
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

TEST(Dialects, OfCsv) {
    std::string const plain = PlainCsv();
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

TEST(Dialects, WithWavelengthsInTheRows) {
    MeasurementFile const file = ParseMeasurements(Pairs("SPECTRAL_DEC", "0.5"), "file");
    EXPECT_EQ(file.dialect, "ISO28178");
    EXPECT_EQ(file.samples.front().name, "a b");
    EXPECT_EQ(file.samples.front().spectrum[35], 0.5F);
    EXPECT_EQ(ParseMeasurements(Pairs("SPECTRAL_PCT", "0.5"), "file").samples.front().spectrum[0], 0.005F);
}

TEST(Dialects, ColumnsInAnyOrder) {
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

TEST(Dialects, NamesAreThoseThatDistinguishSamples) {
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

TEST(Dialects, ACommentMayBeAnywhere) {
    std::string const file = CgatsWithHeader("CGATS.17\n");
    EXPECT_EQ(ParseMeasurements(Replaced(file, "\n1 ", "\n#1 0.5\n1 "), "file").samples.size(), 1U);
    EXPECT_EQ(ParseMeasurements(Replaced(file, "0.5\n", "0.5# dry\n"), "file").samples[0].spectrum[35], 0.5F);
    EXPECT_EQ(ParseMeasurements(Replaced(file, "\n1 ", "\n\"#1\" "), "file").samples[0].name, "#1");
}

TEST(Dialects, StatedConditionsWithAndWithoutQuotes) {
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

}  // namespace
}  // namespace files
