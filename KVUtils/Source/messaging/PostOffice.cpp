#include "KVUtils/Source/messaging/PostOffice.h"

#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/messaging/detail/ApplicationList.h"
#include "KVUtils/Source/messaging/detail/MessageDispatcher.h"
#include "KVUtils/Source/messaging/detail/MessageWire.h"
#include "KVUtils/Source/messaging/detail/ServerLock.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/ui/Window.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>
#include <thread>
#include <utility>

namespace kv {

namespace {

constexpr unsigned short IdlePriority = 1;
constexpr long NoApplication = std::numeric_limits<int>::max();

constexpr unsigned char Done = 0;
constexpr unsigned char Refused = 1;
constexpr unsigned char NotHandled = 2;

// Of the protocol; older clients get their own back and send no language.
constexpr unsigned char Version = 3;
// So that the answer to the last DISCONNECT arrives before the conversations end.
constexpr auto LingerOfServer = std::chrono::seconds(1);

sv::Window* TopWindow() { return RegisterTopWindow::GetActiveTopWindow(); }

void InformUser(sv::String const& text) { sv::InfoBox(TopWindow(), text).Execute(); }

/// Shows during its lifetime that the program waits, if there is a window to show it on.
class BusyWindow {
  public:
    explicit BusyWindow(DisEnable mode)
        : isOn_(mode != DisEnable::Nothing && TopWindow() != nullptr),
          disables_(isOn_ && (mode == DisEnable::DisableWindow || mode == DisEnable::DisableDialog)),
          wasDisabled_(TopWindow() != nullptr && !TopWindow()->IsEnabled()),
          wasWaiting_(sv::Application::IsWait()) {
        if (isOn_) sv::Application::Wait(true);
        if (disables_) TopWindow()->Disable();
    }
    BusyWindow(BusyWindow const&) = delete;
    BusyWindow& operator=(BusyWindow const&) = delete;
    ~BusyWindow() {
        if (isOn_) sv::Application::Wait(wasWaiting_);
        // The window that is active now: the one before may have been closed.
        if (disables_ && !wasDisabled_ && TopWindow() != nullptr) TopWindow()->Enable();
    }

  private:
    bool isOn_;
    bool disables_;
    bool wasDisabled_;
    bool wasWaiting_;
};

}  // namespace

static_assert(PostOffice::AnswerOffset == detail::AnswerOffset);

constinit PostOffice* PostOffice::instance_ = nullptr;
constinit PostOffice* PostOffice::receiver_ = nullptr;

PostOffice* PostOffice::CreatePostOffice(sv::String const& name) {
    return Create(instance_, [&name] { return new PostOffice(name); });
}

PostOffice* PostOffice::Instance() { return InstanceOrNull(instance_, "PostOffice"); }

PostOffice::PostOffice(sv::String const& name)
    : ownName_(name),
      lock_(std::make_unique<detail::ServerLock>()),
      dispatcher_(
          std::make_unique<detail::MessageDispatcher>(*lock_, sv::Link::To<&PostOffice::DefaultHdl>(*this))),
      applications_(std::make_unique<detail::ApplicationList>()) {
    auto const directoryOf = [](sv::String const& program) -> std::optional<sv::String> {
        sv::String const* const path =
            receiver_->GetPath(static_cast<unsigned>(receiver_->GetAppNr(program)));
        return path == nullptr ? std::nullopt : std::optional(*path);
    };
    receiver_ = this;
    transport_ = std::make_unique<DDE>(name.GetStr(), DDEServices{&Decode, directoryOf, &ConversationEnded});
    transport_->SetReceiveFunction(receive_);
    if (!IsHQMServer()) *applications_ = detail::ApplicationList::OfTheSuite();
    sv::Application::InsertIdleHdl(sv::Link::To<&PostOffice::IdleHdl>(*this), IdlePriority);
}

PostOffice::~PostOffice() {
    sv::Application::RemoveIdleHdl(sv::Link::To<&PostOffice::IdleHdl>(*this));
    transport_.reset();
    receiver_ = instance_ = nullptr;
}

sv::String PostOffice::NameOfMessage(long number) { return detail::NameOfMessage(number); }

int PostOffice::NumberOfMessage(sv::String const& name) { return detail::NumberOfMessage(name); }

int PostOffice::NumberOfCommand(KORVELEvent const& event) {
    sv::String const name = event.GetCommandName();
    int const number = NumberOfMessage(name);
    sv::String const plain = detail::NameWithoutPrefix(name);
    if (number == -1 && !plain.IsEmpty()) InformUser("The command " + plain + "is not implemented!");
    return number;
}

unsigned char PostOffice::Send(sv::String& target, sv::String& message, MyMemoryBlock& data) {
    if (message.IsNumeric()) message = NameOfMessage(message.ToLong());
    if (message.IsEmpty()) return 0;
    if (target.IsNumeric()) {
        sv::String const* const name =
            GetAppName(static_cast<unsigned>(std::min(target.ToLong(), NoApplication)));
        if (name == nullptr) return 0;
        target = sv::String(*name);
    }
    Encode(data);
    return transport_->Send(target.GetStr(), message.GetStr(), data.GetDatenZeiger(), data.Len());
}

unsigned char PostOffice::SendAndReceive(int app, int message, MyMemoryBlock& data, MyMemoryBlock& answer,
                                         DisEnable mode) {
    BusyWindow const busy(mode);
    sv::String target(app);
    sv::String name(message);
    if (Send(target, name, data) == 0) return 0;
    // Intentional: there is no timeout, since a measurement takes as long as it takes and the window stays
    // alive. An answer of this number that came earlier counts.
    while (lastAnswerNumber_ != message + AnswerOffset) sv::Application::Reschedule();
    answer = lastAnswer_;
    lastAnswerNumber_ = 0;
    return 1;
}

unsigned char PostOffice::Answer(KORVELEvent* event, MyMemoryBlock& data) { return SendAnswer(*event, data); }

unsigned char PostOffice::SendAnswer(KORVELEvent const& event, MyMemoryBlock& data) {
    sv::String target = event.GetSender();
    sv::String name = detail::AnswerName(event.GetCommandName());
    return Send(target, name, data);
}

unsigned char PostOffice::AnswerByte(KORVELEvent const& event, unsigned char byte) {
    MyMemoryBlock data;
    data << byte;
    return SendAnswer(event, data);
}

sv::Link PostOffice::ChangeMessageHdl(unsigned message, sv::Link const& handler, unsigned char normal) {
    return dispatcher_->ChangeHandler(message, handler, normal != 1);
}

PostOffice::ReceiveFunction PostOffice::ChangeReceiveFunction(ReceiveFunction receive) {
    transport_->SetReceiveFunction(receive);
    return std::exchange(receive_, receive);
}

void PostOffice::DummyReceiveFunction(KORVELEvent& event) {
    if (receiver_ != nullptr) receiver_->CommunicationReceiveFunction(event);
}

void PostOffice::CommunicationReceiveFunction(KORVELEvent& event) {
    int const number = NumberOfCommand(event);
    if (number == -1) return RefuseUnknown(event);
    if (number >= AnswerOffset) return KeepAnswer(event, number);
    if (number == CONNECT) return Connect(event);
    // Intentional: counted before the lock may refuse it, since the client exits in any case.
    if (number == DISCONNECT) CountDisconnect(event.GetSender());
    if (!lock_->Allows(event.GetSender())) {
        AnswerByte(event, Refused);
        return;
    }
    if (number == DISCONNECT && IsHQMServer()) {
        dispatcher_->Handler(DISCONNECT).Call(&event);
        return QuitAfterLastClient();
    }
    if (number == LOCK) Lock(event);
    if (number == UNLOCK) lock_->Release();
    dispatcher_->Put(event);
    BotschaftenHandler(nullptr);
}

void PostOffice::RefuseUnknown(KORVELEvent const& event) {
    if (!detail::IsAnswerToAnswer(event.GetCommandName())) AnswerByte(event, Refused);
}

void PostOffice::KeepAnswer(KORVELEvent const& event, int number) {
    // Intentional: one answer is held, and a caller that waits for another one continues to wait.
    lastAnswer_ = event.GetData();
    lastAnswerNumber_ = number;
}

void PostOffice::Connect(KORVELEvent const& event) {
    ++connectedClients_;
    ++connections_[event.GetSender()];
    MyMemoryBlock data = event.GetData();
    unsigned char version = 0;
    data >> version;
    if (version == 0) data >> version;
    if (version >= Version) {
        short countryCode = 0;
        data >> countryCode;
        Language::SetLanguageByCountryCode(static_cast<unsigned short>(countryCode));
    }
    AnswerByte(event, std::min(version, Version));
}

void PostOffice::CountDisconnect(sv::String const& client) {
    --connectedClients_;
    auto const connection = connections_.find(client);
    if (connection != connections_.end() && --connection->second == 0) connections_.erase(connection);
}

void PostOffice::QuitAfterLastClient() const {
    if (connectedClients_ > 0) return;
    std::this_thread::sleep_for(LingerOfServer);
    sv::Application::Quit();
}

void PostOffice::Lock(KORVELEvent const& event) {
    MyMemoryBlock data = event.GetData();
    unsigned char showsWaiting = 0;
    data >> showsWaiting;
    lock_->Take(event.GetSender(), showsWaiting != 0);
}

long PostOffice::BotschaftenHandler(void* /*sender*/) {
    if (dispatcher_->IsEmpty()) return 0;
    dispatcher_->Run();
    return 1;
}

// Answers 0 when nothing that is queued may run, so that the event loop sleeps under a lock.
long PostOffice::IdleHdl(void* /*sender*/) {
    ReportGonePeers();
    return dispatcher_->Run() > 0 ? 1 : 0;
}

long PostOffice::DefaultHdl(KORVELEvent* event) {
    bool const isOfProtocol = NumberOfMessage(event->GetCommandName()) <= UNLOCK;
    if (AnswerByte(*event, isOfProtocol ? Done : NotHandled) == 0)
        InformUser("Answer failed in PostOffice::DefaultHdl()!");
    return 0;
}

sv::Link PostOffice::ChangePeerGoneHdl(sv::Link const& handler) { return std::exchange(peerGone_, handler); }

void PostOffice::ConversationEnded(sv::String const& peer) {
    if (receiver_ != nullptr && receiver_->peerGone_.IsSet()) receiver_->endedPeers_.push_back(peer);
}

void PostOffice::ReportGonePeers() {
    for (sv::String& peer : std::exchange(endedPeers_, {})) {
        if (!transport_->HasConversationWith(peer)) peerGone_.Call(&peer);
    }
}

void PostOffice::ReleasePeer(sv::String const& peer) {
    lock_->ReleaseAll(peer);
    if (auto const connection = connections_.find(peer); connection != connections_.end()) {
        connectedClients_ -= connection->second;
        connections_.erase(connection);
        if (IsHQMServer()) QuitAfterLastClient();
    }
    BotschaftenHandler(nullptr);
}

void PostOffice::Encode(MyMemoryBlock& block) { detail::EncodePayload(block); }
void PostOffice::Decode(MyMemoryBlock& block) { detail::DecodePayload(block); }

unsigned char PostOffice::LockApplication() noexcept { return dispatcher_->Lock() ? 1 : 0; }
void PostOffice::UnlockApplication() noexcept { dispatcher_->Unlock(); }
unsigned char PostOffice::IsAppLocked() const noexcept { return dispatcher_->IsLocked() ? 1 : 0; }

int PostOffice::NewApp(sv::String const& path, sv::String const& name) {
    return applications_->Add(path, name);
}
unsigned char PostOffice::DeleteApp(int number) { return applications_->Empty(number) ? 1 : 0; }
int PostOffice::GetAppNr(sv::String const& name) const noexcept { return applications_->Find(name); }
int PostOffice::GetAnzahlApp() const noexcept { return applications_->Count(); }
sv::String* PostOffice::GetAppName(unsigned number) const noexcept { return applications_->Name(number); }
sv::String* PostOffice::GetPath(unsigned number) const noexcept { return applications_->Path(number); }

bool PostOffice::IsHQMServer() const {
    sv::String const name = sv::String(ownName_).Upper();
    return name == "ZEPHYROSERVER" || name == "HQMSERV";
}

}  // namespace kv
