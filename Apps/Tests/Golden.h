// Golden: compares a text with a file beside the tests.
#pragma once

#include "SV/core/International.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace apps::test {

/// Replaces the locale's decimal separator between digits by ".".
inline std::string WithPoints(std::string text) {
    auto const isDigit = [&](std::size_t i) {
        return std::isdigit(static_cast<unsigned char>(text[i])) != 0;
    };
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] == sv::International::GetNumDecimalSep() && isDigit(i - 1) && isDigit(i + 1))
            text[i] = '.';
    }
    return text;
}

/// Expects the text of the file `name` in Apps/Tests. With KV_UPDATE_GOLDEN set, writes the file and fails.
inline void ExpectGolden(std::string const& name, std::string const& text) {
    std::string const path = std::string(KV_APPS_TESTS) + '/' + name;
    if (std::getenv("KV_UPDATE_GOLDEN") != nullptr) {
        std::ofstream(path, std::ios::binary) << text;
        FAIL() << name << " was written";
    }
    std::ifstream file(path);
    std::stringstream expected;
    expected << file.rdbuf();
    EXPECT_EQ(text, expected.str()) << name;
}

}  // namespace apps::test
