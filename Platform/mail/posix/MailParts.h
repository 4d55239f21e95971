// MailParts: what a message is made of, as its server describes it, so that its files can be listed without
// being fetched; and the decoding of a part.
#pragma once

#include "Platform/mail/posix/ImapResponse.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

struct MailPart {
    std::string section;  // its number by which the server knows it, "1.2"
    std::string encoding;
    std::string charset;
    std::string fileName;  // safe, in Windows-1252, unlike those of the other parts; empty for a text
};

/// The text that a person reads first, and the files, of a message.
struct MailParts {
    std::optional<MailPart> text;
    std::vector<MailPart> files;
};

/// From a BODYSTRUCTURE. The text is the first one that is no file, plain rather than HTML. A file is what
/// has a name or is to be shown apart, and whatever else is no text; an attached message is one file. More
/// than `MostMailFiles` files are left out.
inline constexpr std::size_t MostMailFiles = 200;
[[nodiscard]] MailParts PartsOf(ImapValue const& structure);

/// A part's bytes without their encoding for transport, in pieces.
class PartDecoder {
  public:
    explicit PartDecoder(std::string const& encoding);
    PartDecoder(PartDecoder const&) = delete;
    PartDecoder& operator=(PartDecoder const&) = delete;
    ~PartDecoder();

    [[nodiscard]] std::string Step(std::string_view bytes);
    /// What is left in the end.
    [[nodiscard]] std::string Finish();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// A text, decoded, in UTF-8 and with LF at the end of its lines; what its character set does not have
/// becomes
/// "?".
[[nodiscard]] std::string DecodeText(std::string_view bytes, std::string const& encoding,
                                     std::string const& charset);

/// The head of a message in Windows-1252.
struct MailHead {
    std::string subject;
    std::string senderName;  // the address where there is no name
    std::string senderAddress;
};
[[nodiscard]] MailHead ParseHead(std::string_view header);

}  // namespace platform::detail
