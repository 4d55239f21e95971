// Tables of cases that are files beside the tests.
#pragma once

#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace kv::test {

/// Replaces "\n", "\r", "\t", "\\" and "\xHH" by their bytes.
inline std::string Unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
        } else if (text[++i] == 'x') {
            bytes += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            bytes += text[i] == 'n' ? '\n' : text[i] == 'r' ? '\r' : text[i] == 't' ? '\t' : '\\';
        }
    }
    return bytes;
}

/// The lines of a file in the folder of the library's tests, without those that begin with "#".
inline std::vector<std::string> CaseLines(std::string const& name) {
    std::istringstream file(tests::Bytes(std::string(KV_LIBRARY_TESTS "/") + name));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with('#')) lines.push_back(line);
    }
    EXPECT_FALSE(lines.empty()) << name;
    return lines;
}

/// The same with the cells of each line, which are separated by TABs; a missing cell is empty.
template <std::size_t Columns>
std::vector<std::array<std::string, Columns>> CaseTable(std::string const& name) {
    std::vector<std::array<std::string, Columns>> rows;
    for (std::string const& line : CaseLines(name)) {
        std::istringstream rest(line);
        std::string cell;
        for (std::string& each : rows.emplace_back())
            each = std::getline(rest, cell, '\t') ? Unescaped(cell) : "";
    }
    return rows;
}

}  // namespace kv::test
