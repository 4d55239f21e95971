#include "Apps/evaluation/Pairing.h"

#include "Apps/evaluation/InputError.h"
#include "Apps/files/Text.h"

#include <deque>
#include <map>
#include <set>
#include <string>

namespace evaluation {

namespace {

using files::List;
using files::MeasurementFile;
using files::Quoted;

constexpr std::size_t MaxNamesInMessage = 5;

void WarnUnmatched(MeasurementFile const& file, std::vector<std::string> const& names,
                   MeasurementFile const& other, Remarks& remarks) {
    if (names.empty()) return;
    remarks.push_back({Remark::Kind::Warning, files::Counted(names.size(), "sample") + " of " + file.path +
                                                  (names.size() == 1 ? " has" : " have") + " no match in " +
                                                  other.path + ": " + List(names, MaxNamesInMessage)});
}

}  // namespace

std::vector<IndexPair> PairByName(MeasurementFile const& samples, std::span<std::size_t const> chosen,
                                  MeasurementFile const& standards, Remarks& remarks) {
    std::map<std::string_view, std::deque<std::size_t>> waiting;
    std::set<std::string> duplicates;
    for (std::size_t i = 0; i < standards.samples.size(); ++i) {
        auto& indices = waiting[standards.samples[i].name];
        if (!indices.empty()) duplicates.insert(Quoted(standards.samples[i].name));
        indices.push_back(i);
    }

    std::vector<IndexPair> pairs;
    std::vector<std::string> unmatched;
    for (std::size_t const index : chosen) {
        std::string const& name = samples.samples[index].name;
        auto const found = waiting.find(name);
        if (found == waiting.end() || found->second.empty()) {
            unmatched.push_back(Quoted(name));
            continue;
        }
        pairs.push_back({index, found->second.front()});
        found->second.pop_front();
    }
    if (pairs.empty()) {
        throw InputError(samples.path + " and " + standards.path + " have no sample name in common");
    }

    if (!duplicates.empty()) {
        std::vector<std::string> const names(duplicates.begin(), duplicates.end());
        remarks.push_back({Remark::Kind::Warning, standards.path +
                                                      " has duplicate names; matched in file order: " +
                                                      List(names, MaxNamesInMessage)});
    }
    WarnUnmatched(samples, unmatched, standards, remarks);
    if (chosen.size() == samples.samples.size()) {
        std::vector<std::string> left;
        for (auto const& [name, indices] : waiting) left.insert(left.end(), indices.size(), Quoted(name));
        WarnUnmatched(standards, left, samples, remarks);
    }
    return pairs;
}

}  // namespace evaluation
