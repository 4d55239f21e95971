// Qt takes longer to load than most commands take to run, so a library of its own loads it when it is needed.
#include "Apps/kvcolor/printing/Printing.h"
#include "Platform/CommandLine.h"
#include "Platform/Library.h"
#include "Platform/Utf8Path.h"

#include <filesystem>
#include <string>

namespace kvcolor {

namespace {

/// Returns the path of the library, next to the program.
std::string ModulePath() {
    std::filesystem::path const folder = platform::PathOf(platform::RunningProgram()).parent_path();
    return platform::Utf8Of(folder / "kvcolor-printing") + platform::LibrarySuffix();
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
