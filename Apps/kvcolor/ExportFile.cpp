#include "Apps/kvcolor/ExportFile.h"

#include "Apps/files/DataFile.h"
#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/Run.h"
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

void WriteExport(files::MeasurementFile const& file, std::string const& path, Messages& messages) {
    for (files::Sample const& sample : file.samples) {
        if (files::SurvivesDataFile(sample.name)) continue;
        messages.Warn("sample \"" + sample.name +
                      "\" will be read by another name: a data file keeps no \"^\" and no character outside "
                      "Windows-1252");
    }
    kv::AppName::CreateAppName("kvcolor", Version);
    files::WriteDataFile(file, path);
    std::size_t const count = file.samples.size();
    messages.Note(path + ": " + std::to_string(count) + (count == 1 ? " sample" : " samples"));
}

}  // namespace kvcolor
