#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/MeasurementFile.h"
#include "Apps/files/Text.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace files {
namespace {

using test::Refusal;
using std::string_literals::operator""s;

TEST(MeasurementFile, WhatIsNoTextIsRefused) {
    std::string const empty =
        "file: found an empty file, expected a CGATS file or a CSV file with wavelengths in its head";
    EXPECT_EQ(Refusal(""), empty);
    EXPECT_EQ(Refusal("\xEF\xBB\xBF\r\n \t\n"), empty);
    EXPECT_EQ(
        Refusal("\xFF\xFE"
                "n\0a\0"s),
        "file: found text in UTF-16, expected text in UTF-8 or a one-byte encoding (save the file as UTF-8)");
    EXPECT_EQ(
        Refusal("PK\x03\x04..."),
        "file: found a ZIP archive, as spreadsheet programs save, expected a text file (save the sheet as CSV)");
    EXPECT_EQ(Refusal("name\n3\0"s + "80"), "file:2: found binary data (byte 0 at column 2), expected text");
    EXPECT_EQ(Refusal("name,380\n" + std::string(std::size_t{3} << 20U, '1')),
              "file:2: found a line of more than 1048576 bytes, expected at most that (1 MiB) in a line");
}

TEST(MeasurementFile, AMessageStaysOnItsLine) {
    try {
        static_cast<void>(ParseMeasurements("a\vb\xC3\xBC" + std::string(100, '-'), "two\nlines"));
        FAIL();
    } catch (ReadError const& error) {
        std::string const excerpt = "a?b\xC3\xBC" + std::string(35, '-') + "...";
        EXPECT_EQ(std::string(error.what()).find("two?lines:1: found \"" + excerpt + "\", expected "), 0U)
            << error.what();
    }
}

TEST(MeasurementFile, WhatIsNoUsableFileIsRefused) {
    tests::TemporaryDirectory const folder;
    auto const refusal = [](std::string const& path) {
        return test::FailureOf([&] { static_cast<void>(ReadMeasurementFile(path)); });
    };
    std::string const none = folder / "none";
    EXPECT_EQ(refusal(none), none + ": found no file of this name, expected a measurement file");
    std::string const directory = folder.Path().string();
    EXPECT_EQ(refusal(directory), directory + ": found a directory, expected a measurement file");
    std::string const large = folder / "large";
    std::ofstream(large, std::ios::binary) << "name,380\n";
    std::filesystem::resize_file(large, MaxFileBytes + 1);
    EXPECT_EQ(refusal(large),
              large + ": found more than 268435456 bytes, expected at most that (256 MiB) in a file");
}

}  // namespace
}  // namespace files
