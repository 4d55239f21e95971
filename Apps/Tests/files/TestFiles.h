// Small measurement files, composed from the parts in which they differ.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/files/Text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace files::test {

/// The wavelengths of a file in the order of its columns.
struct Range {
    int first = 380;
    int last = 730;
    int step = 10;
};

/// Repeats `item` for each wavelength, which replaces "#"; joined by `separator`.
inline std::string Repeat(std::string_view item, std::string_view separator, Range const& range = {}) {
    std::string text;
    for (int nm = range.first; nm != range.last + range.step; nm += range.step) {
        if (nm != range.first) text += separator;
        for (char const c : item) text += c == '#' ? std::to_string(nm) : std::string(1, c);
    }
    return text;
}

/// A CGATS file of header lines, fields and rows; header lines and rows end with a newline.
inline std::string Cgats(std::string const& header, std::string const& fields, std::string const& rows) {
    return header + "BEGIN_DATA_FORMAT\n" + fields + "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + rows + "END_DATA\n";
}

/// A CGATS file of one sample "1" whose values are all `value`.
inline std::string CgatsWithHeader(std::string const& header, std::string_view value = "0.5") {
    return Cgats(header, "SampleID " + Repeat("SPECTRAL_NM#", " "), "1 " + Repeat(value, " ") + "\n");
}

/// Reads the rows of a TSV file beside these tests, without those that begin with "# ". "\n" is a line end.
inline std::vector<std::vector<std::string>> Rows(std::string const& name) {
    std::vector<std::vector<std::string>> rows;
    std::ifstream table(std::string(KV_APPS_TESTS "/files/") + name);
    std::string line;
    while (std::getline(table, line)) {
        if (line.starts_with("# ")) continue;
        rows.emplace_back();
        for (std::string_view const cell : Split(line, '\t')) {
            std::string text(cell);
            for (auto at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at))
                text.replace(at, 2, "\n");
            rows.back().push_back(text);
        }
    }
    EXPECT_FALSE(rows.empty()) << name;
    return rows;
}

/// Replaces every `from`.
inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// Returns the message of the exception; "accepted" if there is none.
template <class Error = ReadError, class Call>
std::string FailureOf(Call call) {
    try {
        call();
    } catch (Error const& error) {
        return error.what();
    }
    return "accepted";
}

/// Returns the message with which the reader refuses a file; "accepted" if it does not.
inline std::string Refusal(std::string_view bytes, std::string const& name = "file") {
    return FailureOf([&] { static_cast<void>(ParseMeasurements(bytes, name)); });
}

/// A file in one dialect.
struct Dialect {
    char const* what;
    std::string bytes;
};

/// Expects the samples "a b" and "c" of 0.25, but 0.75 at 730 nm, in each dialect. `check` tests the rest.
template <class Check>
void ExpectTheSameOfAll(std::vector<Dialect> const& dialects, Check check) {
    for (auto const& [what, bytes] : dialects) {
        SCOPED_TRACE(what);
        ASSERT_EQ(Refusal(bytes), "accepted");
        MeasurementFile const file = ParseMeasurements(bytes, "file");
        ASSERT_EQ(file.samples.size(), 2U);
        EXPECT_EQ(file.samples[0].name, "a b");
        EXPECT_EQ(file.samples[1].name, "c");
        for (Sample const& sample : file.samples) {
            EXPECT_EQ(sample.spectrum[0], 0.25F);
            EXPECT_EQ(sample.spectrum[34], 0.25F);
            EXPECT_EQ(sample.spectrum[35], 0.75F);
        }
        check(file);
    }
}

/// Returns the notes, one per line.
inline std::string Notes(MeasurementFile const& file) {
    std::string notes;
    for (std::string const& note : file.notes) notes += note + "\n";
    return notes;
}

}  // namespace files::test
