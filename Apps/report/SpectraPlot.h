// SpectraPlot: draws the spectra of samples as a labelled plot on a page.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "SV/ui/OutputDevice.h"

#include <cstddef>
#include <span>
#include <vector>

namespace report {

/// Titles of the axes.
struct PlotTitles {
    sv::String wavelength;
    sv::String reflectance;
};

/// `area` is in tenths of a millimetre, the device's unit. Indices out of range are skipped.
void DrawSpectra(sv::OutputDevice& device, sv::Rectangle const& area, files::MeasurementFile const& file,
                 std::span<std::size_t const> samples, PlotTitles const& titles);

}  // namespace report
