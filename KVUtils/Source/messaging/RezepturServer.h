// RezepturServer: a second, small endpoint beside the post office, with an instance of its own. A formula
// application creates it to receive formula templates from one peer at a time: the peer connects and pokes.
//
// The callbacks have no object, so the state belongs to the process and there is one server at a time. All of
// it belongs to the thread that creates the server, that of the user interface.
#pragma once

#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "SV/core/String.h"

#include <cstdint>

namespace platform {
struct DdeConversationTag;
struct DdeDataTag;
struct DdeString;
}  // namespace platform

namespace sv {
class Window;
}

namespace kv {

/// A formula template as the peer poked it. The applications agree on what the bytes mean.
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

    /// Called with each template that comes in. This implementation only informs the user.
    virtual void VerwendeVorlage(DDERezepturVorlage& vorlage);
};

/// The callback of the server: accepts one conversation at a time, and passes on what is poked.
platform::DdeDataTag* ServerCallBack(unsigned transaction, unsigned format,
                                     platform::DdeConversationTag* conversation, platform::DdeString* topic,
                                     platform::DdeString* serviceOrItem, platform::DdeDataTag* data,
                                     std::uintptr_t value1, std::uintptr_t value2);

/// The callback for an application on the client's side: informs the user of errors and of the end of the
/// conversation.
platform::DdeDataTag* ClientCallBack(unsigned transaction, unsigned format,
                                     platform::DdeConversationTag* conversation, platform::DdeString* topic,
                                     platform::DdeString* item, platform::DdeDataTag* data,
                                     std::uintptr_t value1, std::uintptr_t value2);

}  // namespace kv
