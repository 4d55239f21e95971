#include "Platform/mail/posix/MailStore.h"

#include "Platform/mail/posix/MailError.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace platform::detail {

namespace {

constexpr std::size_t Chunk = 512U << 10;
constexpr char HeadItem[] = "[HEADER.FIELDS (SUBJECT FROM SENDER)]<0.65536>";

std::uint32_t NumberOf(std::string_view text) noexcept {
    std::uint32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Returns the body part among the items of a message, "BODY[...] bytes".
std::string const& BodyAmong(ImapValue const& items) {
    static std::string const none;
    for (std::size_t i = 0; i + 1 < items.items.size(); i += 2) {
        if (items[i].text.starts_with("BODY[")) return items[i + 1].text;
    }
    return none;
}

std::string Range(MailPart const& part, std::uint64_t begin, std::size_t count) {
    return "BODY.PEEK[" + part.section + "]<" + std::to_string(begin) + '.' + std::to_string(count) + '>';
}

}  // namespace

MailStore::MailStore(std::string accountFile) : accountFile_(std::move(accountFile)) { Connect(); }

void MailStore::Connect() {
    account_ = LoadAccount(accountFile_);
    connection_ = std::make_unique<ImapConnection>(account_);
    Select();
}

void MailStore::Select() {
    std::uint32_t validity = 0;
    for (ImapValue const& answer : connection_->Command("SELECT " + Quoted(account_.folder))) {
        if (answer[0].Is("OK") && answer[1].text.starts_with("UIDVALIDITY "))
            validity = NumberOf(std::string_view(answer[1].text).substr(12));
    }
    validity_ = validity;
}

std::vector<ImapValue> MailStore::Command(std::string const& command) {
    bool const isNew = connection_ == nullptr;
    try {
        if (isNew) Connect();
        return connection_->Command(command);
    } catch (MailError const& error) {
        if (error.Fault() != MailFault::Network) throw;
        connection_.reset();
        if (isNew) throw;
        WriteLog(error.what());
    }
    // Servers disconnect idle clients, and every command used here may be repeated.
    std::uint32_t const before = validity_;
    Connect();
    if (validity_ != before) throw MailError(MailFault::NoMessage, "IMAP: the folder has changed");
    return connection_->Command(command);
}

void MailStore::RequireValid(MessageNumber const& number) const {
    if (number.validity != validity_) throw MailError(MailFault::NoMessage, "IMAP: the folder has changed");
}

std::optional<MessageNumber> MailStore::FindNext(std::optional<MessageNumber> const& seed) {
    if (seed) {
        RequireValid(*seed);
    } else {
        uids_.clear();
        static_cast<void>(Command("NOOP"));  // lets the search see new messages
        for (ImapValue const& answer : Command("UID SEARCH UNDELETED")) {
            if (!answer[0].Is("SEARCH")) continue;
            for (std::size_t i = 1; i < answer.items.size(); ++i) uids_.push_back(NumberOf(answer[i].text));
        }
        std::ranges::sort(uids_);
    }
    auto const next = std::ranges::upper_bound(uids_, seed ? seed->uid : 0);
    if (next == uids_.end()) return std::nullopt;
    return MessageNumber{validity_, *next};
}

StoredMail MailStore::Fetch(MessageNumber const& number, FetchExtent extent, bool peek) {
    RequireValid(number);
    ImapValue const items = FetchItems(
        number.uid, std::string("INTERNALDATE BODYSTRUCTURE BODY") + (peek ? ".PEEK" : "") + HeadItem);
    StoredMail mail;
    mail.head = ParseHead(BodyAmong(items));
    mail.received = ReceivedDate(items.ValueOf("INTERNALDATE").text);
    if (extent == FetchExtent::Head) return mail;
    MailParts const parts = PartsOf(items.ValueOf("BODYSTRUCTURE"));
    if (parts.text) mail.text = FetchText(number.uid, *parts.text);
    if (extent == FetchExtent::Files) {
        mail.files = FetchFiles(number, parts.files);
    } else {
        for (MailPart const& part : parts.files) mail.files.push_back({part.fileName, {}});
    }
    return mail;
}

void MailStore::Delete(MessageNumber const& number) {
    RequireValid(number);
    std::string const uid = std::to_string(number.uid);
    bool isThere = false;
    for (ImapValue const& answer : Command("UID STORE " + uid + " +FLAGS (\\Deleted)"))
        isThere = isThere || (answer[1].Is("FETCH") && answer[2].ValueOf("UID").Is(uid));
    if (!isThere) throw MailError(MailFault::NoMessage, "IMAP: no message " + uid);
    try {
        static_cast<void>(Command("UID EXPUNGE " + uid));
    } catch (MailError const& error) {
        // A server without this command keeps the message marked as deleted, which hides it here. A plain
        // EXPUNGE would also remove messages that other clients have marked.
        if (error.Fault() != MailFault::Server) throw;
    }
}

ImapValue MailStore::FetchItems(std::uint32_t uid, std::string const& items) {
    std::string const number = std::to_string(uid);
    for (ImapValue& answer : Command("UID FETCH " + number + " (UID " + items + ')')) {
        if (answer[1].Is("FETCH") && answer[2].ValueOf("UID").Is(number)) return std::move(answer.items[2]);
    }
    throw MailError(MailFault::NoMessage, "IMAP: no message " + number);
}

std::string MailStore::FetchText(std::uint32_t uid, MailPart const& part) {
    return AnsiFromUtf8(
        DecodeText(BodyAmong(FetchItems(uid, Range(part, 0, LongestText))), part.encoding, part.charset));
}

std::vector<StoredFile> MailStore::FetchFiles(MessageNumber const& number,
                                              std::vector<MailPart> const& parts) {
    if (folder_ == nullptr) folder_ = std::make_unique<PrivateFolder>();
    std::filesystem::path const folder = folder_->Folder(MessageId(number));
    std::uint64_t room = account_.largestMail;
    std::vector<StoredFile> files;
    for (MailPart const& part : parts) {
        std::string const path = (folder / Utf8FromAnsi(part.fileName)).string();
        NewFile file(path);
        FetchFile(number.uid, part, file, room);
        file.Keep();
        files.push_back({part.fileName, AnsiFromUtf8(path)});
    }
    return files;
}

void MailStore::FetchFile(std::uint32_t uid, MailPart const& part, NewFile& file, std::uint64_t& room) {
    PartDecoder decoder(part.encoding);
    std::size_t count = Chunk;
    for (std::uint64_t begin = 0; count == Chunk; begin += count) {
        ImapValue const items = FetchItems(uid, Range(part, begin, Chunk));
        std::string const& bytes = BodyAmong(items);
        count = bytes.size();
        if (count > room) throw MailError(MailFault::TooLarge, "files of the mail too large");
        room -= count;
        file.Write(decoder.Step(bytes));
    }
    file.Write(decoder.Finish());
}

}  // namespace platform::detail
