#include "Platform/posix/DdeMeetingPlace.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace platform::detail {

namespace {

// The first character of the name of a socket that does not listen yet.
constexpr char Unfinished = '.';
// After this many seconds the program that created an unfinished socket is considered to have ended.
constexpr long UnfinishedLimit = 60;
constexpr mode_t OthersBits = S_IRWXG | S_IRWXO;
constexpr int Backlog = 4096;

bool IsPrivate(struct stat const& status) noexcept {
    return status.st_uid == geteuid() && (status.st_mode & OthersBits) == 0;
}

// Returns an empty name if other users could replace files in the runtime directory.
std::string DirectoryName() {
    char const* const runtime = std::getenv("XDG_RUNTIME_DIR");
    struct stat status {};
    if (runtime == nullptr || runtime[0] != '/' || stat(runtime, &status) != 0 || !S_ISDIR(status.st_mode)) {
        return "/tmp/kvutils-dde-" + std::to_string(geteuid());
    }
    if (status.st_uid != geteuid() || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0) return {};
    return std::string(runtime) + "/kvutils-dde";
}

// Builds the address of a name in a directory, which is given by its descriptor: a path may be longer than an
// address can hold, and may refer to another directory later.
bool FillAddress(sockaddr_un& address, int directory, std::string const& name) noexcept {
    address.sun_family = AF_UNIX;
    int const length = std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s",
                                     directory, name.c_str());
    return length > 0 && static_cast<std::size_t>(length) < sizeof address.sun_path;
}

sockaddr const* Generic(sockaddr_un const& address) noexcept {
    return reinterpret_cast<sockaddr const*>(&address);
}

Descriptor NewSocket() noexcept {
    return Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

// Unique even if the system reuses process numbers.
std::string NewName() {
    static unsigned count = 0;
    auto const now = std::chrono::system_clock::now().time_since_epoch().count();
    return std::to_string(getpid()) + '-' + std::to_string(++count) + '-' + std::to_string(now);
}

struct CloseDirectory {
    void operator()(DIR* directory) const noexcept { closedir(directory); }
};

std::vector<std::string> NamesIn(int directory) {
    // Needs its own descriptor, since reading moves the position in the directory.
    std::unique_ptr<DIR, CloseDirectory> const list(
        fdopendir(openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
    std::vector<std::string> names;
    if (list == nullptr) return names;
    while (dirent const* const entry = readdir(list.get())) names.emplace_back(entry->d_name);
    std::ranges::sort(names);
    return names;
}

}  // namespace

bool MeetingPlace::Open() {
    std::string const name = DirectoryName();
    if (name.empty()) return false;
    if (mkdir(name.c_str(), S_IRWXU) != 0 && errno != EEXIST) return false;
    Descriptor directory(open(name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!directory || fstat(directory.Number(), &status) != 0 || !IsPrivate(status)) return false;
    directory_ = std::move(directory);
    return true;
}

Descriptor MeetingPlace::Listen(std::string& name) const {
    std::string const finished = NewName();
    std::string const unfinished = Unfinished + finished;
    sockaddr_un address{};
    Descriptor listener = NewSocket();
    if (!listener || !FillAddress(address, directory_.Number(), unfinished)) return {};
    if (bind(listener.Number(), Generic(address), sizeof address) != 0) return {};
    // Renamed only when it is private and listens: a named socket that refuses connections belongs to a
    // program that has ended.
    if (fchmodat(directory_.Number(), unfinished.c_str(), S_IRUSR | S_IWUSR, 0) != 0 ||
        listen(listener.Number(), Backlog) != 0 ||
        renameat(directory_.Number(), unfinished.c_str(), directory_.Number(), finished.c_str()) != 0) {
        unlinkat(directory_.Number(), unfinished.c_str(), 0);
        return {};
    }
    name = finished;
    return listener;
}

void MeetingPlace::Remove(std::string const& name) const { unlinkat(directory_.Number(), name.c_str(), 0); }

std::vector<Descriptor> MeetingPlace::CallAll() const {
    std::vector<Descriptor> calls;
    for (std::string const& name : NamesIn(directory_.Number())) {
        struct stat status {};
        if (fstatat(directory_.Number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) continue;
        if (!S_ISSOCK(status.st_mode) || status.st_uid != geteuid()) continue;
        if (name.front() == Unfinished) {
            if (status.st_mtime + UnfinishedLimit < time(nullptr)) Remove(name);
        } else if (IsPrivate(status)) {
            if (Descriptor call = Call(name)) calls.push_back(std::move(call));
        }
    }
    return calls;
}

Descriptor MeetingPlace::Call(std::string const& name) const {
    sockaddr_un address{};
    Descriptor call = NewSocket();
    if (!call || !FillAddress(address, directory_.Number(), name)) return {};
    if (connect(call.Number(), Generic(address), sizeof address) != 0) {
        if (errno == ECONNREFUSED) Remove(name);
        return {};
    }
    int process = 0;
    if (!IsPeerOfUser(call.Number(), process)) return {};
    return call;
}

Descriptor AcceptPeer(int listener) {
    Descriptor peer(accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    int process = 0;
    if (!peer || IsPeerOfUser(peer.Number(), process)) return peer;
    errno = EACCES;
    return {};
}

bool IsPeerOfUser(int socket, int& process) {
    ucred credentials{};
    socklen_t length = sizeof credentials;
    if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &credentials, &length) != 0) return false;
    process = credentials.pid;
    return credentials.uid == geteuid();
}

}  // namespace platform::detail
