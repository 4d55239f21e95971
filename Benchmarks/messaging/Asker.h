// The side of the message benchmarks that asks: its peers, its processor, its place among them.
#pragma once

#include "Platform/Tests/RuntimeDirectory.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <sched.h>
#include <string>
#include <sys/types.h>
#include <vector>

namespace bench {

/// A program that lives as long as this, started and ready to be asked.
class Peer {
  public:
    /// A BenchPeer in this role.
    explicit Peer(std::vector<std::string> role);
    /// Another program by its name.
    Peer(std::string const& program, std::vector<std::string> arguments);
    Peer(Peer const&) = delete;
    Peer& operator=(Peer const&) = delete;
    ~Peer();

    /// What it said when it was ready.
    [[nodiscard]] std::string const& FirstLine() const noexcept { return firstLine_; }

  private:
    pid_t id_ = -1;
    std::string firstLine_;
};

/// This process, and those that start meanwhile, share one processor: across two idle ones a wake-up costs
/// more than the message, and how much more is chance.
class OneProcessor {
  public:
    OneProcessor();
    OneProcessor(OneProcessor const&) = delete;
    OneProcessor& operator=(OneProcessor const&) = delete;
    ~OneProcessor() { sched_setaffinity(0, sizeof before_, &before_); }

  private:
    cpu_set_t before_{};
};

/// Where the programs of one measurement meet, and nobody else.
struct Place {
    OneProcessor processor;
    tests::RuntimeDirectory directory;

    /// A name for a socket, a bus or a file.
    [[nodiscard]] std::string Name(char const* name) const { return (directory.Path() / name).string(); }
};

/// A BenchPeer at the other end of a socket.
class PeerOnSocket {
  public:
    PeerOnSocket(char const* role, std::size_t size);
    PeerOnSocket(PeerOnSocket const&) = delete;
    PeerOnSocket& operator=(PeerOnSocket const&) = delete;
    ~PeerOnSocket();
    [[nodiscard]] int Socket() const noexcept { return socket_; }

  private:
    int socket_ = -1;
    std::optional<Peer> peer_;
};

/// Runs something within a handler of the application's event loop, with a post office that has the
/// measuring server, a BenchPeer, as application 0. False when that could not be asked.
bool RunInOffice(Place const& place, std::function<void()> const& work);

/// Sends a request to the measuring server and waits for the answer. False when it could not be sent.
bool Ask(int message, std::vector<char> const& payload);

}  // namespace bench
