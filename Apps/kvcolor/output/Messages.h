// Messages: notes, warnings and errors, one line each on standard error.
#pragma once

#include "Apps/evaluation/Remark.h"

#include <ostream>
#include <string_view>

namespace kvcolor {

class Messages {
  public:
    explicit Messages(std::ostream& err) noexcept : err_(err) {}

    /// Whether notes are suppressed; warnings and errors are not.
    [[nodiscard]] bool& IsQuiet() noexcept { return isQuiet_; }
    /// Whether details are written.
    [[nodiscard]] bool& IsVerbose() noexcept { return isVerbose_; }

    /// "kvcolor: note: ...": what was assumed or done.
    void Note(std::string_view text);
    /// The same, only if details are requested.
    void Detail(std::string_view text);
    /// "kvcolor: warning: ...": why the result may differ from what is expected.
    void Warn(std::string_view text);
    /// "kvcolor: ...": why there is no result.
    void Error(std::string_view text);
    void Write(evaluation::Remarks const& remarks);

  private:
    void Write(std::string_view kind, std::string_view text);

    std::ostream& err_;
    bool isQuiet_ = false;
    bool isVerbose_ = false;
};

}  // namespace kvcolor
