#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/WavelengthGrid.h"

#include <gtest/gtest.h>

namespace files {
namespace {

/// Column k holds the wavelength number k of the range.
std::vector<SpectralColumn> ColumnsOf(test::Range const& range) {
    std::vector<SpectralColumn> columns;
    for (int nm = range.first; nm != range.last + range.step; nm += range.step) {
        columns.push_back({static_cast<double>(nm), columns.size()});
    }
    return columns;
}

TEST(WavelengthGrid, AcceptedRangesAndTheirNotes) {
    for (auto const& row : test::Rows("grids.tsv")) {
        auto const number = [&](std::size_t i) { return std::stoi(row[i]); };
        WavelengthGrid const grid = MakeGrid(ColumnsOf({number(0), number(1), number(2)}), {"file"});
        EXPECT_EQ(grid.columns.front(), number(3)) << row[6];
        EXPECT_EQ(grid.columns[17], number(4)) << row[6];
        EXPECT_EQ(grid.columns.back(), number(5)) << row[6];
        EXPECT_EQ(grid.note, row[6]);
        EXPECT_EQ(grid.assumption, row[7]);
    }
}

TEST(WavelengthGrid, RefusedRanges) {
    auto const refusal = [](std::vector<SpectralColumn> const& columns) {
        return test::FailureOf([&] { static_cast<void>(MakeGrid(columns, {"file", 3})); });
    };
    EXPECT_EQ(refusal({}), "file:3: found no spectral columns, expected 400 to 700 nm at least");
    EXPECT_EQ(refusal(ColumnsOf({410, 730, 10})),
              "file:3: found wavelengths from 410 to 730 nm by 10, expected 400 to 700 nm at least");
    EXPECT_EQ(refusal(ColumnsOf({380, 690, 10})),
              "file:3: found wavelengths from 380 to 690 nm by 10, expected 400 to 700 nm at least");
    EXPECT_EQ(
        refusal(ColumnsOf({385, 735, 10})),
        "file:3: found wavelengths from 385 to 735 nm by 10, expected every tenth nanometre (400, 410, ...) "
        "among them");
    EXPECT_EQ(refusal(ColumnsOf({380, 720, 20})),
              "file:3: found wavelengths in steps of 20 nm, expected even steps of 10, 5 or 1 nm");
    auto columns = ColumnsOf({});
    columns[7].nm = 440;
    EXPECT_EQ(refusal(columns),
              "file:3: found 440 nm twice (columns 7 and 8), expected each wavelength once");
    columns.erase(columns.begin() + 7);
    EXPECT_EQ(refusal(columns),
              "file:3: found no column for 450 nm, expected 380 to 730 nm by 10 without a gap");
    columns[7].nm = 450.5;
    EXPECT_EQ(refusal(columns), "file:3: found a wavelength of 450.5 nm, expected whole nanometres");
}

}  // namespace
}  // namespace files
