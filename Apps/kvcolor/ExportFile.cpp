#include "Apps/kvcolor/ExportFile.h"

#include "Apps/kvcolor/Run.h"
#include "Apps/kvcolor/Unusable.h"
#include "Apps/measurements/DataFile.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "Platform/Utf8Path.h"

#include <filesystem>
#include <system_error>

namespace kvcolor {

void CheckIsNew(std::string const& path) {
    std::error_code ignored;
    if (std::filesystem::exists(platform::PathOf(path), ignored)) {
        throw Unusable(path + " is there already: --force replaces it");
    }
}

void WriteExport(measurements::MeasurementFile const& file, std::string const& path, Messages& messages) {
    for (measurements::Sample const& sample : file.samples) {
        if (measurements::SurvivesDataFile(sample.name)) continue;
        messages.Warn("sample \"" + sample.name +
                      "\" will be read by another name: a data file keeps no \"^\" and no character outside "
                      "Windows-1252");
    }
    kv::AppName::CreateAppName("kvcolor", Version);
    measurements::WriteDataFile(file, path);
    std::size_t const count = file.samples.size();
    messages.Note(path + ": " + std::to_string(count) + (count == 1 ? " sample" : " samples"));
}

}  // namespace kvcolor
