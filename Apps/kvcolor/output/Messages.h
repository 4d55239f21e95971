// Messages: all that the program says beside its result, each in one line on standard error.
#pragma once

#include <ostream>
#include <string_view>

namespace kvcolor {

class Messages {
  public:
    explicit Messages(std::ostream& err) noexcept : err_(err) {}

    /// Leaves out notes from here on; warnings and errors stay.
    void DropNotes() noexcept { hasNotes_ = false; }

    /// "kvcolor: note: ...": a choice that was made.
    void Note(std::string_view text);
    /// "kvcolor: warning: ...": what may make the result mean something else than expected.
    void Warn(std::string_view text);
    /// "kvcolor: ...": why there is no result.
    void Error(std::string_view text);

  private:
    void Say(std::string_view kind, std::string_view text);

    std::ostream& err_;
    bool hasNotes_ = true;
};

}  // namespace kvcolor
