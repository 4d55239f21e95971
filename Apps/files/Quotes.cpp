#include "Apps/files/Quotes.h"

#include "Apps/files/Text.h"

namespace files {

namespace {

constexpr auto None = std::string_view::npos;
constexpr std::string_view BlankCharacters = " \t\v\f";

bool IsBlank(char c) noexcept { return BlankCharacters.find(c) != None; }

/// Returns the position after the closing quote of the text that opens at `at`, or None.
std::size_t QuotedEnd(std::string_view text, std::size_t at, char separator) noexcept {
    // `""D50""`: doubled quotes left over from a line that was quoted as a whole.
    bool const isPair = text.substr(at).starts_with("\"\"") && at + 2 < text.size() && text[at + 2] != '"' &&
                        text[at + 2] != separator && !IsBlank(text[at + 2]);
    if (isPair) {
        auto const end = text.find("\"\"", at + 2);
        return end == None ? None : end + 2;
    }
    for (auto quote = text.find('"', at + 1); quote != None; quote = text.find('"', quote + 2)) {
        if (quote + 1 == text.size() || text[quote + 1] != '"') return quote + 1;
    }
    return None;
}

std::string WithSingleQuotes(std::string_view text) {
    std::string single;
    for (std::size_t at = 0; at < text.size(); ++at) {
        single += text[at];
        if (text.substr(at).starts_with("\"\"")) ++at;
    }
    return single;
}

}  // namespace

bool SplitAt(char separator, std::string_view line, Cells& cells) {
    cells.clear();
    bool const atBlanks = separator == Blanks;
    if (atBlanks) line = Trimmed(line);
    if (atBlanks && line.empty()) return true;
    for (std::size_t begin = 0;;) {
        std::size_t scanFrom = begin;
        while (scanFrom < line.size() && line[scanFrom] != separator && IsBlank(line[scanFrom])) ++scanFrom;
        if (scanFrom < line.size() && line[scanFrom] == '"') {
            scanFrom = QuotedEnd(line, scanFrom, separator);
            if (scanFrom == None) return false;
        }
        auto const end =
            atBlanks ? line.find_first_of(BlankCharacters, scanFrom) : line.find(separator, scanFrom);
        cells.push_back(Trimmed(line.substr(begin, end == None ? None : end - begin)));
        if (end == None) return true;
        begin = atBlanks ? line.find_first_not_of(BlankCharacters, end) : end + 1;
    }
}

std::string Unquoted(std::string_view cell) {
    // The exporter, a spreadsheet that quotes cells and one that quotes lines add one layer each.
    constexpr int MaxLayers = 3;
    std::string text(Trimmed(cell));
    for (int layer = 0; layer < MaxLayers; ++layer) {
        if (text.size() < 2 || text.front() != '"' || text.back() != '"') break;
        text = WithSingleQuotes(std::string_view(text).substr(1, text.size() - 2));
    }
    return std::string(Trimmed(text));
}

std::string_view WithoutQuotes(std::string_view cell) noexcept {
    auto const first = cell.find_first_not_of('"');
    if (first == None) return {};
    return Trimmed(cell.substr(first, cell.find_last_not_of('"') - first + 1));
}

bool UnwrapLine(std::string_view& line, std::string& store) {
    std::string_view const whole = Trimmed(line);
    if (whole.size() < 2 || whole.front() != '"' || QuotedEnd(whole, 0, ' ') != whole.size()) return false;
    std::string_view const inner = whole.substr(1, whole.size() - 2);
    // A spreadsheet quotes a line only if it contains one of these; otherwise this is a quoted word.
    bool const isLine = inner.find("\"\"") != None || inner.find_first_of("\t,;") != None;
    if (!isLine) return false;
    store = WithSingleQuotes(inner);
    line = store;
    return true;
}

}  // namespace files
