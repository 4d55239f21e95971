// The program HQMSERV: a measuring server that replays measurement files.
#include "Apps/HQMSERV/Options.h"
#include "Apps/HQMSERV/Server.h"
#include "Apps/suite/SuiteServices.h"
#include "KVUtils/KVUtils.h"
#include "Platform/CommandLine.h"
#include "Platform/Terminal.h"
#include "SV/core/NativePath.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace {

using namespace hqmserv;

constexpr std::chrono::seconds TimeoutWhenCalled{30};

std::string FileOf(Options const& options) {
    if (!options.file.empty()) return options.file;
    sv::String const named = kv::KORVELConfig::ReadKORVELKey(kv::KORVELiniGroup::HqmServer, "Measurements");
    return named.IsEmpty() ? "" : sv::NativePath(named);
}

/// Reads the instrument's file. If that fails in a server that was started by a message, the display shows
/// why; at a terminal the exception is passed on.
Instrument Prepare(Options const& options, Server::Settings& settings) {
    try {
        std::string const file = FileOf(options);
        return file.empty() ? Instrument() : Instrument(files::ReadMeasurementFile(file));
    } catch (files::ReadError const& error) {
        if (!options.isCalled) throw;
        settings.fault = error.what();
        return {};
    }
}

void Serve(Options const& options) {
    if (!kv::PostOffice::IsSupported()) {
        throw std::runtime_error(
            "messages between programs do not work here: the folder for their sockets cannot be created, or is "
            "open to other users");
    }
    if (kv::PostOffice::IsReachable(suite::ServerName)) {
        if (options.isCalled) return;  // two messages have started two servers
        throw std::runtime_error("already running");
    }
    suite::SuiteServices const services(suite::ServerName, Version, options.language);
    Server::Settings settings;
    settings.measuringTime = options.measuringTime;
    if (options.isCalled) settings.timeout = TimeoutWhenCalled;
    Instrument instrument = Prepare(options, settings);
    if (!options.isCalled) {
        std::cerr << "HQMSERV: " << instrument.Patches() << " patches; exits after its last client\n";
    }
    Server const server(std::move(instrument), settings);
    sv::Application::Execute();
}

}  // namespace

int main(int argc, char** argv) {
    platform::PrepareStandardOutput();
    try {
        Options const options = ParseOptions(platform::Arguments(argc, argv));
        if (options.wantsHelp) {
            std::cout << Usage;
        } else if (options.wantsVersion) {
            std::cout << "HQMSERV " << Version << '\n';
        } else {
            Serve(options);
        }
        return std::cout.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (std::exception const& error) {
        std::cerr << "HQMSERV: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
