#include "Platform/Process.h"

#include "Platform/posix/Descriptor.h"

#include <algorithm>
#include <csignal>
#include <iterator>
#include <optional>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

struct Process::State {
    pid_t id = 0;
    std::optional<int> exitCode;

    /// Obtains the exit code from the system, once. Returns false while the program runs.
    bool Collect(int options) noexcept {
        if (exitCode) return true;
        int status = 0;
        pid_t const ended = detail::Retry([&] { return ::waitpid(id, &status, options); });
        if (ended == 0) return false;
        // On -1 another part of this program has already collected the code.
        exitCode = ended == id && WIFEXITED(status) ? WEXITSTATUS(status) : Killed;
        return true;
    }
};

Process::Process(std::unique_ptr<State> state) noexcept : state_(std::move(state)) {}

std::unique_ptr<Process> Process::Start(std::string const& program,
                                        std::vector<std::string> const& arguments) {
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    std::ranges::transform(words, std::back_inserter(pointers),
                           [](std::string& word) { return word.data(); });
    pointers.push_back(nullptr);
    auto state = std::make_unique<State>();
    if (::posix_spawnp(&state->id, program.c_str(), nullptr, nullptr, pointers.data(), environ) != 0)
        return nullptr;
    return std::unique_ptr<Process>(new Process(std::move(state)));
}

// A program that still runs becomes a zombie when it exits, until this program exits.
Process::~Process() { state_->Collect(WNOHANG); }

long Process::Id() const noexcept { return state_->id; }

bool Process::IsRunning() noexcept { return !state_->Collect(WNOHANG); }

int Process::Wait() noexcept {
    state_->Collect(0);
    return *state_->exitCode;
}

void Process::Kill() noexcept {
    // Once collected, the system may reuse the number.
    if (!state_->exitCode) ::kill(state_->id, SIGKILL);
}

unsigned long ProcessNumber() noexcept { return static_cast<unsigned long>(::getpid()); }

}  // namespace platform
