#include "Platform/Terminal.h"

#include <windows.h>

#include <cstdint>
#include <fcntl.h>
#include <io.h>

namespace platform {

bool IsTerminal(std::FILE* stream) {
    std::intptr_t const handle = _get_osfhandle(_fileno(stream));
    // -2 is a stream without a file, as in a program without a console.
    if (handle == -1 || handle == -2) return false;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system keeps its handles in integers.
    HANDLE const console = reinterpret_cast<HANDLE>(handle);
    DWORD mode = 0;
    if (GetConsoleMode(console, &mode) == 0) return false;
    SetConsoleOutputCP(CP_UTF8);
    return SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void PrepareStandardOutput() { _setmode(_fileno(stdout), _O_BINARY); }

}  // namespace platform
