#include "Apps/kvcolor/Coordinates.h"

#include "Apps/kvcolor/Session.h"
#include "KVUtils/KVUtils.h"

namespace kvcolor {

std::vector<Column> ColourColumns() {
    return {Session::NameColumn(),           NumberColumn("X", "X"),      NumberColumn("Y", "Y"),
            NumberColumn("Z", "Z"),          NumberColumn("x", "x", 4),   NumberColumn("y", "y", 4),
            NumberColumn("xyY_Y", "Y"),      NumberColumn("L", "L*"),     NumberColumn("a", "a*"),
            NumberColumn("b", "b*"),         NumberColumn("LCh_L", "L*"), NumberColumn("C", "C*"),
            NumberColumn("h", "h", 1, "deg")};
}

Row ColourRow(files::Sample const& sample) {
    kv::XYZVector const xyz(sample.spectrum);
    kv::LABVector const lab(sample.spectrum);
    kv::LChVector const lch(lab);
    kv::xyYVector const xyY(sample.spectrum);

    Row row = Session::RowOf(sample);
    auto const append = [&](kv::ColorVector const& colour) {
        for (int i = 0; i < 3; ++i) row.cells.emplace_back(colour[i]);
    };
    append(xyz);
    append(xyY);
    append(lab);
    append(lch);
    // The hue of a neutral is noise.
    constexpr float smallestChroma = 0.005F;
    if (lch[1] < smallestChroma) row.cells.back() = Cell();
    return row;
}

}  // namespace kvcolor
