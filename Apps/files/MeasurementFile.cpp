#include "Apps/files/MeasurementFile.h"

#include "Apps/files/CgatsReader.h"
#include "Apps/files/CsvReader.h"
#include "Apps/files/DataFile.h"
#include "Apps/files/Text.h"
#include "Platform/Utf8Path.h"
#include "SV/core/Utf8.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace files {

namespace {

/// Reads at most one byte more than allowed: a pipe has no size and may have no end.
std::string ReadBytes(std::filesystem::path const& path, Location const& location) {
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        Fail(location, "cannot be opened: " + std::generic_category().message(errno));
    }
    constexpr std::size_t ChunkBytes = std::size_t{1} << 20U;
    std::string bytes;
    while (stream && bytes.size() <= MaxFileBytes) {
        std::size_t const before = bytes.size();
        bytes.resize(before + ChunkBytes);
        stream.read(bytes.data() + before, static_cast<std::streamsize>(ChunkBytes));
        bytes.resize(before + static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad()) Fail(location, "cannot be read");
    return bytes;
}

}  // namespace

MeasurementFile ReadMeasurementFile(std::string const& path, ReadOptions const& options) {
    namespace fs = std::filesystem;
    Location const location{path};
    fs::path const file = platform::PathOf(path);
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found) Fail(location, "no such file");
    if (status.type() == fs::file_type::directory) Fail(location, "is a directory");
    if (status.type() == fs::file_type::regular) {
        auto const size = fs::file_size(file, error);
        if (!error) CheckSize(size, path);
    }
    return ParseMeasurements(ReadBytes(file, location), path, options);
}

MeasurementFile ParseMeasurements(std::string_view bytes, std::string const& name,
                                  ReadOptions const& options) {
    MeasurementFile file;
    file.path = name;
    std::string_view const text = CheckedText(bytes, file.path);
    bool const isCgats = !IsDataFile(text) && IsCgats(text);
    if (!isCgats && options.table > 1) Fail({file.path}, "there is only one table (omit --table)");
    if (IsDataFile(text)) return ReadDataFile(bytes, name);
    if (!sv::IsUtf8(text)) file.assumptions.emplace_back("text in Windows-1252");
    isCgats ? ReadCgats(text, options, file) : ReadCsv(text, options, file);
    return file;
}

}  // namespace files
