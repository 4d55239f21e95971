// Files that a test may write: each test has a directory of its own, which goes with it.
#pragma once

#include "SV/core/String.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace kv::test {

class FileTest : public testing::Test {
  protected:
    FileTest() {
        auto const* const test = testing::UnitTest::GetInstance()->current_test_info();
        directory_ = std::filesystem::temp_directory_path() /
                     (std::string(test->test_suite_name()) + "." + test->name() + "." +
                      std::to_string(std::random_device()()));
        std::filesystem::create_directories(directory_);
    }
    ~FileTest() override {
        std::error_code ignored;
        std::filesystem::remove_all(directory_, ignored);
    }

    /// The name is in the suite's code page.
    [[nodiscard]] std::string PathOf(std::string const& name) const {
        return directory_.string() + '/' + name;
    }

    std::string Write(std::string const& name, std::string_view content) const {
        std::ofstream(PathOf(name), std::ios::binary) << content;
        return PathOf(name);
    }

    static std::string Read(std::filesystem::path const& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::filesystem::path directory_;
};

}  // namespace kv::test
