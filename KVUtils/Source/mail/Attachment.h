// Attachment: one file of a mail.
#pragma once

#include "SV/core/String.h"

#include <utility>

namespace kv {

class Attachment {
  public:
    Attachment(sv::String fileName, sv::String pathName)
        : fileName_(std::move(fileName)), pathName_(std::move(pathName)) {}

    /// The name that the sender gave.
    [[nodiscard]] sv::String const& GetFileName() const noexcept { return fileName_; }
    /// Where the file lies; empty as long as it has not been fetched.
    [[nodiscard]] sv::String const& GetPathName() const noexcept { return pathName_; }

  private:
    sv::String fileName_;
    sv::String pathName_;
};

}  // namespace kv
