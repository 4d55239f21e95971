#include "KVUtils/Source/frame/detail/TextFile.h"

#include <optional>
#include <string>

namespace kv::detail {

namespace {

constexpr std::string_view LineEnds{"\n\r\0", 3};

bool IsLineEnd(char character) noexcept { return LineEnds.find(character) != std::string_view::npos; }

/// Iterates over the characters of a file outside its comments.
class TextCharacters {
  public:
    explicit TextCharacters(std::string_view file) noexcept : rest_(file) {}

    /// Returns nullopt at the end of the file.
    std::optional<char> Next() noexcept {
        while (!rest_.empty()) {
            char const character = rest_.front();
            rest_.remove_prefix(1);
            if (previous_ == '/' && (character == '/' || character == '*')) {
                SkipComment(character);
                previous_ = ' ';
                continue;
            }
            previous_ = character;
            return character;
        }
        return std::nullopt;
    }

  private:
    void SkipComment(char kind) noexcept {
        bool const isLine = kind == '/';
        std::size_t const end = isLine ? rest_.find_first_of(LineEnds) : rest_.find("*/");
        std::size_t const length = isLine ? 1 : 2;
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + length);
    }

    std::string_view rest_;
    char previous_ = ' ';
};

class FirstPass {
  public:
    FirstPass(TextGroups& groups, TextFaultHandler const& report) : groups_(groups), report_(report) {}

    bool Run(std::string_view file) {
        TextCharacters characters(file);
        while (auto const character = characters.Next()) {
            Take(*character);
            if (isStopped_) return false;
        }
        // Intentional: a "{" after the last character stores the end of the last group.
        OpenGroup();
        return isFaultless_;
    }

  private:
    enum class State { Outside, InEntry, InName };

    void Take(char character) {
        if (state_ == State::InEntry && IsLineEnd(character)) {
            EndEntry();
        } else if (character == '[') {
            state_ = State::InEntry;
        } else if (character == ']' && state_ == State::InEntry) {
            isClosed_ = true;
        } else if (character == '{') {
            OpenGroup();
        } else if (character == '}') {
            if (state_ == State::InName) CloseGroup();
        } else if (state_ == State::InName) {
            AddToName(character);
        }
    }

    void EndEntry() {
        if (!isClosed_) {
            ReportMissing(']');
            return;
        }
        ++groups_.entryCount;
        isClosed_ = false;
        state_ = State::Outside;
    }

    void OpenGroup() {
        if (state_ == State::InEntry) return;
        state_ = State::InName;
        name_.clear();
        std::size_t const group = groups_.names.size();
        if (group >= TextGroups::MaxCount) {
            isFaultless_ = false;
            report_(TextFault::TooManyGroups, '\0', name_);
            return;
        }
        groups_.starts.resize(group + 1);
        groups_.starts[group] = groups_.entryCount;
    }

    void CloseGroup() {
        if (groups_.names.size() < TextGroups::MaxCount) groups_.names.emplace_back(name_);
        state_ = State::Outside;
    }

    void AddToName(char character) {
        if (name_.size() < TextGroups::MaxNameLength) {
            name_ += character;
            return;
        }
        ReportMissing('}');
        CloseGroup();
    }

    void ReportMissing(char character) {
        isFaultless_ = false;
        isStopped_ = !report_(TextFault::MissingCharacter, character, name_);
    }

    TextGroups& groups_;
    TextFaultHandler const& report_;
    State state_ = State::Outside;
    std::string name_;  // of the group opened last; empty before the first
    bool isClosed_ = false;
    bool isFaultless_ = true;
    bool isStopped_ = false;
};

}  // namespace

bool CountTexts(std::string_view file, TextGroups& groups, TextFaultHandler const& report) {
    return FirstPass(groups, report).Run(file);
}

void ReadTexts(std::string_view file, std::function<void(std::string_view text)> const& store) {
    std::string text;
    std::size_t length = 0;  // of the text before the last "]" so far
    bool isInEntry = false;
    TextCharacters characters(file);
    while (auto const character = characters.Next()) {
        if (*character == '[' && text.empty()) {
            isInEntry = true;
        } else if (isInEntry && IsLineEnd(*character)) {
            store(std::string_view(text).substr(0, length));
            text.clear();
            length = 0;
            isInEntry = false;
        } else if (isInEntry) {
            if (*character == ']') length = text.size();
            text += *character;
        }
    }
    if (length != 0) store(std::string_view(text).substr(0, length));
}

}  // namespace kv::detail
