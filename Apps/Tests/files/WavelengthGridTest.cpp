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
    struct Row {
        test::Range range;
        std::size_t at380, at550, at730;  // columns
        char const* note;
    };
    for (
        auto const& [range, at380, at550, at730, note] : {
            Row{{380, 730, 10}, 0, 17, 35, "wavelengths 380 to 730 nm by 10, taken as they are"},
            Row{{730, 380, -10}, 35, 18, 0, "wavelengths 380 to 730 nm by 10, taken as they are"},
            Row{{400, 700, 10},
                0,
                15,
                30,
                "wavelengths 400 to 700 nm by 10, below 400 held at the value there, above 700 held at the value "
                "there"},
            Row{{390, 730, 10},
                0,
                16,
                34,
                "wavelengths 390 to 730 nm by 10, below 390 held at the value there"},
            Row{{360, 750, 10}, 2, 19, 37, "wavelengths 360 to 750 nm by 10, cut below 380, cut above 730"},
            Row{{380, 780, 5},
                0,
                34,
                70,
                "wavelengths 380 to 780 nm by 5, every tenth nanometre taken, cut above 730"},
            Row{{395, 705, 5},
                1,
                31,
                61,
                "wavelengths 395 to 705 nm by 5, every tenth nanometre taken, below 400 held at the value there, "
                "above 700 held at the value there"},
            Row{{380, 730, 1}, 0, 170, 350, "wavelengths 380 to 730 nm by 1, every tenth nanometre taken"},
        }) {
        WavelengthGrid const grid = MakeGrid(ColumnsOf(range), {"file"});
        EXPECT_EQ(grid.note, note);
        EXPECT_EQ(grid.columns.front(), at380) << note;
        EXPECT_EQ(grid.columns[17], at550) << note;
        EXPECT_EQ(grid.columns.back(), at730) << note;
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
