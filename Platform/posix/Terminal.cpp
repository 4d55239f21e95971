#include "Platform/Terminal.h"

#include <csignal>
#include <unistd.h>

namespace platform {

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

void PrepareStandardOutput() { std::signal(SIGPIPE, SIG_IGN); }

}  // namespace platform
