#include "Apps/kvcolor/SampleNames.h"

#include "Apps/evaluation/InputError.h"
#include "Apps/files/Numbers.h"
#include "Apps/files/Text.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <set>
#include <utility>

namespace kvcolor {

namespace {

using evaluation::InputError;
using files::List;
using files::Lower;
using files::MeasurementFile;
using files::Quoted;

constexpr std::size_t MaxNamesInMessage = 5;

/// Returns the number of single-byte edits that turn one text into the other.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            std::size_t const changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

/// Returns similar names, the nearest first.
std::vector<std::string> NearNames(MeasurementFile const& file, std::string_view name) {
    constexpr std::size_t longestCompared = 100;
    std::string const wanted = Lower(name.substr(0, longestCompared));
    // Every single character is one edit away from every other.
    std::size_t const limit = wanted.size() < 2 ? 0 : std::max<std::size_t>(1, wanted.size() / 3);
    std::set<std::pair<std::size_t, std::string>> near;
    for (files::Sample const& sample : file.samples) {
        std::string const candidate = Lower(std::string_view(sample.name).substr(0, longestCompared));
        bool const isPart = !wanted.empty() && candidate.find(wanted) != std::string::npos;
        std::size_t const distance = isPart ? 1 : EditDistance(candidate, wanted);
        if (distance <= limit) near.emplace(distance, sample.name);
    }
    std::vector<std::string> names;
    for (auto const& [distance, candidate] : near) names.push_back(Quoted(candidate));
    return names;
}

[[noreturn]] void FailUnknown(MeasurementFile const& file, std::string_view name) {
    std::string const problem = file.path + " has no sample " + Quoted(name);
    if (std::vector<std::string> const near = NearNames(file, name); !near.empty()) {
        throw InputError(problem + " (did you mean " + List(near, MaxNamesInMessage) + "?)");
    }
    std::vector<std::string> names;
    for (files::Sample const& sample : file.samples) names.push_back(Quoted(sample.name));
    throw InputError(problem + " (choose from " + List(names, MaxNamesInMessage) + ')');
}

std::vector<std::size_t> WithName(MeasurementFile const& file, std::string_view name) {
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < file.samples.size(); ++i) {
        if (file.samples[i].name == name) indices.push_back(i);
    }
    return indices;
}

/// Returns the index for "#3"; nothing for other texts and numbers beyond the file.
std::optional<std::size_t> ByNumber(MeasurementFile const& file, std::string_view name) {
    if (!name.starts_with('#')) return std::nullopt;
    auto const number = files::ToWhole(name.substr(1));
    if (!number || *number < 1) return std::nullopt;
    auto const index = static_cast<std::size_t>(*number) - 1;
    return index < file.samples.size() ? std::optional(index) : std::nullopt;
}

/// Matches by name, then by number, then by pattern.
std::vector<std::size_t> MatchingSamples(MeasurementFile const& file, std::string_view choice) {
    std::vector<std::size_t> indices = WithName(file, choice);
    if (!indices.empty()) return indices;
    if (auto const index = ByNumber(file, choice)) return {*index};
    for (std::size_t i = 0; i < file.samples.size(); ++i) {
        if (MatchesGlob(file.samples[i].name, choice)) indices.push_back(i);
    }
    return indices;
}

}  // namespace

bool MatchesGlob(std::string_view text, std::string_view pattern) noexcept {
    auto const skipPoint = [&](std::size_t i) {
        do ++i;
        while (i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U);
        return i;
    };
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starText = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            starText = t;
        } else if (p < pattern.size() && pattern[p] == '?') {
            ++p;
            t = skipPoint(t);
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = starText = skipPoint(starText);
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool HasSample(MeasurementFile const& file, std::string_view name) {
    return !WithName(file, name).empty() || ByNumber(file, name);
}

std::size_t FindSample(MeasurementFile const& file, std::string_view name, Messages& messages) {
    std::vector<std::size_t> const indices = WithName(file, name);
    if (indices.empty()) {
        if (auto const index = ByNumber(file, name)) return *index;
        FailUnknown(file, name);
    }
    if (indices.size() > 1) {
        std::vector<std::string> numbers;
        for (std::size_t const index : indices) numbers.push_back('#' + std::to_string(index + 1));
        messages.Warn(file.path + " has " + std::to_string(indices.size()) + " samples " + Quoted(name) +
                      " (" + List(numbers, MaxNamesInMessage) + "): using " + numbers.front());
    }
    return indices.front();
}

std::vector<std::size_t> ChooseSamples(MeasurementFile const& file, std::vector<std::string> const& choices) {
    std::vector<std::size_t> chosen;
    if (choices.empty()) {
        chosen.resize(file.samples.size());
        std::iota(chosen.begin(), chosen.end(), std::size_t{0});
        return chosen;
    }
    auto const add = [&](std::vector<std::size_t> const& indices) {
        chosen.insert(chosen.end(), indices.begin(), indices.end());
    };
    for (std::string const& choice : choices) {
        // A name may contain a comma.
        if (std::vector<std::size_t> const whole = MatchingSamples(file, choice); !whole.empty()) {
            add(whole);
            continue;
        }
        for (std::string_view const piece : files::Split(choice, ',')) {
            std::vector<std::size_t> const indices = MatchingSamples(file, piece);
            if (indices.empty()) FailUnknown(file, piece);
            add(indices);
        }
    }
    std::ranges::sort(chosen);
    chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
    return chosen;
}

}  // namespace kvcolor
