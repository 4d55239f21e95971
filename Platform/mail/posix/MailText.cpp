#include "Platform/mail/posix/MailText.h"

#include "Platform/mail/posix/Gmime.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace platform::detail {

namespace {

constexpr char AnsiPage[] = "WINDOWS-1252";
constexpr std::string_view Blanks = " \t\r\n";

std::string_view Trim(std::string_view text) {
    std::size_t const begin = text.find_first_not_of(Blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(Blanks) - begin + 1);
}

bool IsControl(char character) { return static_cast<unsigned char>(character) < 0x20 || character == 0x7F; }

/// Removes a prefix, in any case.
bool TakePrefix(std::string_view& text, std::string_view prefix) {
    if (text.size() < prefix.size() || g_ascii_strncasecmp(text.data(), prefix.data(), prefix.size()) != 0)
        return false;
    text = Trim(text.substr(prefix.size()));
    return true;
}

bool IsAddress(std::string_view address) {
    std::size_t const at = address.rfind('@');
    return at != std::string_view::npos && at > 0 && at + 1 < address.size() &&
           std::ranges::all_of(address, [](char c) { return c > ' ' && c < 0x7F && c != '<' && c != '>'; });
}

std::array<std::string, 128> MakeUpperHalf() {
    std::array<std::string, 128> half;
    for (std::size_t i = 0; i < half.size(); ++i) {
        char const byte = static_cast<char>(0x80 + i);
        half[i] = TakeText(g_convert(&byte, 1, "UTF-8", AnsiPage, nullptr, nullptr, nullptr));
        if (half[i].empty()) half[i] = {'\xC2', byte};
    }
    return half;
}

/// Returns the position of the extension including its dot; the length of the name if there is none worth
/// keeping.
std::size_t ExtensionBegin(std::string_view name) {
    std::size_t const dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 || name.size() - dot > 16 ? name.size() : dot;
}

template <class Number>
bool ParseNumber(std::string_view text, Number& number) {
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

std::string Utf8FromAnsi(std::string_view text) {
    static std::array<std::string, 128> const upperHalf = MakeUpperHalf();
    std::string utf8;
    for (char const character : text) {
        auto const byte = static_cast<unsigned char>(character);
        byte < 0x80 ? utf8 += character : utf8 += upperHalf[byte - 0x80];
    }
    return utf8;
}

std::string AnsiFromUtf8(std::string_view text) {
    GText const valid = OwnText(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
    gsize size = 0;
    GText const ansi =
        OwnText(g_convert_with_fallback(valid.get(), -1, AnsiPage, "UTF-8", "?", nullptr, &size, nullptr));
    return ansi == nullptr ? std::string(text.size(), '?') : std::string(ansi.get(), size);
}

std::vector<std::string> SplitList(std::string_view list, std::string_view delimiter) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        std::size_t const end = delimiter.empty() ? std::string_view::npos : list.find(delimiter);
        if (std::string_view const part = Trim(list.substr(0, end)); !part.empty()) parts.emplace_back(part);
        list = end == std::string_view::npos ? std::string_view() : list.substr(end + delimiter.size());
    }
    return parts;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (char const character : text) {
        if (character == '"' || character == '\\') quoted += '\\';
        quoted += character;
    }
    return quoted + '"';
}

std::optional<Recipient> ParseRecipient(std::string_view text) {
    Recipient recipient;
    text = Trim(text);
    if (TakePrefix(text, "cc:")) {
        recipient.kind = RecipientKind::Cc;
    } else if (TakePrefix(text, "bcc:")) {
        recipient.kind = RecipientKind::Bcc;
    } else {
        TakePrefix(text, "to:");
    }
    TakePrefix(text, "smtp:");
    if (std::ranges::any_of(text, IsControl)) return std::nullopt;
    std::size_t const open = text.rfind('<');
    if (open != std::string_view::npos && text.ends_with('>')) {
        recipient.name = Trim(text.substr(0, open));
        std::erase(recipient.name, '"');
        text = text.substr(open + 1, text.size() - open - 2);
    }
    if (!IsAddress(text)) return std::nullopt;
    recipient.address = text;
    return recipient;
}

std::string SafeFileName(std::string_view name) {
    name = name.substr(0, name.find('\0'));
    name = Trim(name.substr(name.find_last_of("/\\") + 1));
    std::string safe;
    for (char const character : name)
        safe +=
            IsControl(character) || std::string_view("<>:\"|?*$`").find(character) != std::string_view::npos
                ? '_'
                : character;
    while (!safe.empty() && (safe.back() == '.' || safe.back() == ' ')) safe.pop_back();
    if (safe.empty()) return "attachment";
    if (safe.front() == '.' || safe.front() == '-' || safe.front() == '~') safe.front() = '_';
    if (safe.size() > LongestFileName) {
        std::string const extension = safe.substr(ExtensionBegin(safe));
        safe = safe.substr(0, LongestFileName - extension.size()) + extension;
    }
    return safe;
}

std::string UniqueFileName(std::string const& name, std::vector<std::string> const& taken) {
    auto const isTaken = [&taken](std::string const& candidate) {
        return std::ranges::any_of(taken, [&candidate](std::string const& other) {
            return g_ascii_strcasecmp(other.c_str(), candidate.c_str()) == 0;
        });
    };
    std::string candidate = name;
    for (int number = 2; isTaken(candidate); ++number)
        candidate = std::string(name).insert(ExtensionBegin(name), " (" + std::to_string(number) + ")");
    return candidate;
}

std::string MessageId(MessageNumber const& number) {
    return std::to_string(number.validity) + '.' + std::to_string(number.uid);
}

std::optional<MessageNumber> ParseMessageId(std::string_view id) {
    MessageNumber number;
    std::size_t const dot = id.find('.');
    if (dot == std::string_view::npos || !ParseNumber(id.substr(0, dot), number.validity) ||
        !ParseNumber(id.substr(dot + 1), number.uid))
        return std::nullopt;
    return number;
}

std::string ReceivedDate(std::string const& internalDate) {
    std::string words = internalDate;
    std::replace(words.begin(), words.begin() + std::min<std::ptrdiff_t>(std::ssize(words), 12), '-', ' ');
    GDateTime* const date = g_mime_utils_header_decode_date(words.c_str());
    if (date == nullptr) return {};
    std::unique_ptr<GDateTime, decltype(&g_date_time_unref)> const there(date, &g_date_time_unref);
    std::unique_ptr<GDateTime, decltype(&g_date_time_unref)> const here(g_date_time_to_local(date),
                                                                        &g_date_time_unref);
    return here == nullptr ? "" : TakeText(g_date_time_format(here.get(), "%Y/%m/%d %H:%M"));
}

}  // namespace platform::detail
