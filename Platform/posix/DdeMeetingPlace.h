// DdeMeetingPlace: the directory in which the instances of one user find each other, with one listening
// socket each.
//
// It is `kvutils-dde` in $XDG_RUNTIME_DIR, or /tmp/kvutils-dde-UID if that variable does not name a
// directory. The directory and every socket in it must belong to the user and grant no one else access;
// others are left alone. The runtime directory must belong to the user and not be writable to others. Both
// ends of a connection verify the peer's user with the kernel.
#pragma once

#include "Platform/posix/Descriptor.h"

#include <string>
#include <vector>

namespace platform::detail {

class MeetingPlace {
  public:
    /// Creates the directory if necessary. Returns false, and changes nothing, if it is not private.
    [[nodiscard]] bool Open();

    /// Returns a listening socket and stores its unique name in `name`; none on failure.
    [[nodiscard]] Descriptor Listen(std::string& name) const;
    /// Removes the name of a socket.
    void Remove(std::string const& name) const;

    /// Connects to all listening sockets. Removes the sockets of programs that have ended.
    [[nodiscard]] std::vector<Descriptor> CallAll() const;

  private:
    [[nodiscard]] Descriptor Call(std::string const& name) const;

    Descriptor directory_;
};

/// Accepts the next peer of a listening socket; none, with `errno` set, if there is none or it belongs to
/// another user.
[[nodiscard]] Descriptor AcceptPeer(int listener);
/// Returns whether the peer is a program of this user, and stores its process number in `process`.
[[nodiscard]] bool IsPeerOfUser(int socket, int& process);

}  // namespace platform::detail
