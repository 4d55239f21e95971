// PeerProcess: a DdePeer that runs beside a test, which can talk to it, stop it and kill it.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace tests {

class PeerProcess {
  public:
    explicit PeerProcess(std::vector<std::string> arguments);
    PeerProcess(PeerProcess&& other) noexcept;
    PeerProcess(PeerProcess const&) = delete;
    PeerProcess& operator=(PeerProcess const&) = delete;
    /// Kills it where it still runs.
    ~PeerProcess();

    /// Its next line, empty when there is none within the limit. The test's own event loop does not run
    /// meanwhile.
    [[nodiscard]] std::string ReadLine(int limitMs = 10'000);
    void WriteLine();
    void Signal(int signal) const;
    /// The exit code, the negative number of the signal that ended it, or 1000 while it runs.
    [[nodiscard]] int ExitCode();
    [[nodiscard]] bool HasEnded() { return ExitCode() != StillRuns; }
    /// Kills it and waits for its end.
    void Kill();

    static constexpr int StillRuns = 1000;

  private:
    void Collect(int options);

    pid_t id_ = -1;
    int input_ = -1;
    int output_ = -1;
    int exitCode_ = StillRuns;
};

/// Whether the process's memory says what the program holds: AddressSanitizer keeps what was given back.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool MemoryIsMeasurable = false;
#else
inline constexpr bool MemoryIsMeasurable = true;
#endif
/// This process's memory that is not swapped out, in KiB.
[[nodiscard]] long ResidentKiB();

}  // namespace tests
