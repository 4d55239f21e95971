#include "Apps/evaluation/StatedCheck.h"

#include "Apps/evaluation/Conditions.h"
#include "Apps/files/Text.h"

#include <algorithm>

namespace evaluation {

namespace {

void Warn(Remarks& remarks, std::string text) { remarks.push_back({Remark::Kind::Warning, std::move(text)}); }

void CheckText(Remarks& remarks, std::string const& path, std::string const& what, std::string const& stated,
               std::string const& requested) {
    if (requested.empty() || stated == requested) return;
    std::string const request = "; " + requested + " was requested";
    if (!stated.empty()) return Warn(remarks, path + " states " + what + ' ' + stated + request);
    remarks.push_back({Remark::Kind::Note, path + " does not state a " + what + request});
}

}  // namespace

Remarks CheckStated(files::MeasurementFile const& file, RequestedConditions const& requested) {
    Remarks remarks;
    files::StatedConditions const& stated = file.stated;
    if (stated.illuminant && !requested.illuminants.empty() &&
        std::ranges::find(requested.illuminants, *stated.illuminant) == requested.illuminants.end()) {
        std::vector<std::string> names;
        for (kv::IllumClass const& illuminant : requested.illuminants) names.push_back(NameOf(illuminant));
        Warn(remarks, file.path + " states illuminant " + NameOf(*stated.illuminant) + "; computed with " +
                          files::List(names));
    }
    if (stated.observer && requested.observer && *stated.observer != *requested.observer) {
        Warn(remarks, file.path + " states observer " + NameOf(*stated.observer) + "; computed with " +
                          NameOf(*requested.observer));
    }
    CheckText(remarks, file.path, "measurement condition", stated.measurementMode, requested.measurementMode);
    std::string const filter = stated.filter.empty() ? "" : CanonicalFilter(stated.filter);
    CheckText(remarks, file.path, "filter", filter, requested.filter);
    return remarks;
}

Remarks CheckStatedAlike(files::MeasurementFile const& first, files::MeasurementFile const& second) {
    Remarks remarks;
    auto const compare = [&](std::string const& what, std::string const& a, std::string const& b) {
        if (a.empty() || b.empty() || a == b) return;
        Warn(remarks, first.path + " states " + what + ' ' + a + "; " + second.path + " states " + b);
    };
    compare("measurement condition", first.stated.measurementMode, second.stated.measurementMode);
    compare("filter", CanonicalFilter(first.stated.filter), CanonicalFilter(second.stated.filter));
    return remarks;
}

}  // namespace evaluation
