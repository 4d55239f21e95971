// PrivateFolder: a folder for received files that only the user can access, removed with its content by the
// destructor.
#pragma once

#include "Platform/posix/Descriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace platform::detail {

class PrivateFolder {
  public:
    /// Creates the folder in the folder for temporary files. Throws a `MailError`.
    PrivateFolder();
    PrivateFolder(PrivateFolder const&) = delete;
    PrivateFolder& operator=(PrivateFolder const&) = delete;
    ~PrivateFolder();

    /// Returns a subfolder, created if necessary. Throws a `MailError`.
    [[nodiscard]] std::filesystem::path Folder(std::string const& name) const;

  private:
    std::filesystem::path path_;
};

/// A file being written, which the destructor removes unless `Keep` was called. Throws a `MailError` if it
/// cannot be written.
class NewFile {
  public:
    explicit NewFile(std::filesystem::path path);
    NewFile(NewFile const&) = delete;
    NewFile& operator=(NewFile const&) = delete;
    ~NewFile();

    void Write(std::string_view bytes);
    void Keep();

  private:
    std::filesystem::path path_;
    Descriptor file_;
    bool isKept_ = false;
};

}  // namespace platform::detail
