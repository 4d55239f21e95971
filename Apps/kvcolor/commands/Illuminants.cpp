#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "KVUtils/KVUtils.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace kvcolor {

namespace {

struct IlluminantsOptions {
    std::vector<std::string> names;
    std::string observer = "2";
};

/// What an illuminant stands for (CIE 15).
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

std::vector<kv::IllumClass> Wanted(std::vector<std::string> const& names) {
    std::vector<kv::IllumClass> wanted;
    wanted.reserve(names.size());
    for (std::string const& name : names) wanted.push_back(ParseIlluminant(name));
    if (!names.empty()) return wanted;
    for (kv::IllumType const type : TabledIlluminants()) wanted.emplace_back(type);
    // The formula's range, and the two of its daylights that standards name.
    for (short const number : {FirstDayNumber, short{55}, short{75}, LastDayNumber}) {
        wanted.emplace_back(kv::IllumType::Dxx1, number);
    }
    return wanted;
}

Row WhitePoint(kv::IllumClass const& illuminant, kv::ObserverClass const& observer) {
    PutInForce(illuminant, observer, kv::DStdClass(kv::DStdType::AnsiT));
    kv::Spectrum const white(1.0F, kv::PhysicalConditions());
    kv::XYZVector const xyz(white);
    kv::xyYVector const xyY(white);
    return {{NameOf(illuminant), Describe(illuminant), xyz[0], xyz[1], xyz[2], xyY[0], xyY[1]}, std::nullopt};
}

void RunIlluminants(Session& session, IlluminantsOptions const& options) {
    kv::ObserverClass const observer = ParseObserver(options.observer);
    Table table{
        "illuminants",
        {Session::NameColumn(), TextColumn("what", "what"), NumberColumn("X", "X"), NumberColumn("Y", "Y"),
         NumberColumn("Z", "Z"), NumberColumn("x", "x", 4), NumberColumn("y", "y", 4)},
        {}};
    for (kv::IllumClass const& illuminant : Wanted(options.names)) {
        table.rows.push_back(WhitePoint(illuminant, observer));
    }
    if (options.names.empty()) {
        session.GetMessages().Note("D40 to D150 are there too, daylight of 4000 K to 15000 K");
    }
    session.Deliver({"illuminants", {{"observer", NameOf(observer)}}, {table}});
}

}  // namespace

void AddIlluminants(CLI::App& program, Session& session) {
    auto const options = std::make_shared<IlluminantsOptions>();
    CLI::App* const command =
        program.add_subcommand("illuminants", "The illuminants that there are, with white points");
    command->add_option("NAME", options->names, "These illuminants alone")->type_name("");
    command->add_option("--observer", options->observer, "2 (default) or 10 degrees")->type_name("ANGLE");
    session.AddOutputOptions(*command);
    command->footer("Example:\n  kvcolor illuminants D50 D55 F11 --observer 10");
    command->callback([&session, options] { RunIlluminants(session, *options); });
}

}  // namespace kvcolor
