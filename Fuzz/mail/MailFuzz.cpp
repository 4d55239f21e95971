// Reads any bytes as those of a mail server, in any pieces: the responses do not depend on the pieces; the
// parts of a message become texts and files with safe and unique names.
#include "Platform/mail/posix/Gmime.h"
#include "Platform/mail/posix/ImapResponse.h"
#include "Platform/mail/posix/MailParts.h"
#include "Platform/mail/posix/MailText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace platform::detail;

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

std::vector<std::string> ResponsesOf(std::string_view stream, std::size_t cut) {
    ImapCutter cutter;
    std::vector<std::string> responses;
    while (!stream.empty()) {
        cutter.Add(stream.substr(0, cut));
        stream.remove_prefix(std::min(cut, stream.size()));
        while (auto response = cutter.Next()) responses.push_back(std::move(*response));
    }
    return responses;
}

void CheckName(std::string const& name) {
    Require(!name.empty() && name.size() <= LongestFileName + 6 && name.front() != '.');
    Require(name.find_first_of(std::string_view("/\\\0\r\n", 5)) == std::string::npos);
}

void CheckParts(ImapValue const& structure) {
    MailParts const parts = PartsOf(structure);
    Require(parts.files.size() <= MaxMailFiles);
    std::set<std::string> names;
    for (MailPart const& part : parts.files) {
        CheckName(part.fileName);
        Require(names.insert(part.fileName).second);
    }
}

void CheckItems(ImapValue const& items) {
    std::string const received = ReceivedDate(items.ValueOf("INTERNALDATE").text);
    Require(received.empty() || received.size() >= 16);
    MailParts const parts = PartsOf(items.ValueOf("BODYSTRUCTURE"));
    for (std::size_t i = 0; i + 1 < items.items.size(); i += 2) {
        if (!items[i].text.starts_with("BODY[")) continue;
        MailHead const head = ParseHead(items[i + 1].text);
        Require(head.subject.find('\0') == std::string::npos);
        if (parts.text) {
            std::string const text =
                AnsiFromUtf8(DecodeText(items[i + 1].text, parts.text->encoding, parts.text->charset));
            Require(text.find('\0') == std::string::npos);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    StartGmime();
    if (size == 0) return 0;
    std::string const stream(data + 1, data + size);
    std::vector<std::string> const responses = ResponsesOf(stream, stream.size());
    Require(responses == ResponsesOf(stream, std::size_t{1} + data[0]));
    for (std::string const& response : responses) {
        auto const value = ParseImap(response);
        if (!value) continue;
        for (ImapValue const& item : value->items) CheckItems(item);
        if (value->items.size() > 3) CheckParts((*value)[3].ValueOf("BODYSTRUCTURE"));
    }
    CheckName(SafeFileName(stream));
    if (auto const recipient = ParseRecipient(stream))
        Require(recipient->address.find_first_of("\r\n <>") == std::string::npos);
    if (auto const number = ParseMessageId(stream)) Require(ParseMessageId(MessageId(*number)).has_value());
    return 0;
}
