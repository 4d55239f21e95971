#include "Apps/files/StatedConditions.h"

#include "Apps/files/ReadError.h"
#include "Apps/files/Text.h"

#include <algorithm>
#include <charconv>

namespace files {

namespace {

constexpr std::string_view Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view Digits = "0123456789";

/// Takes the next word out of `text`: letters, digits and nothing else.
std::string_view NextWord(std::string_view& text) {
    auto const isInWord = [](char c) {
        return Letters.find(c) != std::string_view::npos || Digits.find(c) != std::string_view::npos;
    };
    auto const begin = std::ranges::find_if(text, isInWord);
    auto const end = std::find_if_not(begin, text.end(), isInWord);
    std::string_view const word =
        text.substr(static_cast<std::size_t>(begin - text.begin()), static_cast<std::size_t>(end - begin));
    text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
    return word;
}

/// Takes the next piece between blanks out of `text`.
std::string_view NextPiece(std::string_view& text) {
    text = Trimmed(text);
    std::string_view const piece = text.substr(0, text.find_first_of(" \t"));
    text.remove_prefix(piece.size());
    return piece;
}

std::optional<int> ToCount(std::string_view digits) {
    int count = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    bool const isCount = !digits.empty() && error == std::errc() && end == digits.data() + digits.size();
    return isCount ? std::optional(count) : std::nullopt;
}

}  // namespace

std::optional<kv::IllumClass> ToIlluminant(std::string_view word) {
    using kv::IllumClass;
    using kv::IllumType;
    std::string const key = Key(word);
    if (key == "A") return IllumClass(IllumType::A);
    if (key == "C") return IllumClass(IllumType::C);
    if (key == "D50") return IllumClass(IllumType::D50);
    if (key == "D65") return IllumClass(IllumType::D65);
    auto const number = key.empty() ? std::nullopt : ToCount(std::string_view(key).substr(1));
    if (!number) return std::nullopt;
    // The CIE's formula of daylight holds from 4000 to 25000 K.
    if (key.front() == 'D' && *number >= 40 && *number <= 250) {
        return IllumClass(IllumType::Dxx1, static_cast<short>(*number));
    }
    if (key.front() == 'F' && *number >= 1 && *number <= 12) {
        return IllumClass(static_cast<IllumType>(static_cast<int>(IllumType::F1) + *number - 1));
    }
    return std::nullopt;
}

std::optional<kv::ObserverClass> ToObserver(std::string_view text) {
    for (;;) {
        std::string_view const word = NextWord(text);
        if (word.empty()) return std::nullopt;
        // "2deg" is one word.
        auto const number = ToCount(word.substr(0, word.find_first_not_of(Digits)));
        if (number == 2 || number == 1931) return kv::ObserverClass(kv::ObserverType::TwoDegrees);
        if (number == 10 || number == 1964) return kv::ObserverClass(kv::ObserverType::TenDegrees);
    }
}

void ConditionReader::Take(std::string_view keyword, std::string_view value) {
    std::string const key = Key(keyword);
    if (key == "WEIGHTINGFUNCTION") {
        TakeWeighting(value);
    } else if (key == "MEASUREMENTSOURCE") {
        TakeSource(value);
    } else if (key == "ILLUMINANT") {
        TakeIlluminant(value, Rank::Keyword);
    } else if (key == "OBSERVER" || key == "OBSERVERANGLE") {
        TakeObserver(value, Rank::Keyword);
    } else if (key == "MEASUREMENTCONDITION" || key == "MEASUREMENTCONDITIONS" || key == "MEASUREMENTMODE") {
        TakeMode(value, Rank::Keyword);
    } else if (key == "FILTER") {
        stated_.filter = ToUtf8(Trimmed(value));
    }
}

void ConditionReader::TakeWeighting(std::string_view value) {
    // One line may state both.
    for (auto word = NextWord(value); !word.empty(); word = NextWord(value)) {
        std::string const what = Key(word);
        if (what == "ILLUMINANT") TakeIlluminant(NextWord(value), Rank::Weighting);
        if (what == "OBSERVER") TakeObserver(value, Rank::Weighting);
    }
}

void ConditionReader::TakeSource(std::string_view value) {
    // A computation has an observer beside its illuminant; an illumination alone is the lamp.
    std::string_view illumination;
    bool hasObserver = false;
    while (!(value = Trimmed(value)).empty()) {
        std::string_view const piece = NextPiece(value);
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
            TakeObserver(stated, Rank::Source);
        }
        if (key == "MEASUREMENTCONDITION") TakeMode(stated, Rank::Source);
        if (key == "WHITEBASE") stated_.whiteBase = ToUtf8(stated);
        if (key == "FILTER" && stated_.filter.empty()) stated_.filter = ToUtf8(stated);
    }
    if (hasObserver && !illumination.empty()) TakeIlluminant(illumination, Rank::Source);
}

bool ConditionReader::Outranks(Origin& origin, std::string_view word, Rank rank, bool isSame) {
    bool const isTaken = rank > origin.rank;
    if (origin.rank != Rank::None && !isSame && origin.contradiction.empty()) {
        origin.contradiction = isTaken ? origin.word : Excerpt(word);
    }
    if (!isTaken) return false;
    origin.rank = rank;
    origin.word = Excerpt(word);
    return true;
}

void ConditionReader::TakeIlluminant(std::string_view text, Rank rank) {
    auto const illuminant = ToIlluminant(Trimmed(text));
    if (!illuminant) {
        illuminant_.unknown = Excerpt(text);
    } else if (Outranks(illuminant_, text, rank, stated_.illuminant == illuminant)) {
        stated_.illuminant = illuminant;
    }
}

void ConditionReader::TakeObserver(std::string_view text, Rank rank) {
    auto const observer = ToObserver(text);
    if (!observer) {
        observer_.unknown = Excerpt(text);
    } else if (Outranks(observer_, text, rank, stated_.observer == observer)) {
        stated_.observer = observer;
    }
}

void ConditionReader::TakeMode(std::string_view text, Rank rank) {
    for (std::string_view word = NextWord(text); !word.empty(); word = NextWord(text)) {
        std::string const mode = Key(word);
        if (mode.size() != 2 || mode[0] != 'M' || mode[1] < '0' || mode[1] > '3') continue;
        if (Outranks(mode_, mode, rank, stated_.measurementMode == mode)) stated_.measurementMode = mode;
    }
}

std::vector<std::string> ConditionReader::Notes() const {
    std::vector<std::string> notes;
    struct Named {
        char const* name;
        Origin const& origin;
    };
    for (auto const& [name, origin] :
         {Named{"illuminant", illuminant_}, Named{"observer", observer_}, Named{"measurement mode", mode_}}) {
        if (!origin.contradiction.empty()) {
            notes.push_back(std::string(name) + " stated as " + origin.word + " and as " +
                            origin.contradiction + ", the first taken");
        }
        if (!origin.unknown.empty()) {
            notes.push_back(std::string(name) + " stated as " + origin.unknown + ", which is not known");
        }
    }
    return notes;
}

}  // namespace files
