// DdeMeetingPlace: the directory in which the instances of one user find each other, one listening socket
// each.
//
// It is `kvutils-dde` in $XDG_RUNTIME_DIR, or /tmp/kvutils-dde-UID where that variable names no directory. It
// must be the user's own and open to nobody else, and so must every socket in it; others are not touched. The
// runtime directory must be the user's own too, and nobody else's to write to. At both ends of a connection
// the kernel's word on who the peer is has to agree.
#pragma once

#include "Platform/posix/Descriptor.h"

#include <string>
#include <vector>

namespace platform::detail {

class MeetingPlace {
  public:
    /// Makes the directory when there is none. False, with nothing touched, when it is not private.
    [[nodiscard]] bool Open();

    /// A socket that listens under a name of its own, which goes into `name`; none on failure.
    [[nodiscard]] Descriptor Listen(std::string& name) const;
    /// Takes the name of a socket away, as long as it is this user's.
    void Remove(std::string const& name) const;

    /// Sockets that are being connected to everyone who listens. What dead programs left behind is cleaned
    /// up.
    [[nodiscard]] std::vector<Descriptor> CallAll() const;

  private:
    [[nodiscard]] Descriptor Call(std::string const& name) const;

    Descriptor directory_;
};

/// The next peer at a listening socket; none, and `errno` set, when there is none or it is of another user.
[[nodiscard]] Descriptor AcceptPeer(int listener);
/// Whether the other end is a program of this user, and its process.
[[nodiscard]] bool IsPeerOfUser(int socket, int& process);

}  // namespace platform::detail
