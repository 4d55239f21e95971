// What becomes of a message that came in: the messages of the protocol itself, the locks, the queue.
#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "KVUtils/Source/messaging/detail/MessageWire.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/ui/Window.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace kv {

namespace {

constexpr unsigned char Done = 0;
constexpr unsigned char Refused = 1;
constexpr unsigned char NotHandled = 2;

constexpr unsigned char Version =
    3;  // of the protocol; older clients get their own back and send no language
constexpr auto LingerOfServer = std::chrono::seconds(1);

/// Gives a variable another value for a while, also when a handler throws.
template <class Value>
class Temporarily {
  public:
    Temporarily(Value& variable, Value value)
        : variable_(variable), before_(std::exchange(variable, value)) {}
    Temporarily(Temporarily const&) = delete;
    Temporarily& operator=(Temporarily const&) = delete;
    ~Temporarily() { variable_ = before_; }

  private:
    Value& variable_;
    Value before_;
};

/// Messages that must wait. They go back in front of what is queued at the end, also when a handler throws,
/// so that none is lost.
class WaitingQueue {
  public:
    explicit WaitingQueue(KORVELEventQueue& queue) : queue_(queue) {}
    WaitingQueue(WaitingQueue const&) = delete;
    WaitingQueue& operator=(WaitingQueue const&) = delete;
    ~WaitingQueue() {
        while (KORVELEvent* const rest = queue_.Get()) waiting_.Put(rest);
        std::swap(queue_, waiting_);
    }
    void Put(std::unique_ptr<KORVELEvent> event) { waiting_.Put(event.release()); }

  private:
    KORVELEventQueue& queue_;
    KORVELEventQueue waiting_;
};

void InformUser(sv::String const& text) {
    sv::InfoBox(RegisterTopWindow::GetActiveTopWindow(), text).Execute();
}

void EnableTopWindow(bool enable) {
    sv::Window* const window = RegisterTopWindow::GetActiveTopWindow();
    if (window != nullptr) window->Enable(enable);
}

}  // namespace

void PostOffice::DummyReceiveFunction(KORVELEvent& event) {
    if (receiver_ != nullptr) receiver_->CommunicationReceiveFunction(event);
}

int PostOffice::NumberOfCommand(KORVELEvent const& event) {
    sv::String const name = event.GetCommandName();
    int const number = detail::NumberOfMessage(name);
    sv::String const plain = detail::NameWithoutPrefix(name);
    if (number == -1 && !plain.IsEmpty()) InformUser("The command " + plain + "is not implemented!");
    return number;
}

void PostOffice::CommunicationReceiveFunction(KORVELEvent& event) {
    int const number = NumberOfCommand(event);
    if (number == -1) return RefuseUnknown(event);
    if (number >= detail::AnswerOffset) return KeepAnswer(event, number);
    if (number == CONNECT) return Connect(event);
    // Meant: counted before the lock may refuse it, since the client is gone in any case.
    if (number == DISCONNECT) --connectedClients_;
    if (!CheckLock(event.GetSender())) {
        AnswerByte(event, Refused);
        return;
    }
    if (number == DISCONNECT && IsHQMServer()) return Disconnected(event);
    if (number == LOCK) Lock(event);
    if (number == UNLOCK) Unlock();
    queue_.Put(std::make_unique<KORVELEvent>(event).release());
    BotschaftenHandler(nullptr);
}

unsigned char PostOffice::AnswerByte(KORVELEvent const& event, unsigned char byte) {
    MyMemoryBlock data;
    data << byte;
    return SendAnswer(event, data);
}

void PostOffice::RefuseUnknown(KORVELEvent const& event) {
    if (!detail::IsAnswerToAnswer(event.GetCommandName())) AnswerByte(event, Refused);
}

void PostOffice::KeepAnswer(KORVELEvent const& event, int number) {
    // Meant: one answer is held. Whoever waits for another goes on waiting.
    lastAnswer_ = event.GetData();
    lastAnswerNumber_ = number;
}

void PostOffice::Connect(KORVELEvent const& event) {
    ++connectedClients_;
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

void PostOffice::Disconnected(KORVELEvent& event) {
    if (handlers_[DISCONNECT].IsSet()) handlers_[DISCONNECT].Call(&event);
    if (connectedClients_ > 0) return;
    // Meant: the answer to the farewell has this long to arrive before the conversations end.
    std::this_thread::sleep_for(LingerOfServer);
    sv::Application::Quit();
}

void PostOffice::Lock(KORVELEvent const& event) {
    lockOwner_ = event.GetSender();
    MyMemoryBlock data = event.GetData();
    unsigned char showsWaiting = 0;
    data >> showsWaiting;
    if (showsWaiting != 0) {
        sv::Application::Wait(true);
        EnableTopWindow(false);
    }
    ++lockCount_;
}

void PostOffice::Unlock() {
    // Meant: an UNLOCK without a LOCK counts too, so the count can pass 0 and the next LOCK then takes two to
    // undo.
    if (--lockCount_ != 0) return;
    sv::Application::Wait(false);
    EnableTopWindow(true);
    lockOwner_ = Nobody;
}

bool PostOffice::IsOwned() const { return lockOwner_ != Nobody; }

bool PostOffice::CheckLock(sv::String const& sender) const { return !IsOwned() || sender == lockOwner_; }

long PostOffice::BotschaftenHandler(void* /*sender*/) {
    if (queue_.Count() == 0) return 0;
    RunQueue();
    return 1;
}

// Idle as long as nothing that is queued may run, so that the event loop sleeps under a lock.
long PostOffice::IdleHdl(void* /*sender*/) { return RunQueue() > 0 ? 1 : 0; }

unsigned long PostOffice::RunQueue() {
    return !inHandler_ && !IsOwned() && locked_ != 1 ? RunAll() : RunAllowed();
}

unsigned long PostOffice::RunAll() {
    // The flag keeps this loop from entering itself. Meant: messages that come in and locks that fall
    // meanwhile change nothing, the queue is emptied.
    Temporarily const locked(locked_, 1);
    unsigned long count = 0;
    for (; std::unique_ptr<KORVELEvent> const event = TakeFirst(); ++count) Run(*event);
    return count;
}

unsigned long PostOffice::RunAllowed() {
    WaitingQueue waiting(queue_);
    unsigned long count = 0;
    while (std::unique_ptr<KORVELEvent> event = TakeFirst()) {
        if (MayRun(*event)) {
            Run(*event);
            ++count;
        } else {
            waiting.Put(std::move(event));
        }
    }
    return count;
}

bool PostOffice::MayRun(KORVELEvent const& event) const {
    if ((atOnce_ & detail::NumberOfMessage(event.GetCommandName())) != 0) return true;
    return !inHandler_ && CheckLock(event.GetSender());
}

void PostOffice::Run(KORVELEvent& event) {
    Temporarily const handling(inHandler_, true);
    handlers_[static_cast<std::size_t>(detail::NumberOfMessage(event.GetCommandName()))].Call(&event);
}

long PostOffice::DefaultHdl(KORVELEvent* event) {
    bool const isOfProtocol = detail::NumberOfMessage(event->GetCommandName()) <= UNLOCK;
    if (AnswerByte(*event, isOfProtocol ? Done : NotHandled) == 0)
        InformUser("Answer failed in PostOffice::DefaultHdl()!");
    return 0;
}

}  // namespace kv
