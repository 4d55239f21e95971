// Qt takes longer to load than most commands to run, so it comes in a library of its own when it is needed.
#include "Apps/kvcolor/printing/Printing.h"
#include "Platform/CommandLine.h"
#include "Platform/Library.h"

#include <filesystem>
#include <string>

namespace kvcolor {

namespace {

/// The library beside the program.
std::string ModulePath() {
    std::string const program = platform::RunningProgram();
    std::filesystem::path const folder =
        std::filesystem::path(std::u8string(program.begin(), program.end())).parent_path();
    std::u8string const path = (folder / "kvcolor-printing").u8string();
    return std::string(path.begin(), path.end()) + platform::LibrarySuffix();
}

}  // namespace

std::shared_ptr<void> BeginPrinting() {
    unsigned long error = 0;
    void* const module = platform::LoadLibraryFile(ModulePath(), error);
    if (module == nullptr) return nullptr;
    auto* const begin =
        reinterpret_cast<BeginPrintingFunction*>(platform::FunctionAddress(module, BeginPrintingName, error));
    std::shared_ptr<void> printing;
    if (begin != nullptr) begin(printing);
    return printing;
}

}  // namespace kvcolor
