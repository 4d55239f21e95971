#include "Apps/kvcolor/Run.h"

#include "Apps/files/DataFile.h"
#include "Apps/kvcolor/CommandLine.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "KVUtils/Version.h"

#include <new>

namespace kvcolor {

int Run(std::vector<std::string> arguments, Environment const& environment) {
    Session session(environment);
    Messages& messages = session.GetMessages();
    try {
        CommandLine program(
            "kvcolor",
            "Colour measurement for print: colours, densities, differences, metamerism, ink strength",
            kv::Version);
        AddConvert(program, session);
        AddDensity(program, session);
        AddDifference(program, session);
        AddMetamerism(program, session);
        AddStrength(program, session);
        AddExport(program, session);
        AddMeasure(program, session);
        AddReport(program, session);
        AddIlluminants(program, session);
        return program.Run(std::move(arguments), environment.out, messages) ? Success : UnusableInput;
    } catch (files::WriteError const& error) {
        messages.Error(error.what());
        return OutputFailed;
    } catch (std::bad_alloc const&) {
        messages.Error("out of memory");
        return UnusableInput;
    } catch (std::exception const& error) {
        messages.Error(error.what());
        return UnusableInput;
    }
}

}  // namespace kvcolor
