#include "KVUtils/Source/data/FileHelpers.h"

#include "Platform/Files.h"
#include "SV/core/NativePath.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace kv {

namespace {

using platform::FileAccess;
using platform::FileDisposition;

struct OpenMode {
    FileAccess access;
    FileDisposition disposition;
};

std::optional<OpenMode> OpenModeOf(KVFileOpenModusTYPE modus) {
    switch (modus) {
        case KVFileOpenModusTYPE::Read:
            return OpenMode{FileAccess::Read, FileDisposition::OpenExisting};
        case KVFileOpenModusTYPE::Write:
            return OpenMode{FileAccess::Write, FileDisposition::OpenOrCreate};
        case KVFileOpenModusTYPE::WriteExisting:
            return OpenMode{FileAccess::Write, FileDisposition::OpenExisting};
        case KVFileOpenModusTYPE::ReadWrite:
            return OpenMode{FileAccess::ReadWrite, FileDisposition::OpenOrCreate};
        case KVFileOpenModusTYPE::ReadWriteExisting:
            return OpenMode{FileAccess::ReadWrite, FileDisposition::OpenExisting};
    }
    return std::nullopt;
}

}  // namespace

bool KVOpenFile(void*& handle, sv::String const& name, KVFileOpenModusTYPE modus, unsigned long /*unused*/,
                unsigned long /*unused*/) {
    std::optional<OpenMode> const mode = OpenModeOf(modus);
    handle = mode ? platform::OpenFile(sv::NativePath(name), mode->access, mode->disposition) : nullptr;
    return handle != nullptr;
}

bool KVCloseFile(void* handle) { return handle != nullptr && platform::CloseFile(handle); }

bool KVReadFromFile(void* handle, void* target, unsigned long& count) {
    if (handle != nullptr) return platform::ReadFile(handle, target, count);
    count = 0;
    return false;
}

bool KVWriteToFile(void* handle, void const* source, unsigned long& count) {
    if (handle != nullptr) return platform::WriteFile(handle, source, count);
    count = 0;
    return false;
}

bool KVDeleteFile(sv::String const& name) {
    std::error_code error;
    std::filesystem::path const path = sv::FilePath(name);
    // std::filesystem::remove also removes empty directories.
    if (std::filesystem::is_directory(std::filesystem::symlink_status(path, error))) return false;
    return std::filesystem::remove(path, error);
}

bool KVResetFilePointer(void* handle) { return handle != nullptr && platform::SeekToStart(handle); }

bool KVResetFileSize(void* handle) { return handle != nullptr && platform::Truncate(handle); }

sv::String KVGetUncName(sv::String const& path, bool connected) {
    std::size_t const colon = path.Search(':');
    if (colon == sv::String::NotFound) return path;
    std::string const drive(path.View().substr(0, colon + 1));
    std::optional<std::string> const name = platform::NetworkNameOfDrive(drive, connected);
    return name ? sv::FromNativePath(*name) + path.Copy(colon + 1) : path;
}

sv::String KVGetShortPath(sv::String const& path) {
    std::string const name = sv::NativePath(path);
    std::string const shortName = platform::ShortPath(name);
    return shortName == name ? path : sv::FromNativePath(shortName);
}

}  // namespace kv
