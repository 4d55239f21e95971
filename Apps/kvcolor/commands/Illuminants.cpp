#include "Apps/evaluation/Conditions.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "KVUtils/KVUtils.h"

#include <memory>

namespace kvcolor {

namespace {

using evaluation::NameOf;

/// Describes an illuminant (CIE 15).
std::string Describe(kv::IllumClass const& illuminant) {
    switch (static_cast<kv::IllumType>(illuminant)) {
        case kv::IllumType::A:
            return "incandescent lamp, 2856 K";
        case kv::IllumType::C:
            return "average daylight without ultraviolet, 6774 K";
        case kv::IllumType::D50:
            return "daylight, 5003 K: the light booth of the print trade";
        case kv::IllumType::D65:
            return "average daylight, 6504 K";
        case kv::IllumType::F1:
        case kv::IllumType::F2:
        case kv::IllumType::F3:
        case kv::IllumType::F4:
        case kv::IllumType::F5:
        case kv::IllumType::F6:
            return "standard fluorescent lamp";
        case kv::IllumType::F7:
        case kv::IllumType::F8:
        case kv::IllumType::F9:
            return "broad-band fluorescent lamp";
        case kv::IllumType::F10:
        case kv::IllumType::F11:
        case kv::IllumType::F12:
            return "three-band fluorescent lamp";
        default:
            return "daylight of " + std::to_string(short{illuminant}) + "00 K, by formula";
    }
}

std::vector<kv::IllumClass> SelectedIlluminants(std::vector<std::string> const& names) {
    std::vector<kv::IllumClass> selected;
    selected.reserve(names.size());
    for (std::string const& name : names) selected.push_back(evaluation::ParseIlluminant(name));
    if (!names.empty()) return selected;
    for (kv::IllumType const type : evaluation::TabledIlluminants()) selected.emplace_back(type);
    // The limits of the formula, and the two daylights of it that standards name.
    for (short const number :
         {kv::IllumClass::FirstDayNumber, short{55}, short{75}, kv::IllumClass::LastDayNumber}) {
        selected.emplace_back(kv::IllumType::Dxx1, number);
    }
    return selected;
}

Row WhitePoint(kv::IllumClass const& illuminant, kv::ObserverClass const& observer) {
    evaluation::ApplyConditions(illuminant, observer);
    kv::Spectrum const white(1.0F, kv::PhysicalConditions());
    kv::XYZVector const xyz(white);
    kv::xyYVector const xyY(white);
    return {{NameOf(illuminant), Describe(illuminant), xyz[0], xyz[1], xyz[2], xyY[0], xyY[1]}, std::nullopt};
}

void RunIlluminants(Session& session, std::vector<std::string> const& names) {
    kv::ObserverClass const observer = session.Observer();
    Table table{
        "illuminants",
        {Session::NameColumn(), TextColumn("what", "what"), NumberColumn("X", "X"), NumberColumn("Y", "Y"),
         NumberColumn("Z", "Z"), NumberColumn("x", "x", 4), NumberColumn("y", "y", 4)},
        {}};
    for (kv::IllumClass const& illuminant : SelectedIlluminants(names)) {
        table.rows.push_back(WhitePoint(illuminant, observer));
    }
    if (names.empty()) {
        session.GetMessages().Detail("any daylight from D40 (4000 K) to D250 (25000 K) can be selected");
    }
    session.Deliver("illuminants", {{"observer", NameOf(observer)}}, std::move(table));
}

}  // namespace

void AddIlluminants(CommandLine& program, Session& session) {
    auto const names = std::make_shared<std::vector<std::string>>();
    Command command = program.Add("illuminants", "List illuminants and their white points");
    command.Add({.name = "NAME", .help = "Only these illuminants"}, *names);
    session.AddObserver(command);
    session.AddOutputOptions(command);
    command.Finish("Example:\n  kvcolor illuminants D50 D55 F11 --observer 10",
                   [&session, names] { RunIlluminants(session, *names); });
}

}  // namespace kvcolor
