// Temporary files of a test.
#pragma once

#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace kv::test {

class FileTest : public testing::Test {
  protected:
    /// The name is in the suite's code page.
    [[nodiscard]] std::string PathOf(std::string const& name) const {
        return directory_.string() + '/' + name;
    }

    std::string Write(std::string const& name, std::string_view content) const {
        tests::PutBytes(PathOf(name), content);
        return PathOf(name);
    }

    static std::string Read(std::filesystem::path const& path) { return tests::Bytes(path); }

  private:
    tests::TemporaryDirectory owner_;

  protected:
    std::filesystem::path const& directory_ = owner_.Path();
};

}  // namespace kv::test
