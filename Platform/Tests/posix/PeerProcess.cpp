#include "Platform/Tests/posix/PeerProcess.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tests {

PeerProcess::PeerProcess(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), KV_DDE_PEER);
    std::vector<char*> pointers;
    std::ranges::transform(arguments, std::back_inserter(pointers),
                           [](std::string& word) { return word.data(); });
    pointers.push_back(nullptr);

    std::array<int, 2> input{};
    std::array<int, 2> output{};
    if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    int const error = posix_spawn(&id_, KV_DDE_PEER, &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(input[0]);
    close(output[1]);
    if (error != 0) throw std::runtime_error("cannot start " KV_DDE_PEER);
    input_ = input[1];
    output_ = output[0];
}

PeerProcess::PeerProcess(PeerProcess&& other) noexcept
    : id_(std::exchange(other.id_, -1)),
      input_(std::exchange(other.input_, -1)),
      output_(std::exchange(other.output_, -1)),
      exitCode_(other.exitCode_) {}

PeerProcess::~PeerProcess() {
    if (id_ < 0) return;
    Kill();
    close(input_);
    close(output_);
}

std::string PeerProcess::ReadLine(int limitMs) {
    std::string line;
    for (char c = 0; c != '\n';) {
        pollfd waiting{output_, POLLIN, 0};
        if (poll(&waiting, 1, limitMs) <= 0 || read(output_, &c, 1) != 1) return {};
        line += c;
    }
    line.pop_back();
    return line;
}

void PeerProcess::WriteLine() {
    if (write(input_, "\n", 1) != 1) throw std::runtime_error("the peer has ended");
}

void PeerProcess::Signal(int signal) const { kill(id_, signal); }

void PeerProcess::Collect(int options) {
    int status = 0;
    if (exitCode_ != StillRuns || waitpid(id_, &status, options) != id_) return;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int PeerProcess::ExitCode() {
    Collect(WNOHANG);
    return exitCode_;
}

void PeerProcess::Kill() {
    if (HasEnded()) return;
    Signal(SIGKILL);
    Collect(0);
}

long ResidentKiB() {
    std::ifstream status("/proc/self/statm");
    long total = 0;
    long resident = 0;
    status >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

}  // namespace tests
