#include "Platform/mail/posix/ImapResponse.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <glib.h>

namespace platform::detail {

namespace {

ImapValue const Nothing;

bool EqualsIgnoreCase(std::string_view left, std::string_view right) noexcept {
    return left.size() == right.size() && g_ascii_strncasecmp(left.data(), right.data(), left.size()) == 0;
}

/// Returns the size of the literal announced at the end of a line, "{12}"; none if there is no such
/// announcement.
std::optional<std::size_t> LiteralAtEnd(std::string_view line) noexcept {
    std::size_t const open = line.rfind('{');
    if (!line.ends_with('}') || open == std::string_view::npos) return std::nullopt;
    std::size_t count = 0;
    char const* const last = line.data() + line.size() - 1;
    auto const [end, error] = std::from_chars(line.data() + open + 1, last, count);
    if (error != std::errc() || end != last) return std::nullopt;
    return count;
}

class Parser {
  public:
    explicit Parser(std::string_view rest) : rest_(rest) {}

    std::optional<ImapValue> Response() {
        ImapValue response = MakeList();
        if (!Items(response, 0) || !rest_.empty()) return std::nullopt;
        return response;
    }

  private:
    static ImapValue MakeList() { return {ImapValue::Kind::List, {}, {}}; }
    static ImapValue MakeText(std::string_view text) {
        return {ImapValue::Kind::Text, std::string(text), {}};
    }

    /// Parses up to the end of the text or a ")" that closes an outer list.
    bool Items(ImapValue& list, int depth) {
        while (true) {
            while (rest_.starts_with(' ')) rest_.remove_prefix(1);
            if (rest_.empty() || rest_.front() == ')') return true;
            if (!Item(list, depth)) return false;
            if (depth == 0 && IsProse(list)) rest_ = Code(list);
        }
    }

    bool Item(ImapValue& list, int depth) {
        switch (rest_.front()) {
            case '(':
                return List(list, depth);
            case '"':
                return Quoted(list);
            case '{':
                return Literal(list);
            default:
                return Atom(list);
        }
    }

    bool List(ImapValue& list, int depth) {
        if (depth == DeepestImapList) return false;
        rest_.remove_prefix(1);
        ImapValue inner = MakeList();
        if (!Items(inner, depth + 1) || !rest_.starts_with(')')) return false;
        rest_.remove_prefix(1);
        list.items.push_back(std::move(inner));
        return true;
    }

    bool Quoted(ImapValue& list) {
        std::string text;
        for (std::size_t i = 1; i < rest_.size(); ++i) {
            if (rest_[i] == '"') {
                rest_.remove_prefix(i + 1);
                list.items.push_back(MakeText(text));
                return true;
            }
            if (rest_[i] == '\\' && i + 1 < rest_.size()) ++i;
            text += rest_[i];
        }
        return false;
    }

    bool Literal(ImapValue& list) {
        std::size_t const lineEnd = rest_.find("\r\n");
        if (lineEnd == std::string_view::npos) return false;
        auto const count = LiteralAtEnd(rest_.substr(0, lineEnd));
        if (!count || *count > rest_.size() - lineEnd - 2) return false;
        list.items.push_back(MakeText(rest_.substr(lineEnd + 2, *count)));
        rest_.remove_prefix(lineEnd + 2 + *count);
        return true;
    }

    bool Atom(ImapValue& list) {
        std::size_t end = 0;
        for (int brackets = 0; end < rest_.size(); ++end) {
            char const c = rest_[end];
            brackets += c == '[' ? 1 : c == ']' ? -1 : 0;
            if (c == '\r' || c == '\n') break;
            if (brackets <= 0 && (c == ' ' || c == '(' || c == ')' || c == '"')) break;
        }
        if (end == 0) return false;
        std::string_view const atom = rest_.substr(0, end);
        list.items.push_back(EqualsIgnoreCase(atom, "NIL") ? ImapValue() : MakeText(atom));
        rest_.remove_prefix(end);
        return true;
    }

    static bool IsProse(ImapValue const& list) {
        static constexpr std::array<std::string_view, 5> states = {"OK", "NO", "BAD", "BYE", "PREAUTH"};
        return list.items.size() == 2 &&
               std::ranges::any_of(states, [&](std::string_view state) { return list.items[1].Is(state); });
    }

    /// Adds the code before the prose; nothing after it is parsed.
    std::string_view Code(ImapValue& list) const {
        std::size_t const begin = rest_.find_first_not_of(' ');
        if (begin == std::string_view::npos || rest_[begin] != '[') return {};
        std::size_t const end = rest_.find(']', begin);
        if (end != std::string_view::npos)
            list.items.push_back(MakeText(rest_.substr(begin + 1, end - begin - 1)));
        return {};
    }

    std::string_view rest_;
};

}  // namespace

ImapValue const& ImapValue::operator[](std::size_t index) const noexcept {
    return index < items.size() ? items[index] : Nothing;
}

ImapValue const& ImapValue::ValueOf(std::string_view name) const noexcept {
    for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
        if (items[i].Is(name)) return items[i + 1];
    }
    return Nothing;
}

bool ImapValue::Is(std::string_view word) const noexcept {
    return kind == Kind::Text && EqualsIgnoreCase(text, word);
}

std::optional<ImapValue> ParseImap(std::string_view response) { return Parser(response).Response(); }

std::optional<std::string> ImapCutter::Next() {
    while (!isOverfull_) {
        std::size_t const lineEnd = buffer_.find("\r\n", scanned_);
        if (lineEnd == std::string::npos) return std::nullopt;
        auto const literal = LiteralAtEnd(std::string_view(buffer_).substr(scanned_, lineEnd - scanned_));
        if (!literal) {
            std::string response = buffer_.substr(0, lineEnd);
            buffer_.erase(0, lineEnd + 2);
            scanned_ = 0;
            return response;
        }
        isOverfull_ = *literal > LargestResponse || lineEnd > LargestResponse;
        if (isOverfull_ || buffer_.size() - lineEnd - 2 < *literal) return std::nullopt;
        scanned_ = lineEnd + 2 + *literal;
    }
    return std::nullopt;
}

}  // namespace platform::detail
