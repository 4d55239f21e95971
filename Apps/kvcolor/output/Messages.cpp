#include "Apps/kvcolor/output/Messages.h"

#include "Apps/kvcolor/output/Text.h"

namespace kvcolor {

void Messages::Note(std::string_view text) {
    if (!isQuiet_) Write("note: ", text);
}

void Messages::Detail(std::string_view text) {
    if (isVerbose_) Note(text);
}

void Messages::Warn(std::string_view text) { Write("warning: ", text); }

void Messages::Error(std::string_view text) { Write("", text); }

void Messages::Write(evaluation::Remarks const& remarks) {
    for (evaluation::Remark const& remark : remarks) {
        remark.kind == evaluation::Remark::Kind::Note ? Note(remark.text) : Warn(remark.text);
    }
}

void Messages::Write(std::string_view kind, std::string_view text) {
    err_ << "kvcolor: " << kind << Printable(text) << '\n';
}

}  // namespace kvcolor
