#include "Platform/CommandLine.h"
#include "Platform/Process.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sstream>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> Words(std::string const& line) {
    std::vector<std::string> words;
    bool isQuoted = false;
    bool isInWord = false;
    for (char const character : line) {
        bool const divides = !isQuoted && (character == ' ' || character == '\t');
        if (!divides && !isInWord) words.emplace_back();
        isInWord = !divides;
        if (character == '"') {
            isQuoted = !isQuoted;
        } else if (isInWord) {
            words.back() += character;
        }
    }
    return words;
}

bool IsProgram(fs::path const& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && ::access(file.c_str(), X_OK) == 0;
}

/// Returns an empty path if there is no such program.
fs::path Find(std::string const& program, fs::path const& directory) {
    std::vector<fs::path> places = {directory};
    if (program.find('/') == std::string::npos) {
        places.push_back(fs::path(RunningProgram()).parent_path());
        char const* const path = std::getenv("PATH");  // NOLINT(concurrency-mt-unsafe)
        std::istringstream rest(path == nullptr ? "" : path);
        for (std::string place; std::getline(rest, place, ':');) places.emplace_back(place);
        std::erase(places, fs::path());
    }
    for (fs::path const& place : places) {
        std::error_code error;
        fs::path file = fs::absolute(place / program, error);
        if (IsProgram(file)) return file;
    }
    return {};
}

struct Command {
    fs::path program;
    std::vector<std::string> words;  // the name and the arguments
};

/// Parses a command line. The program is empty if there is none.
Command Parse(std::string const& line, fs::path const& directory) {
    constexpr char const* Blanks = " \t";
    std::size_t const begin = std::min(line.find_first_not_of(Blanks), line.size());
    // The whole line first, then without its last word, and so on.
    for (std::size_t last = line.find_last_not_of(Blanks); last != std::string::npos && last >= begin;) {
        std::string const name = line.substr(begin, last + 1 - begin);
        if (fs::path program = Find(name, directory); !program.empty()) {
            Command command{std::move(program), Words(line.substr(last + 1))};
            command.words.insert(command.words.begin(), name);
            return command;
        }
        std::size_t const blank = line.find_last_of(Blanks, last);
        last = blank == std::string::npos ? blank : line.find_last_not_of(Blanks, blank);
    }
    // A name in quotes.
    std::vector<std::string> words = Words(line);
    if (words.empty() || words.front().empty()) return {};
    return {Find(words.front(), directory), std::move(words)};
}

/// The spawn attributes of an independent program.
class Independent {
  public:
    explicit Independent(fs::path const& directory) {
        ::posix_spawn_file_actions_init(&actions_);
        for (int const stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
        }
        if (!directory.empty()) ::posix_spawn_file_actions_addchdir_np(&actions_, directory.c_str());

        sigset_t none;
        sigset_t ignoredByUs;
        ::sigemptyset(&none);
        ::sigemptyset(&ignoredByUs);
        ::sigaddset(&ignoredByUs, SIGPIPE);
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawnattr_setsigmask(&attributes_, &none);
        ::posix_spawnattr_setsigdefault(&attributes_, &ignoredByUs);
        ::posix_spawnattr_setflags(&attributes_,
                                   POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    Independent(Independent const&) = delete;
    Independent& operator=(Independent const&) = delete;
    ~Independent() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    /// Returns the process number, or -1.
    [[nodiscard]] pid_t Spawn(fs::path const& program, std::vector<std::string>& words) const {
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        pid_t child = -1;
        int const error =
            ::posix_spawn(&child, program.c_str(), &actions_, &attributes_, arguments.data(), environ);
        return error == 0 ? child : -1;
    }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

}  // namespace

bool StartProgram(std::string const& commandLine, std::optional<std::string> const& directory) {
    std::error_code error;
    bool const isUsable = directory && fs::is_directory(*directory, error);
    fs::path const place = isUsable ? fs::absolute(*directory, error) : fs::current_path(error);
    Command command = Parse(commandLine, place);
    if (command.program.empty()) return false;
    pid_t const child = Independent(place).Spawn(command.program, command.words);
    if (child < 0) return false;
    // Collects the exit code, so that no zombie remains.
    std::thread([child] { ::waitpid(child, nullptr, 0); }).detach();
    return true;
}

}  // namespace platform
