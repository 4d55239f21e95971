#include "Apps/kvcolor/ExportFile.h"

#include "Apps/files/DataFile.h"
#include "Apps/files/Text.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Version.h"

namespace kvcolor {

void WriteExport(files::MeasurementFile const& file, std::string const& path, Messages& messages) {
    for (files::Sample const& sample : file.samples) {
        if (files::IsRepresentable(sample.name)) continue;
        messages.Warn(
            "sample " + files::Quoted(sample.name) +
            " will have another name: a data file cannot contain \"^\" or characters outside Windows-1252");
    }
    kv::AppName::CreateAppName("kvcolor", kv::Version);
    files::WriteDataFile(file, path);
    messages.Note(path + ": " + files::Counted(file.samples.size(), "sample"));
}

}  // namespace kvcolor
