#include "Platform/mail/posix/MailParts.h"

#include "Platform/mail/posix/Gmime.h"
#include "Platform/mail/posix/MailText.h"

#include <algorithm>
#include <cstdint>

namespace platform::detail {

namespace {

/// Builds a header value from a list of parameters, to be parsed as a real header.
std::string HeaderWith(ImapValue const& parameters) {
    std::string header = "attachment";
    for (std::size_t i = 0; i + 1 < parameters.items.size(); i += 2) {
        std::string const& key = parameters[i].text;
        header += "; " + key + '=';
        // Extended values are not quoted, and contain nothing that requires it.
        header += key.ends_with('*') ? parameters[i + 1].text : Quoted(parameters[i + 1].text);
    }
    return header;
}

std::string Parameter(ImapValue const& parameters, char const* name) {
    using Disposition = std::unique_ptr<GMimeContentDisposition, decltype(&g_object_unref)>;
    Disposition const header(g_mime_content_disposition_parse(nullptr, HeaderWith(parameters).c_str()),
                             &g_object_unref);
    return TextOrEmpty(g_mime_content_disposition_get_parameter(header.get(), name));
}

/// A part without parts of its own. The positions of its fields are defined by RFC 3501, 7.4.2.
class Leaf {
  public:
    Leaf(ImapValue const& fields, std::string section) : fields_(fields), section_(std::move(section)) {}

    [[nodiscard]] bool IsText(char const* subtype) const {
        return fields_[0].Is("text") && fields_[1].Is(subtype);
    }
    [[nodiscard]] bool IsFile() const {
        return !fields_[0].Is("text") || Disposition()[0].Is("attachment") || !Name().empty();
    }

    [[nodiscard]] MailPart AsText() const {
        return {section_, fields_[5].text, Parameter(fields_[2], "charset"), {}};
    }
    [[nodiscard]] MailPart AsFile(std::vector<std::string> const& taken) const {
        std::string name = AnsiFromUtf8(Name());
        if (name.empty() && IsMessage()) name = "message.eml";
        return {section_, fields_[5].text, {}, UniqueFileName(SafeFileName(name), taken)};
    }

  private:
    [[nodiscard]] bool IsMessage() const { return fields_[0].Is("message") && fields_[1].Is("rfc822"); }
    [[nodiscard]] ImapValue const& Disposition() const {
        return fields_[fields_[0].Is("text") ? 9 : IsMessage() ? 11 : 8];
    }
    [[nodiscard]] std::string Name() const {
        std::string name = Parameter(Disposition()[1], "filename");
        return name.empty() ? Parameter(fields_[2], "name") : name;
    }

    ImapValue const& fields_;
    std::string section_;
};

/// Calls `visit` for each leaf of a multipart message in order, with its section number.
template <class Visit>
void ForEachLeaf(ImapValue const& part, std::string const& section, Visit const& visit) {
    if (part.items.empty()) return;
    if (!part[0].IsList()) return visit(Leaf(part, section.empty() ? "1" : section));
    for (std::size_t i = 0; i < part.items.size() && part.items[i].IsList(); ++i) {
        std::string const number = std::to_string(i + 1);
        ForEachLeaf(part.items[i], section.empty() ? number : section + '.' + number, visit);
    }
}

/// Converts bytes of a character set to UTF-8, as Windows-1252 if the set is unknown or does not fit.
std::string Utf8From(std::string const& bytes, std::string const& charset) {
    char const* const known = g_mime_charset_iconv_name(charset.empty() ? "us-ascii" : charset.c_str());
    gsize size = 0;
    GText const utf8 = OwnText(g_convert_with_fallback(bytes.data(), static_cast<gssize>(bytes.size()),
                                                       "UTF-8", known, "?", nullptr, &size, nullptr));
    return utf8 == nullptr ? Utf8FromAnsi(bytes) : std::string(utf8.get(), size);
}

GOwned<GMimeMessage> ParseHeader(std::string_view header) {
    auto const stream = OwnObject(g_mime_stream_mem_new_with_buffer(header.data(), header.size()));
    auto const parser = OwnObject(g_mime_parser_new_with_stream(stream.get()));
    return OwnObject(g_mime_parser_construct_message(parser.get(), nullptr));
}

/// Returns the first mailbox of a list, null if there is none at its top level.
InternetAddressMailbox* FirstMailbox(InternetAddressList* list) {
    for (int i = 0; i < internet_address_list_length(list); ++i) {
        InternetAddress* const address = internet_address_list_get_address(list, i);
        if (INTERNET_ADDRESS_IS_MAILBOX(address)) return INTERNET_ADDRESS_MAILBOX(address);
    }
    return nullptr;
}

}  // namespace

MailParts PartsOf(ImapValue const& structure) {
    MailParts parts;
    bool isPlain = false;
    std::vector<std::string> names;
    ForEachLeaf(structure, "", [&](Leaf const& leaf) {
        if (leaf.IsFile()) {
            if (names.size() == MaxMailFiles) return;
            parts.files.push_back(leaf.AsFile(names));
            names.push_back(parts.files.back().fileName);
        } else if (!parts.text || (!isPlain && leaf.IsText("plain"))) {
            isPlain = leaf.IsText("plain");
            parts.text = leaf.AsText();
        }
    });
    return parts;
}

struct PartDecoder::State {
    GMimeEncoding encoding{};
};

PartDecoder::PartDecoder(std::string const& encoding) : state_(std::make_unique<State>()) {
    g_mime_encoding_init_decode(&state_->encoding, g_mime_content_encoding_from_string(encoding.c_str()));
}

PartDecoder::~PartDecoder() = default;

std::string PartDecoder::Step(std::string_view bytes) {
    std::string out(g_mime_encoding_outlen(&state_->encoding, bytes.size()), '\0');
    out.resize(g_mime_encoding_step(&state_->encoding, bytes.data(), bytes.size(), out.data()));
    return out;
}

std::string PartDecoder::Finish() {
    std::string out(g_mime_encoding_outlen(&state_->encoding, 0), '\0');
    out.resize(g_mime_encoding_flush(&state_->encoding, "", 0, out.data()));
    return out;
}

std::string DecodeText(std::string_view bytes, std::string const& encoding, std::string const& charset) {
    PartDecoder decoder(encoding);
    std::string text = decoder.Step(bytes);
    text += decoder.Finish();
    std::string utf8 = Utf8From(text, charset);
    std::erase_if(utf8, [](char c) { return c == '\0' || c == '\r'; });
    return utf8;
}

MailHead ParseHead(std::string_view header) {
    MailHead head;
    auto const message = ParseHeader(header);
    if (message == nullptr) return head;
    head.subject = AnsiFromUtf8(TextOrEmpty(g_mime_message_get_subject(message.get())));
    InternetAddressMailbox* sender = FirstMailbox(g_mime_message_get_from(message.get()));
    if (sender == nullptr) sender = FirstMailbox(g_mime_message_get_sender(message.get()));
    if (sender == nullptr) return head;
    head.senderAddress = AnsiFromUtf8(TextOrEmpty(internet_address_mailbox_get_addr(sender)));
    head.senderName = AnsiFromUtf8(TextOrEmpty(internet_address_get_name(INTERNET_ADDRESS(sender))));
    if (head.senderName.empty()) head.senderName = head.senderAddress;
    return head;
}

void StartGmime() {
    static bool const isStarted = (g_mime_init(), true);
    static_cast<void>(isStarted);
}

}  // namespace platform::detail
