#include "KVUtils/Source/messaging/DDE.h"

#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/frame/Language.h"
#include "Platform/Ddeml.h"
#include "Platform/Process.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <utility>

namespace kv {

namespace {

constexpr char SenderEnd = ':';
constexpr std::size_t ItemSize = 40;  // with its zero: a message's name is cut to 39 characters
constexpr std::size_t LongestCommand = 500;

void ShowError(char const* text) {
    sv::ErrorBox(RegisterTopWindow::GetActiveTopWindow(), sv::WB_OK, text).Execute();
}

/// A string handle that is freed with its owner.
class StringHandle {
  public:
    StringHandle(std::uint32_t instance, char const* text)
        : instance_(instance),
          handle_(platform::DdeCreateStringHandleA(instance, text, platform::CP_WINANSI)) {}
    StringHandle(StringHandle const&) = delete;
    StringHandle& operator=(StringHandle const&) = delete;
    ~StringHandle() {
        if (handle_ != nullptr) platform::DdeFreeStringHandle(instance_, handle_);
    }
    [[nodiscard]] platform::HSZ Get() const noexcept { return handle_; }

  private:
    std::uint32_t instance_;
    platform::HSZ handle_;
};

/// The process's instance, or one of its own for as long as it lives; 0 when the system refuses.
class ProbeInstance {
  public:
    explicit ProbeInstance(std::uint32_t existing) : instance_(existing), isOwn_(existing == 0) {
        auto const refuseAll = [](unsigned, unsigned, platform::HCONV, platform::HSZ, platform::HSZ,
                                  platform::HDDEDATA, std::uintptr_t,
                                  std::uintptr_t) -> platform::HDDEDATA { return nullptr; };
        if (isOwn_ && platform::DdeInitializeA(&instance_, refuseAll, 0, 0) != platform::DMLERR_NO_ERROR)
            instance_ = 0;
    }
    ProbeInstance(ProbeInstance const&) = delete;
    ProbeInstance& operator=(ProbeInstance const&) = delete;
    ~ProbeInstance() {
        if (isOwn_ && instance_ != 0) platform::DdeUninitialize(instance_);
    }
    [[nodiscard]] std::uint32_t Get() const noexcept { return instance_; }

  private:
    std::uint32_t instance_;
    bool isOwn_;
};

bool Poke(platform::HCONV conversation, MyMemoryBlock& frame, platform::HSZ item) {
    return platform::DdeClientTransaction(frame.GetDatenZeiger(), static_cast<std::uint32_t>(frame.Len()),
                                          conversation, item, platform::CF_TEXT, platform::XTYP_POKE,
                                          platform::TIMEOUT_ASYNC, nullptr) != nullptr;
}

/// In UTF-8. The name is decoded like that of a file; the options keep their slashes.
std::string CommandLine(sv::String const& program) {
    return sv::NativePath(program) + (program == "QBLFWIN" ? " /WM" : "") + " -S -LNG " +
           std::to_string(Language::GetCountryCode());
}

}  // namespace

constinit std::uint32_t DDE::instance_ = 0;
constinit DDE* DDE::theDDE_ = nullptr;
constinit std::unique_ptr<KORVELEvent> DDE::pending_;

DDE::DDE(char const* name, DDEServices const& services) : services_(services) {
    if (theDDE_ != nullptr) {
        ShowError("Es kann nur Einen geben.  (von der Klasse DDE)");
        sv::Application::Quit();
        return;
    }
    theDDE_ = this;
    if (platform::DdeInitializeA(&instance_, &CallbackFunktion, 0, 0) != platform::DMLERR_NO_ERROR) {
        ShowError("DDE-Server kann nicht initialisiert werden.");
        sv::Application::Quit();
        return;
    }
    Register(name);
}

void DDE::Register(char const* name) {
    auto const handle = [](char const* text) {
        return platform::DdeCreateStringHandleA(instance_, text, platform::CP_WINANSI);
    };
    service_ = handle(ServiceName);
    platform::DdeNameService(instance_, service_, nullptr, platform::DNS_REGISTER);
    instanceName_ = sv::String(name) + '_' + sv::String(std::time(nullptr));
    instanceTopic_ = handle(instanceName_.GetStr());
    plainTopic_ = handle(name);
}

DDE::~DDE() {
    if (theDDE_ != this) return;  // a copy, or a second object
    theDDE_ = nullptr;
    for (Conversations* const list : {&clients_, &servers_}) {
        for (; !list->empty(); list->pop_back()) platform::DdeDisconnect(list->back().conversation);
    }
    if (instance_ == 0) return;
    platform::DdeNameService(instance_, service_, nullptr, platform::DNS_UNREGISTER);
    for (platform::HSZ const handle : {plainTopic_, instanceTopic_, service_}) {
        if (handle != nullptr) platform::DdeFreeStringHandle(instance_, handle);
    }
    platform::DdeUninitialize(std::exchange(instance_, 0));
}

bool DDE::IsSupported() { return ProbeInstance(instance_).Get() != 0; }

bool DDE::IsReachable(sv::String const& topic) {
    ProbeInstance const probe(instance_);
    if (probe.Get() == 0) return false;
    StringHandle const service(probe.Get(), ServiceName);
    StringHandle const topicHandle(probe.Get(), topic.GetStr());
    platform::HCONV const conversation =
        platform::DdeConnect(probe.Get(), service.Get(), topicHandle.Get(), nullptr);
    return conversation != nullptr && platform::DdeDisconnect(conversation);
}

unsigned char DDE::Send(char const* target, char const* item, void const* data, long length,
                        char const* topic) {
    if (instance_ == 0 || service_ == nullptr) return 0;
    StringHandle const itemHandle(instance_, item);
    if (itemHandle.Get() == nullptr) return 0;
    MyMemoryBlock frame = Frame(data, length, topic == nullptr);
    if (std::cmp_greater(frame.Len(), platform::DdeLargestData))
        return 0;  // no reason to give up a conversation
    if (PokeOverOpen(target, frame, itemHandle.Get())) return 1;

    platform::HCONV const conversation = Connect(target, topic);
    if (conversation == nullptr) return 0;
    clients_.push_back({target, conversation});
    return Poke(conversation, frame, itemHandle.Get()) ? 1 : 0;
}

MyMemoryBlock DDE::Frame(void const* data, long length, bool withSender) const {
    MyMemoryBlock frame(static_cast<long>(instanceName_.Len()) + 1 + length);
    if (withSender) frame << instanceName_.GetStr() << SenderEnd;
    frame.Put(data, length);
    return frame;
}

bool DDE::PokeOverOpen(std::string_view target, MyMemoryBlock& frame, platform::HSZ item) {
    for (std::size_t i = clients_.size(); i-- > 0;) {
        if (clients_[i].name.View() != target) continue;
        if (Poke(clients_[i].conversation, frame, item)) return true;
        // Intentional: it leaves the list without being disconnected, since its peer has ended it already.
        clients_.erase(clients_.begin() + static_cast<std::ptrdiff_t>(i));
        ReportEnd(sv::String(target));
    }
    return false;
}

platform::HCONV DDE::Connect(char const* target, char const* topic) const {
    StringHandle const service(instance_, topic == nullptr ? ServiceName : target);
    StringHandle const topicHandle(instance_, topic == nullptr ? target : topic);
    if (service.Get() == nullptr || topicHandle.Get() == nullptr) return nullptr;
    auto const attempt = [&] {
        return platform::DdeConnect(instance_, service.Get(), topicHandle.Get(), nullptr);
    };
    if (platform::HCONV const conversation = attempt()) return conversation;
    // Intentional: one attempt immediately after the start, without waiting, so that no sender hangs on a
    // slow program.
    return StartPeer(topic == nullptr ? target : topic) ? attempt() : nullptr;
}

bool DDE::StartPeer(sv::String const& program) const {
    std::optional<std::string> directory;
    if (services_.directoryOf != nullptr) {
        if (auto const known = services_.directoryOf(program)) directory = sv::NativePath(*known);
    }
    return platform::StartProgram(CommandLine(program), directory);
}

platform::HDDEDATA DDE::CallbackFunktion(unsigned transaction, unsigned /*format*/,
                                         platform::HCONV conversation, platform::HSZ string1,
                                         platform::HSZ string2, platform::HDDEDATA data,
                                         std::uintptr_t /*value1*/, std::uintptr_t /*value2*/) {
    using platform::DdeAnswer;
    if (transaction == platform::XTYP_ERROR) ShowError("A DDE error occured!");
    if (theDDE_ == nullptr) return nullptr;  // a last transaction while the process exits
    switch (transaction) {
        case platform::XTYP_CONNECT:
            return DdeAnswer(theDDE_->Accepts(string1, string2) ? 1 : 0);
        case platform::XTYP_CONNECT_CONFIRM:
            theDDE_->servers_.push_back({{}, conversation});
            return nullptr;
        case platform::XTYP_DISCONNECT:
            theDDE_->EndConversation(conversation);
            return nullptr;
        case platform::XTYP_EXECUTE:
            return DdeAnswer(theDDE_->Execute(data) ? platform::DDE_FACK : 0);
        case platform::XTYP_POKE:
            theDDE_->Receive(conversation, string2, data);
            return DdeAnswer(platform::DDE_FACK);
        default:
            return nullptr;
    }
}

bool DDE::Accepts(platform::HSZ topic, platform::HSZ service) const {
    auto const same = [](platform::HSZ left, platform::HSZ right) {
        return platform::DdeCmpStringHandles(left, right) == 0;
    };
    return same(service, service_) && (same(topic, instanceTopic_) || same(topic, plainTopic_));
}

void DDE::EndConversation(platform::HCONV conversation) {
    for (Conversations* const list : {&clients_, &servers_}) {
        for (std::size_t i = list->size(); i-- > 0;) {
            if ((*list)[i].conversation != conversation) continue;
            sv::String const peer = (*list)[i].name;
            // Erased first, since the system may report the end of the conversation from within.
            list->erase(list->begin() + static_cast<std::ptrdiff_t>(i));
            platform::DdeDisconnect(conversation);
            i = std::min(i, list->size());
            ReportEnd(peer);
        }
    }
}

void DDE::ReportEnd(sv::String const& peer) const {
    if (!peer.IsEmpty() && services_.conversationEnded != nullptr) services_.conversationEnded(peer);
}

bool DDE::HasConversationWith(sv::String const& peer) const {
    auto const isIn = [&](Conversations const& list) {
        return std::ranges::find(list, peer, &ConversationEntry::name) != list.end();
    };
    return isIn(clients_) || isIn(servers_);
}

bool DDE::Execute(platform::HDDEDATA command) const {
    if (execute_ == nullptr) return false;
    std::array<unsigned char, LongestCommand + 1> buffer{};
    platform::DdeGetData(command, buffer.data(), LongestCommand, 0);
    execute_(buffer.data());
    return true;
}

void DDE::Receive(platform::HCONV conversation, platform::HSZ item, platform::HDDEDATA data) {
    std::array<char, ItemSize> name{};
    platform::DdeQueryStringA(instance_, item, name.data(), ItemSize, platform::CP_WINANSI);

    std::uint32_t length = 0;
    auto const* const start = reinterpret_cast<char const*>(platform::DdeAccessData(data, &length));
    std::string_view const bytes(start, start == nullptr ? 0 : length);
    std::size_t const end = std::min(bytes.find(SenderEnd), bytes.size());
    sv::String const sender(bytes.substr(0, end));
    MyMemoryBlock payload;
    if (end < bytes.size()) payload.Put(&bytes[end] + 1, static_cast<long>(bytes.size() - end - 1));
    platform::DdeUnaccessData(data);
    auto const entry = std::ranges::find(servers_, conversation, &ConversationEntry::conversation);
    if (entry != servers_.end()) entry->name = sender;
    if (services_.decode != nullptr) services_.decode(payload);

    // Intentional: there is one slot, and a message in it is replaced. The event loop takes in no second
    // message before it has delivered the first.
    pending_ = std::make_unique<KORVELEvent>(payload, sender, name.data());
    if (sv::Application::IsInExecute()) {
        sv::Application::PostUserEvent(UserEventId, nullptr);
    } else {
        DeliverPending();
    }
}

void DDE::UserEvent(unsigned long id, void* /*data*/) {
    if (id == UserEventId) DeliverPending();
}

void DDE::DeliverPending() {
    if (theDDE_ == nullptr || theDDE_->receive_ == nullptr) return;
    // A message that comes in while this one is handled must find the slot free.
    std::unique_ptr<KORVELEvent> const event = std::move(pending_);
    if (event != nullptr) theDDE_->receive_(*event);
}

}  // namespace kv
