// Attachment: a file of a mail.
#pragma once

#include "SV/core/String.h"

#include <utility>

namespace kv {

class Attachment {
  public:
    Attachment(sv::String fileName, sv::String pathName)
        : fileName_(std::move(fileName)), pathName_(std::move(pathName)) {}

    /// Returns the name that the sender gave.
    [[nodiscard]] sv::String const& GetFileName() const noexcept { return fileName_; }
    /// Returns the path of the file; empty until it has been fetched.
    [[nodiscard]] sv::String const& GetPathName() const noexcept { return pathName_; }

  private:
    sv::String fileName_;
    sv::String pathName_;
};

}  // namespace kv
