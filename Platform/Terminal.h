// Terminal: what a console program has to know of the streams that it is given.
#pragma once

#include <cstdio>

namespace platform {

/// Whether the stream is a terminal that a person reads, rather than a file or a pipe. On Windows this also
/// makes its console follow escape sequences and UTF-8; a console that cannot counts as no terminal.
[[nodiscard]] bool IsTerminal(std::FILE* stream);

/// Makes standard output take bytes as they are on every system, and a write to a pipe whose reader has gone
/// fail like one to a full disk instead of ending the process.
void PrepareStandardOutput();

}  // namespace platform
