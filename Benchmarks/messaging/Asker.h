// The asking side of the message benchmarks: its peers, its processor, its meeting place.
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

/// A program, started and ready to be asked, which is killed by the destructor.
class Peer {
  public:
    /// Starts a BenchPeer in this role.
    explicit Peer(std::vector<std::string> role);
    /// Starts another program by its name.
    Peer(std::string const& program, std::vector<std::string> arguments);
    Peer(Peer const&) = delete;
    Peer& operator=(Peer const&) = delete;
    ~Peer();

    /// The line that it printed when it was ready.
    [[nodiscard]] std::string const& FirstLine() const noexcept { return firstLine_; }

  private:
    pid_t id_ = -1;
    std::string firstLine_;
};

/// Binds this process, and those that it starts, to one processor: a wake-up across two idle ones costs more
/// than the message, by a random amount.
class OneProcessor {
  public:
    OneProcessor();
    OneProcessor(OneProcessor const&) = delete;
    OneProcessor& operator=(OneProcessor const&) = delete;
    ~OneProcessor() { sched_setaffinity(0, sizeof before_, &before_); }

  private:
    cpu_set_t before_{};
};

/// A private place where the programs of one measurement meet.
struct Place {
    OneProcessor processor;
    tests::RuntimeDirectory directory;

    /// Returns a name for a socket, a bus or a file.
    [[nodiscard]] std::string Name(char const* name) const { return (directory.Path() / name).string(); }
};

/// A BenchPeer at the other end of a socket pair.
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

/// Runs `work` in a handler of the application's event loop, with a post office whose application 0, the
/// measuring server, is a BenchPeer. False if that could not be asked.
bool RunInOffice(Place const& place, std::function<void()> const& work);

/// Sends a request to the measuring server and waits for the answer. False if it could not be sent.
bool Ask(int message, std::vector<char> const& payload);

}  // namespace bench
