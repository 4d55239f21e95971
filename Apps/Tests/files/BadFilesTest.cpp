// Every file in the folder "bad" is refused with the message in messages.tsv.
#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/Text.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

namespace files {
namespace {

using test::Refusal;

TEST(BadFiles, AreRefusedWithTheirMessage) {
    std::filesystem::path const folder = KV_APPS_TESTS "/files/bad";
    std::map<std::string, std::string> messages;
    for (auto const& row : test::Rows("bad/messages.tsv")) messages[row[0]] = row[1];
    std::size_t count = 0;
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
        std::string const name = entry.path().filename().string();
        if (name == "messages.tsv") continue;
        ++count;
        EXPECT_EQ(Refusal(tests::Bytes(entry.path()), name), name + messages[name]);
    }
    EXPECT_EQ(count, messages.size());
}

TEST(BadFiles, LinesAndNamesAreLimited) {
    EXPECT_EQ(Refusal("name,380\n" + std::string(std::size_t{3} << 20U, '1')),
              "file:2: found a line of more than 1048576 bytes, expected at most that (1 MiB) in a line");
    EXPECT_TRUE(Refusal("a", "two\nlines").starts_with("two?lines:1: found \"a\", expected "));
}

TEST(BadFiles, WhatCannotBeOpenedIsNamed) {
    tests::TemporaryDirectory const folder;
    auto const refusal = [](std::string const& path) {
        return test::FailureOf([&] { static_cast<void>(ReadMeasurementFile(path)); });
    };
    std::string const none = folder / "none";
    EXPECT_EQ(refusal(none), none + ": no such file");
    std::string const directory = folder.Path().string();
    EXPECT_EQ(refusal(directory), directory + ": is a directory");
    std::string const large = folder / "large";
    std::ofstream(large, std::ios::binary) << "name,380\n";
    std::filesystem::resize_file(large, MaxFileBytes + 1);
    EXPECT_EQ(refusal(large),
              large + ": found more than 268435456 bytes, expected at most that (256 MiB) in a file");
}

}  // namespace
}  // namespace files
