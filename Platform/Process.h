// Process: programs started by this one.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

class Process {
  public:
    /// The result of `Wait` for a program that was killed.
    static constexpr int Killed = -1;

    /// Starts a program by its file name, which is searched for as the system does if it names no directory.
    /// Arguments are passed unchanged, blanks and quotes included. Returns null if the program cannot be
    /// started.
    [[nodiscard]] static std::unique_ptr<Process> Start(std::string const& program,
                                                        std::vector<std::string> const& arguments = {});
    Process(Process const&) = delete;
    Process& operator=(Process const&) = delete;
    /// Detaches from the program, which keeps running.
    ~Process();

    /// Returns the process number.
    [[nodiscard]] long Id() const noexcept;
    [[nodiscard]] bool IsRunning() noexcept;
    /// Waits for the program to exit and returns its exit code.
    int Wait() noexcept;
    /// Ends the program immediately, without giving it a chance to clean up.
    void Kill() noexcept;

  private:
    struct State;
    explicit Process(std::unique_ptr<State> state) noexcept;
    std::unique_ptr<State> state_;
};

/// Starts an independent program and does not wait for it. Returns true if the program was started; never
/// throws for any text. The command line, in UTF-8, is the program's name and its arguments, separated by
/// blanks; double quotes keep blanks together.
///
/// The name may contain blanks without quotes: the longest leading part of the line that is the name of a
/// program is started. On Windows the system tries the shortest part first, and the characters of the line
/// must be in its ANSI code page.
///
/// The program runs in `directory`, or in the current directory if none is given, or it is empty or does not
/// exist. The name is searched for there first, then in the directory of the running program, then on the
/// system's path. On Windows the program's window is minimised. Elsewhere it has a session of its own and no
/// standard streams, so that it keeps no pipe of this program open.
bool StartProgram(std::string const& commandLine, std::optional<std::string> const& directory = std::nullopt);

/// Returns the number of this process.
[[nodiscard]] unsigned long ProcessNumber() noexcept;

}  // namespace platform
