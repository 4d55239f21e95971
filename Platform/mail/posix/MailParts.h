// MailParts: the structure of a message as its server describes it, so that files are listed without being
// fetched; and the decoding of a part.
#pragma once

#include "Platform/mail/posix/ImapResponse.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

struct MailPart {
    std::string section;  // the server's number of the part, "1.2"
    std::string encoding;
    std::string charset;
    std::string fileName;  // safe, unique in the message, in Windows-1252; empty for a text
};

/// The main text and the files of a message.
struct MailParts {
    std::optional<MailPart> text;
    std::vector<MailPart> files;
};

/// Derives the parts from a BODYSTRUCTURE. The text is the first part that is not a file, plain text before
/// HTML. A part is a file if it has a name, is marked as an attachment or is not a text; an attached message
/// is one file. Files beyond `MaxMailFiles` are omitted.
inline constexpr std::size_t MaxMailFiles = 200;
[[nodiscard]] MailParts PartsOf(ImapValue const& structure);

/// Decodes the transfer encoding of a part, in pieces.
class PartDecoder {
  public:
    explicit PartDecoder(std::string const& encoding);
    PartDecoder(PartDecoder const&) = delete;
    PartDecoder& operator=(PartDecoder const&) = delete;
    ~PartDecoder();

    [[nodiscard]] std::string Step(std::string_view bytes);
    /// Returns the remaining bytes.
    [[nodiscard]] std::string Finish();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Decodes a text into UTF-8 with LF line ends; bytes that its character set does not define become "?".
[[nodiscard]] std::string DecodeText(std::string_view bytes, std::string const& encoding,
                                     std::string const& charset);

/// The header fields of a message, in Windows-1252.
struct MailHead {
    std::string subject;
    std::string senderName;  // the address if there is no name
    std::string senderAddress;
};
[[nodiscard]] MailHead ParseHead(std::string_view header);

}  // namespace platform::detail
