#include "Platform/mail/posix/PrivateFolder.h"

#include "Platform/UserFolders.h"
#include "Platform/mail/posix/MailError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace platform::detail {

namespace {

[[noreturn]] void FailWriting(std::filesystem::path const& path) {
    throw MailError(MailFault::FileUnwritable, path.string() + ": cannot be written");
}

}  // namespace

PrivateFolder::PrivateFolder() : path_(MakePrivateFolder("kvmail")) {
    if (path_.empty()) FailWriting("a folder for temporary files");
}

PrivateFolder::~PrivateFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

std::filesystem::path PrivateFolder::Folder(std::string const& name) const {
    std::filesystem::path folder = path_ / name;
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) FailWriting(folder);
    return folder;
}

NewFile::NewFile(std::filesystem::path path)
    : path_(std::move(path)),
      file_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600)) {
    if (!file_) FailWriting(path_);
}

NewFile::~NewFile() {
    if (!isKept_) ::unlink(path_.c_str());
}

void NewFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        auto const count = Retry([&] { return ::write(file_.Number(), bytes.data(), bytes.size()); });
        if (count < 0) FailWriting(path_);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void NewFile::Keep() {
    if (::close(file_.Release()) != 0) FailWriting(path_);
    isKept_ = true;
}

}  // namespace platform::detail
