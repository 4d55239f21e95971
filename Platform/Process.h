// Process: another program, started by this one.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

class Process {
  public:
    /// What `Wait` answers for a program that was ended from outside.
    static constexpr int Killed = -1;

    /// Starts a program by its file name, which is searched as the system searches programs when it names no
    /// directory. The arguments arrive as they are, blanks and quotes included. Null when it could not be
    /// started.
    [[nodiscard]] static std::unique_ptr<Process> Start(std::string const& program,
                                                        std::vector<std::string> const& arguments = {});
    Process(Process const&) = delete;
    Process& operator=(Process const&) = delete;
    /// Lets go of the program, which runs on if it still does.
    ~Process();

    /// The number that the system knows the program by.
    [[nodiscard]] long Id() const noexcept;
    [[nodiscard]] bool IsRunning() noexcept;
    /// Waits for the program's end and returns its exit code.
    int Wait() noexcept;
    /// Ends the program wherever it is, with nothing written and nothing cleaned up.
    void Kill() noexcept;

  private:
    struct State;
    explicit Process(std::unique_ptr<State> state) noexcept;
    std::unique_ptr<State> state_;
};

/// Starts a program that lives on its own, and waits for nothing. The command line is the program's name and
/// its arguments, divided by blanks; double quotes keep blanks together. True when the program was started.
///
/// It runs in `directory`, where one is given, else in the current one. There it is looked for first, then in
/// the directory of the running program, then on the system's path. On Windows its window is minimised.
/// Elsewhere it has a session of its own and no standard streams, so that nobody waits at the end of a pipe
/// for it.
bool StartProgram(std::string const& commandLine, std::optional<std::string> const& directory = std::nullopt);

/// The system's number of this process.
[[nodiscard]] unsigned long ProcessNumber() noexcept;

}  // namespace platform
