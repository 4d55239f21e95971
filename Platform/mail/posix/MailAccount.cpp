#include "Platform/mail/posix/MailAccount.h"

#include "Platform/UserFolders.h"
#include "Platform/mail/posix/Glib.h"
#include "Platform/mail/posix/MailError.h"
#include "Platform/posix/Descriptor.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace platform::detail {

namespace {

constexpr std::size_t LargestSettingsFile = 64U << 10;

[[noreturn]] void Refuse(std::string const& words) { throw MailError(MailFault::Configuration, words); }

/// The file's keys. Each is taken once, so that the remaining ones are known to be mistakes.
class Settings {
  public:
    Settings(std::string const& text, std::string const& fileName)
        : file_(g_key_file_new(), &g_key_file_free), fileName_(fileName) {
        GError* error = nullptr;
        if (g_key_file_load_from_data(file_.get(), text.data(), text.size(), G_KEY_FILE_NONE, &error) == TRUE)
            return;
        std::string const words = error->message;
        g_error_free(error);
        Refuse(fileName + ": " + words);
    }

    /// Returns an empty text if there is no such key.
    [[nodiscard]] std::string Take(char const* group, char const* key) {
        std::string value = TakeText(g_key_file_get_string(file_.get(), group, key, nullptr));
        g_key_file_remove_key(file_.get(), group, key, nullptr);
        if (std::ranges::any_of(value, [](unsigned char c) { return c < ' ' || c == 0x7F; }))
            Fail(group, key, "has a control character");
        return value;
    }
    [[nodiscard]] std::string Need(char const* group, char const* key) {
        std::string value = Take(group, key);
        if (value.empty()) Fail(group, key, "is missing");
        return value;
    }
    [[nodiscard]] int Number(char const* group, char const* key, int standard, int least, int most) {
        std::string const text = Take(group, key);
        int number = standard;
        auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        bool const isNumber = text.empty() || (error == std::errc() && end == text.data() + text.size());
        if (!isNumber || number < least || number > most)
            Fail(group, key, "is not a number from " + std::to_string(least) + " to " + std::to_string(most));
        return number;
    }

    void RefuseUnknownKeys() {
        for (std::string const& group : Taken(g_key_file_get_groups(file_.get(), nullptr))) {
            auto const keys = Taken(g_key_file_get_keys(file_.get(), group.c_str(), nullptr, nullptr));
            if (!keys.empty()) Fail(group, keys.front(), "is unknown");
        }
    }

    [[noreturn]] void Fail(std::string const& group, std::string const& key, std::string const& what) const {
        Refuse(fileName_ + ": \"" + key + "\" in [" + group + "] " + what);
    }

  private:
    static std::vector<std::string> Taken(char** texts) {
        std::vector<std::string> taken;
        for (char** text = texts; text != nullptr && *text != nullptr; ++text) taken.emplace_back(*text);
        g_strfreev(texts);
        return taken;
    }

    std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file_;
    std::string fileName_;
};

MailServer TakeServer(Settings& settings, char const* group, int tlsPort, int startTlsPort) {
    MailServer server;
    server.host = settings.Need(group, "server");
    if (server.host.find_first_of("/@#?\\ ") != std::string::npos)
        settings.Fail(group, "server", "is not a host name");
    std::string const security = settings.Take(group, "security");
    if (!security.empty() && security != "tls" && security != "starttls")
        settings.Fail(group, "security", "is unknown (choose from tls, starttls)");
    server.startTls = security == "starttls";
    server.port = settings.Number(group, "port", server.startTls ? startTlsPort : tlsPort, 1, 65535);
    return server;
}

/// Returns the content of a file that only the user can read and write.
std::string ReadPrivate(std::string const& path) {
    Descriptor const file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file || ::fstat(file.Number(), &status) != 0) Refuse(path + ": cannot be read");
    if (!S_ISREG(status.st_mode)) Refuse(path + ": not a regular file");
    if (status.st_uid != ::geteuid()) Refuse(path + ": belongs to another user");
    if ((status.st_mode & 077U) != 0) Refuse(path + ": accessible to other users (set its mode to 0600)");
    std::string text(LargestSettingsFile, '\0');
    auto const count = Retry([&] { return ::read(file.Number(), text.data(), text.size()); });
    if (count < 0) Refuse(path + ": cannot be read");
    text.resize(static_cast<std::size_t>(count));
    return text;
}

std::string FirstLine(std::string const& text) { return text.substr(0, text.find_first_of("\r\n")); }

MailAccount Parse(std::string const& text, std::string const& fileName, std::string& tokenFile) {
    Settings settings(text, fileName);
    MailAccount account;
    account.name = settings.Take("account", "name");
    account.address = settings.Need("account", "address");
    account.user = settings.Take("account", "user");
    if (account.user.empty()) account.user = account.address;
    account.password = settings.Take("account", "password");
    tokenFile = settings.Take("account", "token_file");
    if (account.password.empty() == tokenFile.empty())
        settings.Fail("account", "password", "or \"token_file\" is required, but not both");
    account.imap = TakeServer(settings, "imap", 993, 143);
    account.folder = settings.Take("imap", "folder");
    if (account.folder.empty()) account.folder = "INBOX";
    account.smtp = TakeServer(settings, "smtp", 465, 587);
    account.caFile = settings.Take("tls", "ca_file");
    account.timeoutSeconds = settings.Number("limits", "timeout", 30, 1, 600);
    account.largestMail = std::uint64_t{1024 * 1024} *
                          static_cast<unsigned>(settings.Number("limits", "largest_mail_mb", 50, 1, 2000));
    settings.RefuseUnknownKeys();
    return account;
}

}  // namespace

MailAccount ParseAccount(std::string const& text, std::string const& fileName) {
    std::string tokenFile;
    return Parse(text, fileName, tokenFile);
}

std::string AccountFile() {
    char const* const named = std::getenv("KVMAIL_ACCOUNT");
    return named != nullptr ? named : (SettingsFolder() / "kvutils" / "mail.ini").string();
}

MailAccount LoadAccount(std::string const& fileName) {
    std::string tokenFile;
    MailAccount account = Parse(ReadPrivate(fileName), fileName, tokenFile);
    if (!tokenFile.empty()) account.token = FirstLine(ReadPrivate(tokenFile));
    if (account.password.empty() && account.token.empty()) Refuse(tokenFile + ": contains no token");
    return account;
}

}  // namespace platform::detail
