#include "SV/core/DirEntry.h"

#include "SV/core/NativePath.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace sv {

namespace {

constexpr std::string_view Separators = "/\\";

constexpr bool IsSeparator(char character) noexcept {
    return Separators.find(character) != std::string_view::npos;
}

constexpr bool IsLetter(char character) noexcept {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

/// The length of a leading "X:", or 0.
constexpr std::size_t DeviceLength(std::string_view path) noexcept {
    return path.size() >= 2 && IsLetter(path[0]) && path[1] == ':' ? 2 : 0;
}

/// Where the name begins: after the last separator or the device.
constexpr std::size_t NameBegin(std::string_view path) noexcept {
    std::size_t const separator = path.find_last_of(Separators);
    return separator == std::string_view::npos ? DeviceLength(path) : separator + 1;
}

/// The position of the "." that begins the extension; the end if there is none.
constexpr std::size_t ExtensionBegin(std::string_view path) noexcept {
    std::size_t const dot = path.find_last_of('.');
    return dot == std::string_view::npos || dot < NameBegin(path) ? path.size() : dot;
}

}  // namespace

DirEntry::DirEntry(String path, PathStyle /*style*/) : full_(std::move(path)) {}

String DirEntry::GetName() const { return full_.Copy(NameBegin(full_.View())); }

String DirEntry::GetExtension() const { return full_.Copy(ExtensionBegin(full_.View()) + 1); }

DirEntry DirEntry::GetPath() const {
    std::string_view const path = full_.View();
    std::string_view const directory = path.substr(0, NameBegin(path));
    std::size_t const last = directory.find_last_not_of(Separators);
    bool const isRoot = last == std::string_view::npos || last + 1 == DeviceLength(path);
    return DirEntry(isRoot ? directory : directory.substr(0, last + 1));
}

DirEntry DirEntry::GetDevice() const { return DirEntry(full_.Copy(0, DeviceLength(full_.View()))); }

String DirEntry::CutExtension() {
    String extension = GetExtension();
    full_.Erase(ExtensionBegin(full_.View()));
    return extension;
}

void DirEntry::ChangeName(String const& name) {
    full_.Erase(NameBegin(full_.View()));
    full_ += name;
}

void DirEntry::ChangeExtension(String const& extension) {
    CutExtension();
    if (extension.IsEmpty()) return;
    full_ += '.';
    full_ += extension;
}

bool DirEntry::Exists() const {
    std::error_code error;
    return std::filesystem::exists(FilePath(full_), error);
}

DirEntry DirEntry::operator+(DirEntry const& below) const { return *this + below.full_; }

DirEntry DirEntry::operator+(String const& below) const {
    std::string_view const path = full_.View();
    std::string_view rest = below.View();
    if (path.empty() || DeviceLength(rest) != 0) return DirEntry(below);
    if (rest.empty()) return *this;
    rest.remove_prefix(std::min(rest.find_first_not_of(Separators), rest.size()));
    bool const needsNone = IsSeparator(path.back()) || path.size() == DeviceLength(path);
    return DirEntry(needsNone ? full_ + rest : full_ + PathSeparator + rest);
}

FileStat::FileStat(DirEntry const& entry) {
    std::error_code error;
    std::filesystem::path const path = FilePath(entry.GetFull());
    auto const status = std::filesystem::status(path, error);
    isFile_ = std::filesystem::is_regular_file(status);
    isDirectory_ = std::filesystem::is_directory(status);
    if (!isFile_) return;
    auto const size = std::filesystem::file_size(path, error);
    if (!error) size_ = size;
}

}  // namespace sv
