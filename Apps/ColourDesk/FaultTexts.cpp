#include "Apps/ColourDesk/FaultTexts.h"

#include "Apps/files/SuiteText.h"
#include "KVUtils/Source/frame/TextSegment.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <vector>

namespace colourdesk {

namespace {

constexpr std::string_view Arrow = " -> ";

struct Entry {
    std::string english;
    std::string translation;
};

std::vector<Entry> Entries() {
    std::vector<Entry> entries;
    kv::TextSegment const texts("ColourDeskFaults");
    for (unsigned long i = 0; !texts[i].IsEmpty(); ++i) {
        std::string const text = files::FromSuite(texts[i].View());
        std::size_t const arrow = text.find(Arrow);
        if (arrow != std::string::npos)
            entries.push_back({text.substr(0, arrow), text.substr(arrow + Arrow.size())});
    }
    return entries;
}

/// Whether an argument begins at `at`: "%" and a digit.
bool IsArgument(std::string_view pattern, std::size_t at) {
    return pattern[at] == '%' && at + 1 < pattern.size() && pattern[at + 1] >= '1' && pattern[at + 1] <= '9';
}

/// The texts that the arguments of the pattern, in ascending order, match; empty if it does not match.
std::optional<std::vector<std::string_view>> Match(std::string_view pattern, std::string_view text) {
    std::vector<std::string_view> arguments;
    std::size_t end = 0;  // of what is matched
    for (std::size_t at = 0; at < pattern.size();) {
        bool const isArgument = IsArgument(pattern, at);
        if (isArgument) at += 2;
        std::size_t next = at;
        while (next < pattern.size() && !IsArgument(pattern, next)) ++next;
        std::string_view const literal = pattern.substr(at, next - at);
        bool const isLast = next == pattern.size();
        std::size_t const found = !isArgument ? end
                                  : isLast    ? text.size() - std::min(literal.size(), text.size())
                                              : text.find(literal, end + 1);
        if (found == std::string_view::npos || found < end || text.substr(found, literal.size()) != literal)
            return std::nullopt;
        if (isArgument) arguments.push_back(text.substr(end, found - end));
        if (isArgument && arguments.back().empty()) return std::nullopt;
        end = found + literal.size();
        at = next;
    }
    return end == text.size() ? std::optional(arguments) : std::nullopt;
}

/// Whether the text is a single piece in quotes, which stays as it is.
bool IsQuoted(std::string_view text) {
    return text.size() > 1 && text.front() == '"' && text.find('"', 1) == text.size() - 1;
}

std::string Translated(std::string_view text, std::vector<Entry> const& entries) {
    if (IsQuoted(text)) return std::string(text);
    for (Entry const& entry : entries) {
        auto const arguments = Match(entry.english, text);
        if (!arguments) continue;
        std::string translation;
        for (std::size_t i = 0; i < entry.translation.size(); ++i) {
            std::size_t const argument = IsArgument(entry.translation, i)
                                             ? static_cast<std::size_t>(entry.translation[i + 1] - '1')
                                             : 9;
            if (argument < arguments->size()) {
                translation += Translated((*arguments)[argument], entries);
                ++i;
            } else {
                translation += entry.translation[i];
            }
        }
        return translation;
    }
    return std::string(text);
}

}  // namespace

sv::String FaultText(std::string_view message) { return files::ToSuite(Translated(message, Entries())); }

sv::String FaultText(std::string_view file, std::string_view message) {
    std::size_t end = message.starts_with(file) ? file.size() : 0;
    if (end > 0 && end < message.size() && message[end] == ':') ++end;
    while (end < message.size() && std::isdigit(static_cast<unsigned char>(message[end])) != 0) ++end;
    if (end > 0 && end < message.size() && message[end] == ':') ++end;
    if (end > 0 && end < message.size() && message[end] == ' ') ++end;
    return sv::String(files::ToSuite(message.substr(0, end))) + FaultText(message.substr(end));
}

}  // namespace colourdesk
