#include "KVUtils/Source/frame/Check.h"

#include "SV/core/Application.h"
#include "SV/core/Boxes.h"

#include <new>
#include <string_view>

namespace kv {

namespace {

constexpr int LastDatabaseInformation = 1999;

[[noreturn]] void ShowAndThrow(sv::String const& what, char const* module, char const* date, char const* time,
                               int line) {
    try {
        sv::ErrorBox(sv::Application::GetAppWindow(), sv::WB_OK,
                     what + Check::CommonErrStr(module, date, time, line))
            .Execute();
    } catch (std::bad_alloc const&) {
        // Without memory for the box, throw the error alone.
    }
    throw 1;
}

}  // namespace

sv::String Check::CommonErrStr(char const* module, char const* date, char const* time, int line) {
    return sv::String("Module: ") + module + "   Date: " + date + "   Time: " + time +
           "   Line: " + sv::String(line);
}

void Check::POET(int code, char const* module, char const* date, char const* time, int line) {
    if (code >= 0 && code <= LastDatabaseInformation) return;
    ShowAndThrow(sv::String("Database error!\n\nErrorCode: ") + sv::String(code) + "\n", module, date, time,
                 line);
}

void Check::POINTER(void const* pointer, char const* module, char const* date, char const* time, int line) {
    if (pointer != nullptr) return;
    ShowAndThrow("Internal ERROR!\n\nPOINTER -> NULL\n", module, date, time, line);
}

void Check::POINTER(void const* pointer, char const* file, int line) {
    if (pointer != nullptr) return;
    // __builtin_FILE gives the path on the machine that built the library; only the name is of use.
    std::string_view const path = file;
    char const* const name = file + (path.find_last_of("/\\") + 1);
    POINTER(pointer, name, BuildDate(), BuildTime(), line);
}

// Kept to this file, so that a rebuild changes one object file, and none under SOURCE_DATE_EPOCH.
char const* Check::BuildDate() noexcept { return __DATE__; }
char const* Check::BuildTime() noexcept { return __TIME__; }

void DisplayError(int number, char const* module, char const* date, char const* time, int line) {
    ShowAndThrow(sv::String("Internal ERROR!\n\nErrNo. ") + sv::String(number) + "\n", module, date, time,
                 line);
}

}  // namespace kv
