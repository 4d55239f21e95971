#include "Apps/kvcolor/Pairing.h"

#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/output/Text.h"

#include <deque>
#include <map>
#include <set>
#include <string>

namespace kvcolor {

namespace {

using files::MeasurementFile;

constexpr std::size_t MostNamesInMessage = 5;

void NoteUnpaired(MeasurementFile const& file, std::vector<std::string> const& names,
                  MeasurementFile const& other, Messages& messages) {
    if (names.empty()) return;
    messages.Warn(std::to_string(names.size()) + " of " + file.path + " without a partner in " + other.path +
                  ": " + List(names, MostNamesInMessage));
}

}  // namespace

std::vector<IndexPair> PairByName(MeasurementFile const& samples, std::span<std::size_t const> chosen,
                                  MeasurementFile const& standards, Messages& messages) {
    std::map<std::string_view, std::deque<std::size_t>> waiting;
    std::set<std::string> repeated;
    for (std::size_t i = 0; i < standards.samples.size(); ++i) {
        auto& indices = waiting[standards.samples[i].name];
        if (!indices.empty()) repeated.insert('"' + standards.samples[i].name + '"');
        indices.push_back(i);
    }

    std::vector<IndexPair> pairs;
    std::vector<std::string> unpaired;
    for (std::size_t const index : chosen) {
        std::string const& name = samples.samples[index].name;
        auto const found = waiting.find(name);
        if (found == waiting.end() || found->second.empty()) {
            unpaired.push_back('"' + name + '"');
            continue;
        }
        pairs.push_back({index, found->second.front()});
        found->second.pop_front();
    }
    if (pairs.empty()) {
        throw Unusable(samples.path + " and " + standards.path + " have no sample name in common");
    }

    if (!repeated.empty()) {
        std::vector<std::string> const names(repeated.begin(), repeated.end());
        messages.Warn(standards.path + " has names more than once, paired in the order of the files: " +
                      List(names, MostNamesInMessage));
    }
    NoteUnpaired(samples, unpaired, standards, messages);
    if (chosen.size() == samples.samples.size()) {
        std::vector<std::string> left;
        for (auto const& [name, indices] : waiting)
            left.insert(left.end(), indices.size(), '"' + std::string(name) + '"');
        NoteUnpaired(standards, left, samples, messages);
    }
    return pairs;
}

}  // namespace kvcolor
