// PrivateFolder: where the files of mails go: a folder that only the user can enter, gone with everything in
// it when its owner goes.
#pragma once

#include "Platform/posix/Descriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace platform::detail {

class PrivateFolder {
  public:
    /// Below the folder for temporary files. Throws a `MailError`.
    PrivateFolder();
    PrivateFolder(PrivateFolder const&) = delete;
    PrivateFolder& operator=(PrivateFolder const&) = delete;
    ~PrivateFolder();

    /// A folder in it, made when it is not there. Throws a `MailError`.
    [[nodiscard]] std::filesystem::path Folder(std::string const& name) const;

  private:
    std::filesystem::path path_;
};

/// A file that is being written; without `Keep` it goes again. Throws a `MailError` where it cannot be
/// written.
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
