#include "Apps/files/StatedConditions.h"

#include "Apps/files/Numbers.h"
#include "Apps/files/Text.h"

#include <algorithm>

namespace files {

namespace {

constexpr std::string_view Digits = "0123456789";

/// Removes and returns the first run of letters and digits.
std::string_view NextWord(std::string_view& text) {
    auto const isInWord = [](char c) { return !Key({&c, 1}).empty(); };
    auto const begin = std::ranges::find_if(text, isInWord);
    auto const end = std::find_if_not(begin, text.end(), isInWord);
    std::string_view const word(begin, end);
    text = {end, text.end()};
    return word;
}

/// Returns the code of a mode "M0" to "M3".
std::optional<unsigned long> ToMode(std::string_view word) {
    std::string const mode = Key(word);
    if (mode.size() != 2 || mode[0] != 'M' || mode[1] < '0' || mode[1] > '3') return std::nullopt;
    return static_cast<unsigned long>(mode[1] - '0');
}

}  // namespace

bool HasSpectrum(kv::IllumClass const& illuminant) noexcept {
    kv::IllumType const type = illuminant;
    // A slot read by its own name has no number yet; as a number, 65 is the tabulated D65.
    if (kv::IsNumberedDaylight(type)) return short{illuminant} != kv::IllumClass::UnusedDayNumber;
    return type != kv::IllumType::NotSet && type != kv::IllumType::Custom &&
           (type < kv::IllumType::Il1 || type > kv::IllumType::Il4);
}

std::optional<kv::IllumClass> ToIlluminant(std::string_view word) {
    auto const illuminant = kv::IllumClass::Parse(word);
    return illuminant && HasSpectrum(*illuminant) ? illuminant : std::nullopt;
}

std::optional<kv::ObserverClass> ToObserver(std::string_view text) {
    for (std::string_view word = NextWord(text); !word.empty(); word = NextWord(text)) {
        // "2deg" is one word.
        if (auto const observer = kv::ObserverClass::Parse(word.substr(0, word.find_first_not_of(Digits)))) {
            return observer;
        }
    }
    return std::nullopt;
}

void ConditionReader::Take(std::string_view keyword, std::string_view value) {
    std::string const key = Key(keyword);
    if (key == "WEIGHTINGFUNCTION") {
        TakeWeighting(value);
    } else if (key == "MEASUREMENTSOURCE") {
        TakeSource(value);
    } else if (key == "ILLUMINANT") {
        Add(Quantity::Illuminant, value, Rank::Keyword);
    } else if (key == "OBSERVER" || key == "OBSERVERANGLE") {
        Add(Quantity::Observer, value, Rank::Keyword);
    } else if (key == "MEASUREMENTCONDITION" || key == "MEASUREMENTCONDITIONS" || key == "MEASUREMENTMODE") {
        TakeMode(value, Rank::Keyword);
    } else if (key == "FILTER") {
        filter_ = ToUtf8(Trimmed(value));
    }
}

void ConditionReader::TakeWeighting(std::string_view value) {
    // One line may state both.
    for (auto word = NextWord(value); !word.empty(); word = NextWord(value)) {
        std::string const what = Key(word);
        if (what == "ILLUMINANT") Add(Quantity::Illuminant, NextWord(value), Rank::Weighting);
        if (what == "OBSERVER") Add(Quantity::Observer, value, Rank::Weighting);
    }
}

void ConditionReader::TakeSource(std::string_view value) {
    // A computation has an observer and an illuminant; an illumination alone is the lamp.
    std::string illumination;
    bool hasObserver = false;
    std::string pieces(value);
    std::ranges::replace(pieces, '\t', ' ');
    for (std::string_view const piece : Split(pieces, ' ')) {
        auto const equals = piece.find('=');
        if (equals == std::string_view::npos) {
            TakeMode(piece, Rank::Source);
            continue;
        }
        std::string const key = Key(piece.substr(0, equals));
        std::string_view const stated = piece.substr(equals + 1);
        if (key == "ILLUMINATION" || key == "ILLUMINANT") illumination = stated;
        if (key == "OBSERVERANGLE" || key == "OBSERVER") {
            hasObserver = true;
            Add(Quantity::Observer, stated, Rank::Source);
        }
        if (key == "MEASUREMENTCONDITION") TakeMode(stated, Rank::Source);
        if (key == "WHITEBASE") whiteBase_ = ToUtf8(stated);
        if (key == "FILTER" && filter_.empty()) filter_ = ToUtf8(stated);
    }
    if (hasObserver && !illumination.empty()) Add(Quantity::Illuminant, illumination, Rank::Source);
}

void ConditionReader::TakeMode(std::string_view text, Rank rank) {
    for (auto word = NextWord(text); !word.empty(); word = NextWord(text)) {
        if (ToMode(word)) Add(Quantity::Mode, Key(word), rank);
    }
}

void ConditionReader::Add(Quantity quantity, std::string_view text, Rank rank) {
    Statement statement{quantity, rank, Excerpt(text), ToMode(text)};
    if (quantity == Quantity::Illuminant) {
        auto const illuminant = ToIlluminant(Trimmed(text));
        statement.code = illuminant ? std::optional(illuminant->GetCode()) : std::nullopt;
    } else if (quantity == Quantity::Observer) {
        auto const observer = ToObserver(text);
        statement.code =
            observer ? std::optional(static_cast<unsigned long>(kv::ObserverType{*observer})) : std::nullopt;
    }
    statements_.push_back(std::move(statement));
}

ConditionReader::Statement const* ConditionReader::Best(Quantity quantity) const {
    Statement const* best = nullptr;
    for (Statement const& statement : statements_) {
        bool const isKnown = statement.quantity == quantity && statement.code;
        if (isKnown && (best == nullptr || statement.rank > best->rank)) best = &statement;
    }
    return best;
}

StatedConditions ConditionReader::Stated() const {
    StatedConditions stated;
    if (auto const* best = Best(Quantity::Illuminant)) {
        stated.illuminant.emplace(kv::IllumType::A).SetCode(*best->code);
    }
    if (auto const* best = Best(Quantity::Observer)) {
        stated.observer.emplace(static_cast<kv::ObserverType>(*best->code));
    }
    if (auto const* best = Best(Quantity::Mode)) stated.measurementMode = 'M' + std::to_string(*best->code);
    stated.filter = filter_;
    stated.whiteBase = whiteBase_;
    return stated;
}

std::vector<std::string> ConditionReader::Notes() const {
    std::vector<std::string> notes;
    for (Quantity const quantity : {Quantity::Illuminant, Quantity::Observer, Quantity::Mode}) {
        constexpr char const* Names[] = {"illuminant", "observer", "measurement mode"};
        std::string const stated = std::string(Names[static_cast<int>(quantity)]) + " stated as ";
        Statement const* const best = Best(quantity);
        Statement const* other = nullptr;
        Statement const* unknown = nullptr;
        for (Statement const& statement : statements_) {
            if (statement.quantity != quantity) continue;
            if (!statement.code) unknown = &statement;
            if (statement.code && statement.code != best->code && other == nullptr) other = &statement;
        }
        if (other != nullptr)
            notes.push_back(stated + best->text + " and as " + other->text + ", the first taken");
        if (unknown != nullptr) notes.push_back(stated + unknown->text + ", which is not known");
    }
    return notes;
}

}  // namespace files
