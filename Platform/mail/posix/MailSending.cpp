#include "Platform/mail/posix/MailSending.h"

#include "Platform/mail/posix/Curl.h"
#include "Platform/mail/posix/Gmime.h"
#include "Platform/mail/posix/MailError.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace platform::detail {

namespace {

using CurlList = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

std::string NameOf(std::string const& path) { return path.substr(path.find_last_of('/') + 1); }

std::vector<OutgoingFile> FilesFrom(std::string_view filePaths, std::string_view fileNames,
                                    std::string_view delimiter) {
    std::vector<std::string> const paths = SplitList(filePaths, delimiter);
    std::vector<std::string> const names = SplitList(fileNames, delimiter);
    std::vector<OutgoingFile> files;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        std::string path = Utf8FromAnsi(paths[i]);
        std::ranges::replace(path, '\\', '/');
        std::string const name = names.size() == paths.size() ? Utf8FromAnsi(names[i]) : NameOf(path);
        files.push_back({path, name});
    }
    return files;
}

/// Returns the content of a file, and subtracts its size from `room`, the remaining size of the mail.
std::string ReadFile(std::string const& path, std::uint64_t& room) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw MailError(MailFault::FileMissing, path + ": no such file");
    std::uint64_t const size = std::filesystem::file_size(path, error);
    if (!error && size > room) throw MailError(MailFault::TooLarge, path + ": file too large for a mail");
    std::ifstream file(path, std::ios::binary);
    std::string content(size, '\0');
    if (error || !file.read(content.data(), static_cast<std::streamsize>(size)))
        throw MailError(MailFault::FileUnreadable, path + ": cannot be read");
    room -= size;
    return content;
}

std::string WithoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

GOwned<GMimeTextPart> TextPart(std::string const& text) {
    auto part = OwnObject(g_mime_text_part_new_with_subtype("plain"));
    g_mime_text_part_set_charset(part.get(), "utf-8");
    g_mime_text_part_set_text(part.get(), WithoutReturns(text).c_str());
    return part;
}

GOwned<GMimePart> FilePart(OutgoingFile const& file, std::uint64_t& room) {
    std::string const content = ReadFile(file.path, room);
    auto part = OwnObject(g_mime_part_new_with_type("application", "octet-stream"));
    auto const stream = OwnObject(g_mime_stream_mem_new_with_buffer(content.data(), content.size()));
    auto const data =
        OwnObject(g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_BINARY));
    g_mime_part_set_content(part.get(), data.get());
    g_mime_part_set_filename(part.get(), file.name.c_str());
    g_mime_part_set_content_encoding(part.get(), GMIME_CONTENT_ENCODING_BASE64);
    return part;
}

void SetAddresses(GMimeMessage* message, MailAccount const& account, OutgoingMail const& mail) {
    g_mime_message_add_mailbox(message, GMIME_ADDRESS_TYPE_FROM, account.name.c_str(),
                               account.address.c_str());
    for (Recipient const& recipient : mail.recipients) {
        if (recipient.kind == RecipientKind::Bcc) continue;
        auto const type = recipient.kind == RecipientKind::Cc ? GMIME_ADDRESS_TYPE_CC : GMIME_ADDRESS_TYPE_TO;
        g_mime_message_add_mailbox(message, type, recipient.name.c_str(), recipient.address.c_str());
    }
}

void SetHead(GMimeMessage* message, MailAccount const& account, OutgoingMail const& mail) {
    SetAddresses(message, account, mail);
    g_mime_message_set_subject(message, mail.subject.c_str(), "utf-8");
    std::unique_ptr<GDateTime, decltype(&g_date_time_unref)> const now(g_date_time_new_now_local(),
                                                                       &g_date_time_unref);
    g_mime_message_set_date(message, now.get());
    std::string const host = account.address.substr(account.address.rfind('@') + 1);
    g_mime_message_set_message_id(message, OwnText(g_mime_utils_generate_message_id(host.c_str())).get());
}

std::string Printed(GMimeMessage* message) {
    g_mime_object_encode(GMIME_OBJECT(message), GMIME_ENCODING_CONSTRAINT_7BIT);
    std::unique_ptr<GMimeFormatOptions, decltype(&g_mime_format_options_free)> const format(
        g_mime_format_options_new(), &g_mime_format_options_free);
    g_mime_format_options_set_newline_format(format.get(), GMIME_NEWLINE_FORMAT_DOS);
    return TakeText(g_mime_object_to_string(GMIME_OBJECT(message), format.get()));
}

CurlList ReceiversOf(OutgoingMail const& mail) {
    CurlList list(nullptr, &curl_slist_free_all);
    for (Recipient const& recipient : mail.recipients) {
        curl_slist* const longer = curl_slist_append(list.get(), ('<' + recipient.address + '>').c_str());
        if (longer == nullptr) throw std::bad_alloc();
        static_cast<void>(list.release());
        list.reset(longer);
    }
    return list;
}

std::size_t Upload(char* target, std::size_t size, std::size_t count, void* source) {
    auto& rest = *static_cast<std::string_view*>(source);
    std::size_t const taken = rest.copy(target, size * count);
    rest.remove_prefix(taken);
    return taken;
}

}  // namespace

OutgoingMail MailFrom(std::string_view recipients, std::string_view subject, std::string_view text,
                      std::string_view filePaths, std::string_view fileNames, std::string_view delimiter) {
    OutgoingMail mail;
    for (std::string const& entry : SplitList(recipients, delimiter)) {
        auto recipient = ParseRecipient(Utf8FromAnsi(entry));
        if (!recipient) throw MailError(MailFault::Recipient, "not a mail address: " + entry);
        mail.recipients.push_back(std::move(*recipient));
    }
    if (mail.recipients.empty()) throw MailError(MailFault::Recipient, "no recipients");
    mail.subject = Utf8FromAnsi(subject);
    std::ranges::replace_if(
        mail.subject, [](unsigned char c) { return c < ' '; }, ' ');
    mail.text = Utf8FromAnsi(text);
    mail.files = FilesFrom(filePaths, fileNames, delimiter);
    return mail;
}

std::string Compose(MailAccount const& account, OutgoingMail const& mail) {
    StartGmime();
    auto const message = OwnObject(g_mime_message_new(TRUE));
    SetHead(message.get(), account, mail);
    auto const text = TextPart(mail.text);
    auto const whole = OwnObject(g_mime_multipart_new_with_subtype("mixed"));
    g_mime_multipart_add(whole.get(), GMIME_OBJECT(text.get()));
    std::uint64_t room = account.largestMail;
    for (OutgoingFile const& file : mail.files)
        g_mime_multipart_add(whole.get(), GMIME_OBJECT(FilePart(file, room).get()));
    g_mime_message_set_mime_part(message.get(),
                                 mail.files.empty() ? GMIME_OBJECT(text.get()) : GMIME_OBJECT(whole.get()));
    std::string printed = Printed(message.get());
    if (printed.size() > account.largestMail) throw MailError(MailFault::TooLarge, "mail too large");
    return printed;
}

void Send(MailAccount const& account, OutgoingMail const& mail) {
    std::string const message = Compose(account, mail);
    std::string_view rest = message;
    CurlList const receivers = ReceiversOf(mail);
    CurlHandle curl;
    curl.SetServer(account, account.smtp, account.smtp.startTls ? "smtp" : "smtps");
    curl.Set(CURLOPT_MAIL_FROM, ('<' + account.address + '>').c_str());
    curl.Set(CURLOPT_MAIL_RCPT, receivers.get());
    curl.Set(CURLOPT_UPLOAD, 1L);
    curl.Set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(message.size()));
    curl.Set(CURLOPT_READFUNCTION, &Upload);
    curl.Set(CURLOPT_READDATA, &rest);
    curl.Perform("SMTP");
}

}  // namespace platform::detail
