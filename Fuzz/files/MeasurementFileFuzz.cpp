// Reads any bytes: they yield samples within the documented limits, or a ReadError of one line.
#include "Apps/files/MeasurementFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Require(bool isKept) {
    if (!isKept) std::abort();
}

void CheckSample(files::Sample const& sample) {
    Require(!sample.name.empty());
    for (int point = 0; point < kv::SpectralPoints; ++point) {
        Require(sample.spectrum[point] >= -0.0501F && sample.spectrum[point] <= 2.001F);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const bytes(data, data + size);
    try {
        auto const file = files::ParseMeasurements(bytes, "fuzz");
        Require(!file.samples.empty() && !file.dialect.empty() && !file.notes.empty());
        for (files::Sample const& sample : file.samples) CheckSample(sample);
    } catch (files::ReadError const& error) {
        std::string_view const text = error.what();
        Require(text.starts_with("fuzz:") && text.find('\n') == std::string_view::npos);
    }
    return 0;
}
