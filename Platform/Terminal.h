// Terminal: properties of a console program's standard streams.
#pragma once

#include <cstdio>

namespace platform {

/// Returns whether the stream is a terminal rather than a file or a pipe. On Windows this also enables escape
/// sequences and UTF-8 on its console; a console that does not support them counts as no terminal.
[[nodiscard]] bool IsTerminal(std::FILE* stream);

/// Makes standard output binary on every system, and a write to a closed pipe fail like one to a full disk
/// instead of ending the process.
void PrepareStandardOutput();

}  // namespace platform
