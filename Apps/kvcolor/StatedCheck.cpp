#include "Apps/kvcolor/StatedCheck.h"

#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/output/Text.h"

#include <algorithm>
#include <array>

namespace kvcolor {

namespace {

constexpr std::array<char const*, 9> FilterNames = {"No",   "Pol", "D65", "Repro", "UV",
                                                    "Cust", "D8i", "D8e", "D8t"};

std::string LettersAndDigits(std::string_view text) {
    std::string key = Lower(text);
    std::erase_if(key, [](char c) { return !(c >= 'a' && c <= 'z') && !(c >= '0' && c <= '9'); });
    return key;
}

void CheckText(std::string const& path, std::string const& what, std::string const& stated,
               std::string const& asked, Messages& messages) {
    if (asked.empty() || stated == asked) return;
    if (stated.empty()) {
        messages.Note(path + " states no " + what + ", asked for was " + asked);
    } else {
        messages.Warn(path + " states " + what + ' ' + stated + ", asked for was " + asked);
    }
}

}  // namespace

std::string ParseMeasurementMode(std::string_view text) {
    std::string mode(text);
    if (mode.starts_with('m')) mode[0] = 'M';
    if (mode == "M0" || mode == "M1" || mode == "M2" || mode == "M3") return mode;
    throw Unusable("no measurement condition \"" + std::string(text) + "\": there are M0, M1, M2, M3");
}

std::string CanonicalFilter(std::string_view text) {
    std::string const key = LettersAndDigits(text);
    if (key == "no" || key == "none" || key == "nofilter" || key == "off") return "No";
    if (key.starts_with("pol")) return "Pol";
    if (key.starts_with("uv")) return "UV";
    auto const* const name = std::ranges::find(FilterNames, key, LettersAndDigits);
    return name != FilterNames.end() ? *name : std::string(text);
}

std::string ParseFilter(std::string_view text) {
    std::string filter = CanonicalFilter(text);
    if (std::ranges::find(FilterNames, filter) != FilterNames.end()) return filter;
    std::vector<std::string> const names(FilterNames.begin(), FilterNames.end());
    throw Unusable("no instrument filter \"" + std::string(text) + "\": there are " +
                   List(names, names.size()));
}

void CheckStated(files::MeasurementFile const& file, AskedConditions const& asked, Messages& messages) {
    files::StatedConditions const& stated = file.stated;
    if (stated.illuminant && !asked.illuminants.empty() &&
        std::ranges::find(asked.illuminants, *stated.illuminant) == asked.illuminants.end()) {
        std::vector<std::string> names;
        for (kv::IllumClass const& illuminant : asked.illuminants) names.push_back(NameOf(illuminant));
        messages.Warn(file.path + " states illuminant " + NameOf(*stated.illuminant) + ", computed with " +
                      List(names, names.size()));
    }
    if (stated.observer && asked.observer && *stated.observer != *asked.observer) {
        messages.Warn(file.path + " states observer " + NameOf(*stated.observer) + ", computed with " +
                      NameOf(*asked.observer));
    }
    CheckText(file.path, "measurement condition", stated.measurementMode, asked.measurementMode, messages);
    std::string const filter = stated.filter.empty() ? "" : CanonicalFilter(stated.filter);
    CheckText(file.path, "filter", filter, asked.filter, messages);
}

void CheckStatedAlike(files::MeasurementFile const& first, files::MeasurementFile const& second,
                      Messages& messages) {
    auto const compare = [&](std::string const& what, std::string const& a, std::string const& b) {
        if (a.empty() || b.empty() || a == b) return;
        messages.Warn(first.path + " states " + what + ' ' + a + ", " + second.path + " states " + b);
    };
    compare("measurement condition", first.stated.measurementMode, second.stated.measurementMode);
    compare("filter", CanonicalFilter(first.stated.filter), CanonicalFilter(second.stated.filter));
}

}  // namespace kvcolor
