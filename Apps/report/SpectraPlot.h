// SpectraPlot: the spectra of some samples, in a labelled diagram on a page.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "SV/ui/OutputDevice.h"

#include <cstddef>
#include <span>
#include <vector>

namespace report {

/// What stands at the axes.
struct PlotTitles {
    sv::String wavelength;
    sv::String reflectance;
};

/// `area` is in tenths of a millimetre, the device's own unit. Indices that the file lacks are left out.
void DrawSpectra(sv::OutputDevice& device, sv::Rectangle const& area, files::MeasurementFile const& file,
                 std::span<std::size_t const> samples, PlotTitles const& titles);

}  // namespace report
