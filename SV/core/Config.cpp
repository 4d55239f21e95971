#include "SV/core/Config.h"

#include "Platform/Files.h"
#include "SV/core/NativePath.h"
#include "SV/core/detail/IniText.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace sv {

/// The file on the disk and its last known content.
class Config::File {
  public:
    explicit File(String const& pathName) : path_(NativePath(pathName)), directory_(FilePath(pathName)) {
        directory_.remove_filename();
    }

    /// Returns the current text of the file.
    [[nodiscard]] detail::IniText const& Current();

    /// Reads the file under the lock, edits its text and writes it back. False on failure.
    bool Change(std::function<void(detail::IniText&)> const& edit);

  private:
    void Remember(std::string&& content);

    std::string path_;
    std::filesystem::path directory_;
    detail::IniText text_;
    std::optional<platform::FileIdentity> identity_;
    bool isSettled_ = false;
};

namespace {

/// Whether any further change of the file is certain to change its identity. Time stamps advance in steps of
/// some milliseconds, and the file number of a replaced file is given to the next one at once.
bool IsSettled(std::optional<platform::FileIdentity> const& identity) {
    using std::chrono::nanoseconds, std::chrono::system_clock;
    constexpr nanoseconds Step = std::chrono::milliseconds(100);
    if (!identity) return true;
    auto const now = std::chrono::duration_cast<nanoseconds>(system_clock::now().time_since_epoch());
    return nanoseconds(identity->modified) + Step < now;
}

}  // namespace

void Config::File::Remember(std::string&& content) {
    if (content != text_.Text()) text_ = detail::IniText(std::move(content));
}

detail::IniText const& Config::File::Current() {
    // Identify first, so that a write between the two calls shows at the next read.
    auto const identity = platform::Identify(path_);
    if (isSettled_ && identity == identity_) return text_;
    bool const isSettled = IsSettled(identity);
    std::optional<std::string> content = platform::ReadWhole(path_);
    if (!content && platform::Identify(path_))
        return text_;  // exists but cannot be read: keep the known text
    Remember(std::move(content).value_or(std::string()));
    identity_ = identity;
    isSettled_ = isSettled;
    return text_;
}

bool Config::File::Change(std::function<void(detail::IniText&)> const& edit) {
    std::error_code error;
    if (!directory_.empty()) std::filesystem::create_directories(directory_, error);
    platform::FileLock const lock(platform::FollowLinks(path_) + ".lock");
    if (!lock.IsHeld()) return false;
    std::optional<std::string> const found = platform::ReadWhole(path_);
    if (!found && platform::Identify(path_)) return false;  // its keys would be lost
    std::string const before = found.value_or(std::string());
    Remember(std::string(before));
    isSettled_ = false;
    edit(text_);
    if (text_.Text() == before || platform::ReplaceAtomically(path_, text_.Text())) return true;
    Remember(std::string(before));
    return false;
}

Config::Config(String const& pathName) : pathName_(pathName), file_(std::make_unique<File>(pathName)) {}
Config::~Config() = default;

String Config::ReadKey(String const& key) {
    return file_->Current().Value(group_.View(), key.View()).value_or(std::string_view());
}

bool Config::WriteKey(String const& key, String const& value) {
    std::string_view const group = group_.View();
    if (!detail::IniText::CanHold(group, key.View())) return false;
    if (file_->Current().Value(group, key.View()) == value.View()) return true;
    return file_->Change([&](detail::IniText& text) { text.SetValue(group, key.View(), value.View()); });
}

bool Config::DeleteKey(String const& key) {
    std::string_view const group = group_.View();
    if (!file_->Current().Value(group, key.View())) return true;
    return file_->Change([&](detail::IniText& text) { text.RemoveKey(group, key.View()); });
}

unsigned short Config::GetKeyCount() {
    std::size_t const count = file_->Current().KeyNames(group_.View()).size();
    constexpr std::size_t Most = std::numeric_limits<unsigned short>::max();
    return static_cast<unsigned short>(std::min(count, Most));
}

String Config::GetKeyName(unsigned short index) {
    std::vector<std::string> const& names = file_->Current().KeyNames(group_.View());
    return index < names.size() ? String(names[index]) : String();
}

}  // namespace sv
