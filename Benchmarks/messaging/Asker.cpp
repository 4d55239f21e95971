#include "Benchmarks/messaging/Asker.h"

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "SV/core/Application.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace bench {

namespace {

std::string ReadLine(int descriptor) {
    std::string line;
    for (char c = 0; read(descriptor, &c, 1) == 1 && c != '\n';) line += c;
    return line;
}

// Destroys a service before the program exits.
template <class Singleton>
void Discard(Singleton* singleton) {
    kv::KVSingleton::Destroy(singleton);
}

}  // namespace

Peer::Peer(std::vector<std::string> role) : Peer(KV_BENCH_PEER, std::move(role)) {}

Peer::Peer(std::string const& program, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), program);
    std::vector<char*> pointers;
    std::ranges::transform(arguments, std::back_inserter(pointers),
                           [](std::string& word) { return word.data(); });
    pointers.push_back(nullptr);
    std::array<int, 2> output{};
    if (pipe2(output.data(), O_CLOEXEC) != 0) throw std::runtime_error("pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    // The bus daemon complains when the limit of descriptors is low.
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    int const error = posix_spawnp(&id_, program.c_str(), &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(output[1]);
    if (error == 0) firstLine_ = ReadLine(output[0]);
    close(output[0]);
    if (firstLine_.empty()) throw std::runtime_error(program + " does not start");
}

Peer::~Peer() {
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
}

OneProcessor::OneProcessor() {
    sched_getaffinity(0, sizeof before_, &before_);
    int first = 0;
    while (CPU_ISSET(first, &before_) == 0) ++first;
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(first, &one);
    sched_setaffinity(0, sizeof one, &one);
}

PeerOnSocket::PeerOnSocket(char const* role, std::size_t size) {
    std::array<int, 2> sockets{};
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, sockets.data()) != 0) throw std::runtime_error("socketpair");
    socket_ = sockets[0];
    fcntl(socket_, F_SETFD, FD_CLOEXEC);
    peer_.emplace(std::vector<std::string>{role, std::to_string(sockets[1]), std::to_string(size)});
    close(sockets[1]);
}

PeerOnSocket::~PeerOnSocket() { close(socket_); }

bool RunInOffice(Place const& place, std::function<void()> const& work) {
    Peer const server({"office"});
    kv::KORVELConfig::CreateKORVELConfig(place.Name("KORVEL.INI").c_str());
    kv::KORVELConfig::WriteKORVELKey(kv::KORVELiniGroup::HqmServer, "Path", "/HQMSERV");
    kv::PostOffice::CreatePostOffice("BENCH");
    static std::function<void()> const* inLoop = nullptr;
    inLoop = &work;
    sv::Application::SetUserEventHdl([](unsigned long id, void* data) {
        kv::DDE::UserEvent(id, data);
        if (id == kv::DDE::UserEventId) return;
        (*inLoop)();
        sv::Application::Quit();
    });
    bool const isThere = Ask(kv::CONNECT, {1});
    if (isThere) {
        sv::Application::PostUserEvent(0, nullptr);
        sv::Application::Execute();
    }
    sv::Application::SetUserEventHdl(nullptr);
    Discard(kv::PostOffice::Instance());
    Discard(kv::KORVELConfig::Instance());
    return isThere;
}

bool Ask(int message, std::vector<char> const& payload) {
    kv::MyMemoryBlock data(static_cast<long>(payload.size()));
    kv::MyMemoryBlock answer;
    data.Put(payload.data(), static_cast<long>(payload.size()));
    return kv::PostOffice::Instance()->SendAndReceive(0, message, data, answer, kv::DisEnable::Nothing) != 0;
}

}  // namespace bench
