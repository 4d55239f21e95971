#include "Apps/files/MeasurementFile.h"

#include "Apps/files/CgatsReader.h"
#include "Apps/files/CsvReader.h"
#include "Apps/files/DataFile.h"
#include "Apps/files/Text.h"
#include "Platform/Utf8Path.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace files {

namespace {

constexpr std::string_view Wanted = "a measurement file";

/// The bytes of a file, one more than allowed at most: what cannot say its size (a pipe) may have no end.
std::string ReadBytes(std::filesystem::path const& path, Place const& place) {
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        std::string const reason = std::generic_category().message(errno);
        Fail(place, "a file that cannot be opened (" + reason + ")", Wanted);
    }
    constexpr std::size_t ChunkBytes = std::size_t{1} << 20U;
    std::string bytes;
    while (stream && bytes.size() <= MaxFileBytes) {
        std::size_t const before = bytes.size();
        bytes.resize(before + ChunkBytes);
        stream.read(bytes.data() + before, static_cast<std::streamsize>(ChunkBytes));
        bytes.resize(before + static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad()) Fail(place, "a file that cannot be read", Wanted);
    return bytes;
}

}  // namespace

MeasurementFile ReadMeasurementFile(std::string const& path) {
    namespace fs = std::filesystem;
    Place const place{path};
    fs::path const file = platform::PathOf(path);
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found) Fail(place, "no file of this name", Wanted);
    if (status.type() == fs::file_type::directory) Fail(place, "a directory", Wanted);
    if (status.type() == fs::file_type::regular) {
        auto const size = fs::file_size(file, error);
        if (!error) CheckSize(size, path);
    }
    return ParseMeasurements(ReadBytes(file, place), path);
}

MeasurementFile ParseMeasurements(std::string_view bytes, std::string const& name) {
    MeasurementFile file;
    file.path = name;
    std::string_view const text = CheckedText(bytes, file.path);
    if (IsDataFile(text)) return ReadDataFile(bytes, name);
    if (!IsUtf8(text)) file.notes.emplace_back("text that is not UTF-8 read as Windows-1252");
    if (IsCgats(text)) {
        ReadCgats(text, file);
    } else {
        ReadCsv(text, file);
    }
    return file;
}

}  // namespace files
