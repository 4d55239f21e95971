#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/DataFile.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <random>

namespace files {
namespace {

using test::Refusal;
using test::Replaced;

class DataFileTest : public testing::Test {
  protected:
    DataFileTest() { kv::AppName::CreateAppName("Desk", "1.2"); }
    ~DataFileTest() override { kv::KVSingleton::Destroy(kv::AppName::Instance()); }
    DataFileTest(DataFileTest const&) = delete;
    DataFileTest& operator=(DataFileTest const&) = delete;

    [[nodiscard]] std::string Path(char const* name = "samples.dat") const { return folder_ / name; }
    [[nodiscard]] std::string Bytes() const { return tests::Bytes(Path()); }
    [[nodiscard]] auto FilesThere() const {
        return std::distance(std::filesystem::directory_iterator(folder_.Path()), {});
    }
    [[nodiscard]] MeasurementFile WrittenAndRead(MeasurementFile const& file) const {
        WriteDataFile(file, Path());
        return ReadMeasurementFile(Path());
    }

    static MeasurementFile OfNames(std::vector<std::string> const& names) {
        MeasurementFile file;
        file.path = "folder/m\xC3\xBCster.txt";
        file.dialect = "CGATS.17";
        for (std::string const& name : names) {
            file.samples.push_back({name, kv::Spectrum(0.5F, kv::PhysicalConditions()), std::nullopt});
        }
        return file;
    }

    static std::string WriteFailure(MeasurementFile const& file, std::string const& path) {
        return test::FailureOf<WriteError>([&] { WriteDataFile(file, path); });
    }

  private:
    tests::TemporaryDirectory folder_;
};

TEST_F(DataFileTest, SpectraComeBackToTheLastBit) {
    constexpr unsigned seed = 20240611;
    std::mt19937 random(seed);
    // Far below what instruments resolve, and both limits.
    std::uniform_real_distribution<float> exponent(-12.0F, 0.3F);
    MeasurementFile file = OfNames({});
    for (int i = 0; i < 500; ++i) {
        Sample sample{std::to_string(i), kv::Spectrum(), std::nullopt};
        for (int k = 0; k < kv::SpectralPoints; ++k) {
            float const value = std::pow(10.0F, exponent(random));
            sample.spectrum[k] = value < 0.05F && random() % 4 == 0 ? -value : value;
        }
        if (i % 2 == 0) sample.lab = {i * 0.2, -i * 0.25, i * 0.0625};
        file.samples.push_back(sample);
    }
    file.samples[0].spectrum[0] = -0.05F;
    file.samples[0].spectrum[1] = 2.0F;
    file.samples[0].spectrum[2] = 0.0F;

    MeasurementFile const read = WrittenAndRead(file);
    ASSERT_EQ(read.samples.size(), file.samples.size());
    for (std::size_t i = 0; i < file.samples.size(); ++i) {
        for (int k = 0; k < kv::SpectralPoints; ++k) {
            ASSERT_EQ(std::bit_cast<std::uint32_t>(read.samples[i].spectrum[k]),
                      std::bit_cast<std::uint32_t>(file.samples[i].spectrum[k]))
                << "seed " << seed << ", sample " << i << ", point " << k << ", "
                << file.samples[i].spectrum[k];
        }
        ASSERT_EQ(read.samples[i].lab.has_value(), i % 2 == 0) << i;
        for (std::size_t k = 0; k < 3 && i % 2 == 0; ++k) {
            ASSERT_NEAR(read.samples[i].lab->at(k), file.samples[i].lab->at(k), 0.5e-4) << i;
        }
    }
}

TEST_F(DataFileTest, NamesComeBackOrAreNotRepresentable) {
    std::vector<std::string> const kept = {"m\xC3\xBC\xC3\x9F \"rot\"", "\xE2\x82\xAC 5 = 'x'", " blanks  ",
                                           "", "tab\tand\nline", "[Sample]",
                                           // In Windows-1252 these are the bytes of a UTF-8 character.
                                           "\xC3\x83\xC2\xBC"};
    MeasurementFile const read = WrittenAndRead(OfNames(kept));
    ASSERT_EQ(read.samples.size(), kept.size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
        EXPECT_TRUE(IsRepresentable(kept[i])) << i;
        EXPECT_EQ(read.samples[i].name, kept[i]);
    }
    std::vector<std::string> const lost = {"2^A",
                                           "\xCE\x94"
                                           "E"};
    MeasurementFile const changed = WrittenAndRead(OfNames(lost));
    for (std::size_t i = 0; i < lost.size(); ++i) {
        EXPECT_FALSE(IsRepresentable(lost[i])) << i;
        EXPECT_NE(changed.samples[i].name, lost[i]);
    }
    EXPECT_EQ(changed.samples[1].name, "?E");
}

TEST_F(DataFileTest, ConditionsComeBack) {
    for (char const* const illuminant : {"A", "C", "D50", "D65", "D55", "D40", "F1", "F11", "F12"}) {
        for (auto const observer : {kv::ObserverType::TwoDegrees, kv::ObserverType::TenDegrees}) {
            MeasurementFile file = OfNames({"a"});
            file.stated.illuminant = ToIlluminant(illuminant);
            file.stated.observer = kv::ObserverClass(observer);
            file.stated.measurementMode = "M1";
            file.stated.filter = "Pol";
            file.stated.whiteBase = "Paper";
            MeasurementFile const read = WrittenAndRead(file);
            EXPECT_EQ(read.stated.illuminant, file.stated.illuminant) << illuminant;
            EXPECT_EQ(read.stated.observer, file.stated.observer) << illuminant;
            EXPECT_EQ(read.stated.measurementMode, "M1");
            EXPECT_EQ(read.stated.filter, "Pol");
            EXPECT_EQ(read.stated.whiteBase, "Paper");
            EXPECT_EQ(WrittenAndRead(read).source, "m\xC3\xBCster.txt") << "where it came from first";
        }
    }
    MeasurementFile const bare = WrittenAndRead(OfNames({"a"}));
    EXPECT_FALSE(bare.stated.illuminant || bare.stated.observer);
    EXPECT_EQ(bare.stated.measurementMode + bare.stated.filter, "");
    EXPECT_EQ(bare.dialect, "CGATS.17");
    EXPECT_EQ(test::Notes(bare), "the suite's data file, version 2\n");
}

TEST_F(DataFileTest, IsOneLineForEachThing) {
    MeasurementFile file = OfNames({"a"});
    file.samples[0].lab = {50, -1.25, 0};
    file.stated.illuminant = ToIlluminant("D55");
    file.stated.observer = kv::ObserverClass(kv::ObserverType::TwoDegrees);
    WriteDataFile(file, Path());
    std::string const bytes = Bytes();
    EXPECT_EQ(
        bytes.substr(0, bytes.find("Spectrum=")),
        "[File]\nApplication=Desk 1.2\nVersion=2\n[Measurement]\nSource=m\xFCster.txt\nDialect=CGATS.17\n"
        "Illuminant=D55\nObserver=2\nSamples=1\n[Sample]\nName=a\n"
        "Lab=   50.0000    -1.2500     0.0000 \n");
    // By whatever the lines end: another program, or a mail, may have changed it.
    for (char const* const end : {"\r\n", "\r"}) {
        EXPECT_EQ(ParseMeasurements(Replaced(bytes, "\n", end), "file").samples[0].name, "a");
    }
}

TEST_F(DataFileTest, BrokenFilesAreRefusedByLine) {
    WriteDataFile(OfNames({"a", "b"}), Path());
    std::string const good = Bytes();
    for (auto const& row : test::Rows("datafile-faults.tsv")) {
        EXPECT_EQ(Refusal(Replaced(good, row[0], row[1])), "file:" + row[2]);
    }
    EXPECT_EQ(Refusal(Replaced(good, "Name=b", "Name=" + std::string(1019, 'b'))),
              "file:12: found a line of 1024 bytes, expected at most 1023 in a data file");
    // A file that is cut off is refused, even within its last number.
    for (std::size_t length = 7; length < good.size(); ++length) {
        EXPECT_NE(Refusal(good.substr(0, length)), "accepted") << length;
    }
}

TEST_F(DataFileTest, UnknownConditionsAreNoted) {
    WriteDataFile(OfNames({"a"}), Path());
    std::string const odd = Replaced(Bytes(), "Samples=", "Illuminant=Neon\nObserver=7\nSamples=");
    MeasurementFile const file = ParseMeasurements(odd, "file");
    EXPECT_FALSE(file.stated.illuminant || file.stated.observer);
    EXPECT_EQ(file.warnings, (std::vector<std::string>{"illuminant stated as \"Neon\", which is not known",
                                                       "observer stated as \"7\", which is not known"}));
}

#ifndef _WIN32
TEST_F(DataFileTest, GoesThroughALinkAndKeepsThePermissions) {
    namespace fs = std::filesystem;
    constexpr auto OwnersOnly = fs::perms::owner_read | fs::perms::owner_write;
    tests::PutBytes(Path("target.dat"), "old");
    fs::permissions(Path("target.dat"), OwnersOnly);
    fs::create_symlink("target.dat", Path());
    WriteDataFile(OfNames({"a"}), Path());
    EXPECT_TRUE(fs::is_symlink(Path()));
    EXPECT_EQ(ReadMeasurementFile(Path("target.dat")).samples.size(), 1U);
    EXPECT_EQ(fs::status(Path("target.dat")).permissions(), OwnersOnly);
}
#endif

TEST_F(DataFileTest, TheLargestFileThatIsWrittenCanBeRead) {
    MeasurementFile file = OfNames({"a"});
    for (int k = 0; k < kv::SpectralPoints; ++k) file.samples[0].spectrum[k] = 0.123456789F;
    WriteDataFile(file, Path());
    // A row of full precision, as often as samples are allowed, stays below the limit of a file.
    EXPECT_LT(Bytes().size() * 500'000, std::size_t{256} << 20U);
    file.samples.resize(500'001, file.samples[0]);
    EXPECT_EQ(WriteFailure(file, Path()), Path() + ": cannot be written: more than 500000 samples");
}

TEST_F(DataFileTest, IsWrittenWholeOrNotAtAll) {
    std::string const old = "something older";
    tests::PutBytes(Path(), old);
    EXPECT_EQ(WriteFailure(OfNames({std::string(2000, 'x')}), Path()),
              Path() + ": cannot be written: line 9 would be longer than 1023 characters: \"Name=" +
                  std::string(35, 'x') + "...\"");
    EXPECT_EQ(Bytes(), old);
    EXPECT_EQ(WriteFailure(OfNames({"a"}), Path("none/there.dat")),
              Path("none/there.dat") + ": cannot be written: " + "no such directory");
    EXPECT_EQ(WriteFailure(OfNames({"a"}), Path(".")), Path(".") + ": cannot be written: not a regular file");
    EXPECT_EQ(WriteFailure(OfNames({std::string(1018, 'x')}), Path()), "accepted");
    EXPECT_EQ(ReadMeasurementFile(Path()).samples[0].name, std::string(1018, 'x'));
    EXPECT_EQ(FilesThere(), 1);
}

}  // namespace
}  // namespace files
