#include "KVUtils/Source/messaging/PostOffice.h"

#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/messaging/detail/MessageWire.h"
#include "SV/core/Application.h"
#include "SV/ui/Window.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kv {

namespace {

constexpr unsigned short IdlePriority = 1;
constexpr int NoFlag = -2;
constexpr long NoApplication = std::numeric_limits<int>::max();

/// Shows that the program waits, as long as it lives and as far as there is a window to show it on.
class BusyWindow {
  public:
    explicit BusyWindow(DisEnable mode)
        : isOn_(mode != DisEnable::Nothing && Window() != nullptr),
          disables_(isOn_ && (mode == DisEnable::DisableWindow || mode == DisEnable::DisableDialog)),
          wasDisabled_(Window() != nullptr && !Window()->IsEnabled()),
          wasWaiting_(sv::Application::IsWait()) {
        if (isOn_) sv::Application::Wait(true);
        if (disables_) Window()->Disable();
    }
    BusyWindow(BusyWindow const&) = delete;
    BusyWindow& operator=(BusyWindow const&) = delete;
    ~BusyWindow() {
        if (isOn_) sv::Application::Wait(wasWaiting_);
        // The window in front now: the one before may have been closed meanwhile.
        if (disables_ && !wasDisabled_ && Window() != nullptr) Window()->Enable();
    }

  private:
    [[nodiscard]] static sv::Window* Window() noexcept { return RegisterTopWindow::GetActiveTopWindow(); }

    bool isOn_;
    bool disables_;
    bool wasDisabled_;
    bool wasWaiting_;
};

}  // namespace

constinit PostOffice* PostOffice::instance_ = nullptr;
constinit PostOffice* PostOffice::receiver_ = nullptr;

PostOffice* PostOffice::CreatePostOffice(sv::String const& name) {
    return Create(instance_, [&name] { return new PostOffice(name); });
}

PostOffice* PostOffice::Instance() { return InstanceOrNull(instance_, "PostOffice"); }

PostOffice::PostOffice(sv::String const& name) : ownName_(name), atOnce_(NoFlag, ANZAHL_BOTSCHAFTEN) {
    auto const directoryOf = [](sv::String const& program) -> std::optional<sv::String> {
        sv::String const* const path =
            receiver_->GetPath(static_cast<unsigned>(receiver_->GetAppNr(program)));
        return path == nullptr ? std::nullopt : std::optional(*path);
    };
    receiver_ = this;
    transport_ = std::make_unique<DDE>(name.GetStr(), DDEServices{&Decode, directoryOf});
    transport_->SetReceiveFunction(receive_);
    if (!IsHQMServer()) applications_ = detail::ApplicationList::OfTheSuite();
    handlers_.fill(sv::Link::To<&PostOffice::DefaultHdl>(*this));
    sv::Application::InsertIdleHdl(sv::Link::To<&PostOffice::IdleHdl>(*this), IdlePriority);
}

PostOffice::~PostOffice() {
    sv::Application::RemoveIdleHdl(sv::Link::To<&PostOffice::IdleHdl>(*this));
    transport_.reset();
    while (TakeFirst() != nullptr) {
    }
    receiver_ = instance_ = nullptr;
}

unsigned char PostOffice::Send(sv::String& target, sv::String& message, MyMemoryBlock& data) {
    if (message.IsNumeric()) message = detail::NameOfMessage(message.ToLong());
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
    // Meant: no limit of time. The window lives on, and a measurement takes as long as it takes. An answer of
    // this number that lies there from before counts.
    while (lastAnswerNumber_ != message + detail::AnswerOffset) sv::Application::Reschedule();
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

sv::Link PostOffice::ChangeMessageHdl(unsigned message, sv::Link const& handler, unsigned char normal) {
    if (message >= handlers_.size()) return {};
    if (normal == 1) {
        atOnce_.LoescheFlag(static_cast<int>(message));
    } else {
        atOnce_.SetFlag(static_cast<int>(message));
    }
    return std::exchange(handlers_[message], handler);
}

PostOffice::ReceiveFunction PostOffice::ChangeReceiveFunction(ReceiveFunction receive) {
    transport_->SetReceiveFunction(receive);
    return std::exchange(receive_, receive);
}

void PostOffice::Encode(MyMemoryBlock& block) { detail::EncodePayload(block); }
void PostOffice::Decode(MyMemoryBlock& block) { detail::DecodePayload(block); }

unsigned char PostOffice::LockApplication() noexcept {
    if (IsOwned() || locked_ == 1) return 0;
    locked_ = 1;
    return 1;
}

bool PostOffice::IsHQMServer() const {
    sv::String const name = sv::String(ownName_).Upper();
    return name == "ZEPHYROSERVER" || name == "HQMSERV";
}

}  // namespace kv
