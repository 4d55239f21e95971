#include "Apps/kvcolor/output/Messages.h"

#include "Apps/kvcolor/output/Text.h"

namespace kvcolor {

void Messages::Note(std::string_view text) {
    if (hasNotes_) Say("note: ", text);
}

void Messages::Warn(std::string_view text) { Say("warning: ", text); }

void Messages::Error(std::string_view text) { Say("", text); }

void Messages::Say(std::string_view kind, std::string_view text) {
    err_ << "kvcolor: " << kind << Printable(text) << '\n';
}

}  // namespace kvcolor
