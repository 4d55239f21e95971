// RezepturServer: a second, small endpoint beside the messages, with an instance of its own. A formula
// application creates it to take over a formula template from one peer at a time: the peer connects and
// pokes.
//
// The callbacks have no object to hand, so the state is the process's own and there is one server at a time.
// All of it belongs to the thread that creates the server, that of the user interface.
#pragma once

#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "Platform/Ddeml.h"
#include "SV/core/String.h"

#include <cstdint>

namespace sv {
class Window;
}

namespace kv {

/// A formula template as the peer poked it. What the bytes mean is between the applications.
struct DDERezepturVorlage {
    sv::String item;
    MyMemoryBlock data;
};

class RezepturServer {
  public:
    /// Registers the service. Each step that fails shows a box over `parent` and quits the application; the
    /// server can then only be destroyed.
    explicit RezepturServer(sv::Window* parent);
    RezepturServer(RezepturServer const&) = delete;
    RezepturServer& operator=(RezepturServer const&) = delete;
    /// Ends the conversation and unregisters.
    virtual ~RezepturServer();

    /// Called with each template that comes in. This one only tells the user.
    virtual void VerwendeVorlage(DDERezepturVorlage& vorlage);
};

/// The callback of the server: accepts one conversation at a time, and hands on what is poked.
platform::HDDEDATA ServerCallBack(unsigned transaction, unsigned format, platform::HCONV conversation,
                                  platform::HSZ topic, platform::HSZ serviceOrItem, platform::HDDEDATA data,
                                  std::uintptr_t value1, std::uintptr_t value2);

/// The callback for an application on the client's side: tells the user of errors and of the conversation's
/// end.
platform::HDDEDATA ClientCallBack(unsigned transaction, unsigned format, platform::HCONV conversation,
                                  platform::HSZ topic, platform::HSZ item, platform::HDDEDATA data,
                                  std::uintptr_t value1, std::uintptr_t value2);

}  // namespace kv
