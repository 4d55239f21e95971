// Program: calls kvcolor from a test and writes small measurement files for it.
#pragma once

#include "Apps/kvcolor/Run.h"
#include "gtest/gtest.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace kvcolor::test {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

using Arguments = std::vector<std::string>;

/// Runs the program without a terminal.
inline Outcome RunProgram(Arguments const& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    int const status = Run(arguments, Environment{.out = out, .err = err});
    return {status, out.str(), err.str()};
}

/// Returns the answer as JSON; the command must succeed.
inline nlohmann::json RunJson(Arguments arguments) {
    arguments.insert(arguments.end(), {"--format", "json", "--quiet"});
    Outcome const outcome = RunProgram(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return nlohmann::json::parse(outcome.out, nullptr, false);
}

/// Returns the message of a run that must fail without an answer.
inline std::string FailureOf(Arguments arguments) {
    arguments.emplace_back("--quiet");
    Outcome const outcome = RunProgram(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    return outcome.err;
}

inline std::vector<std::string> LinesOf(std::string const& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

inline std::string const InkSeries = KV_APPS_DATA "/ink-series.txt";
inline std::string const ChartA = KV_APPS_DATA "/chart24-lab-a.csv";
inline std::string const ChartB = KV_APPS_DATA "/chart24-lab-b.csv";

/// A sample of the same reflectance everywhere.
struct Flat {
    std::string name;
    std::string reflectance;
};

/// Writes a CGATS file of flat samples to the temporary folder and returns its path. `keywords` are whole
/// lines.
inline std::string WriteFile(std::string const& name, std::vector<Flat> const& samples,
                             std::string const& keywords = "") {
    std::string const path = testing::TempDir() + name;
    std::ofstream file(path, std::ios::binary);
    file << "CGATS.17\n" << keywords << "BEGIN_DATA_FORMAT\nSAMPLE_NAME";
    for (int nm = 380; nm <= 730; nm += 10) file << " SPECTRAL_NM" << nm;
    file << "\nEND_DATA_FORMAT\nBEGIN_DATA\n";
    for (Flat const& sample : samples) {
        file << '"' << sample.name << '"';
        for (int nm = 380; nm <= 730; nm += 10) file << ' ' << sample.reflectance;
        file << '\n';
    }
    file << "END_DATA\n";
    return path;
}

}  // namespace kvcolor::test
