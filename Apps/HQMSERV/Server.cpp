#include "Apps/HQMSERV/Server.h"

#include "Apps/files/SuiteText.h"
#include "KVUtils/KVUtils.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace hqmserv {

namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned char AtOnce = 0;
constexpr unsigned char InTurn = 1;
/// The user event that comes when no client was there in time.
constexpr unsigned long LonelyEvent = 2002;

/// The texts of the display, by their places in the file.
enum DisplayText : unsigned long { NothingToMeasure, WhitePlease, Ready, EndOfChart };

using suite::operator<<;  // of conditions, which live in another namespace

/// An answer: its status, and its fields when that is Done.
template <class... Fields>
long Answer(kv::KORVELEvent* event, ServerStatus status, Fields const&... fields) {
    kv::MyMemoryBlock data;
    data << static_cast<unsigned char>(status);
    if (status == ServerStatus::Done) static_cast<void>((data << ... << fields));
    // Nobody is to be told when that fails: the asker is gone.
    kv::PostOffice::Instance()->Answer(event, data);
    return 0;
}

template <class... Fields>
long Answer(kv::KORVELEvent* event, Fields const&... fields) {
    return Answer(event, ServerStatus::Done, fields...);
}

long Answer(kv::KORVELEvent* event, std::string const& text) {
    return Answer(event, ServerStatus::Done, sv::String(files::ToSuite(text)));
}

long AnswerByte(kv::KORVELEvent* event, bool isSo) {
    return Answer(event, ServerStatus::Done, static_cast<unsigned char>(isSo ? 1 : 0));
}

/// In the language that the last client asked for.
sv::String TextOf(DisplayText number) {
    static int loaded = 0;
    int const language = kv::Language::GetCountryCode();
    if (language != std::exchange(loaded, language)) {
        kv::Text::FreeResources();
        sv::DirEntry const stem = kv::AppDir::Instance()->LngDirEntry() + "hqmserv";
        kv::Text::LoadText(stem.GetFull(), language);
    }
    return kv::TextSegment("HQMServer")[number];
}

}  // namespace

constinit Server* Server::theServer_ = nullptr;

template <auto Handler>
void Server::Handle(int message, unsigned char when) {
    auto const link = sv::Link::To<Handler>(*this);
    kv::PostOffice::Instance()->ChangeMessageHdl(static_cast<unsigned>(message), link, when);
}

Server::Server(Instrument instrument, Settings settings)
    : instrument_(std::move(instrument)), settings_(std::move(settings)) {
    theServer_ = this;
    Handle<&Server::VersionHdl>(kv::GET_SW_VERSION, AtOnce);
    Handle<&Server::DeviceNameHdl>(kv::GET_DEVICE_NAME, AtOnce);
    Handle<&Server::DeviceTypeHdl>(kv::GET_DEVICE_TYPE, AtOnce);
    Handle<&Server::SerialNumberHdl>(kv::GET_SERIE_NR, AtOnce);
    Handle<&Server::DisplayHdl>(kv::GET_DISPLAY_STRING, AtOnce);
    Handle<&Server::AppReadyHdl>(kv::IS_APP_READY, AtOnce);
    Handle<&Server::ReadyHdl>(kv::IS_READY, AtOnce);
    Handle<&Server::WhiteHdl>(kv::EXEC_WHITE_MEASUREMENT, InTurn);
    Handle<&Server::NewChartHdl>(kv::NEW_MEASURE_REQUEST, InTurn);
    Handle<&Server::MeasureHdl>(kv::EXEC_MEASUREMENT, InTurn);
    Handle<&Server::SpectrumHdl>(kv::SPECTRUM_REQUEST, InTurn);
    Handle<&Server::ParameterRequestHdl>(kv::PARAMETER_REQUEST, InTurn);
    Handle<&Server::ParameterDownloadHdl>(kv::PARAMETER_DOWNLOAD, InTurn);
    Handle<&Server::NotifyHdl>(kv::NOTIFY_MESSUNG, InTurn);
    Handle<&Server::NotifyOffHdl>(kv::NOTIFY_MESSUNG_AUS, InTurn);
    Handle<&Server::TriggerHdl>(kv::MESSUNG_AUSGELOEST, InTurn);
    for (int const message : {kv::LOCK, kv::UNLOCK, kv::DISCONNECT})
        Handle<&Server::ProtocolHdl>(message, InTurn);
    kv::PostOffice::Instance()->ChangePeerGoneHdl(sv::Link::To<&Server::PeerGoneHdl>(*this));
    sv::Application::SetUserEventHdl(&UserEvent);
    WaitForFirstClient();
}

Server::~Server() {
    kv::PostOffice::Instance()->ChangePeerGoneHdl({});
    theServer_ = nullptr;
}

void Server::WaitForFirstClient() {
    if (settings_.patience.count() == 0) return;
    patience_ = std::jthread([patience = settings_.patience](std::stop_token const& stop) {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait_for(lock, stop, patience, [] { return false; });
        if (!stop.stop_requested()) sv::Application::PostUserEvent(LonelyEvent, nullptr);
    });
}

void Server::UserEvent(unsigned long id, void* data) {
    kv::DDE::UserEvent(id, data);
    bool const isWaiting = theServer_ != nullptr && kv::PostOffice::Instance()->ConnectedClients() <= 0;
    if (id == LonelyEvent && isWaiting) sv::Application::Quit();
}

long Server::VersionHdl(Event* event) { return Answer(event, instrument_.Identity().softwareVersion); }
long Server::DeviceNameHdl(Event* event) { return Answer(event, instrument_.Identity().name); }
long Server::DeviceTypeHdl(Event* event) {
    return Answer(event, static_cast<short>(instrument_.Identity().type));
}
long Server::SerialNumberHdl(Event* event) { return Answer(event, instrument_.Identity().serialNumber); }
long Server::DisplayHdl(Event* event) { return Answer(event, Display()); }
long Server::AppReadyHdl(Event* event) { return AnswerByte(event, theServer_ == this); }
long Server::ReadyHdl(Event* event) { return AnswerByte(event, instrument_.Patches() > 0 && !isMeasuring_); }

long Server::WhiteHdl(Event* event) {
    Expose();
    return Answer(event, instrument_.MeasureWhite());
}

long Server::NewChartHdl(Event* event) {
    ServerStatus const status = instrument_.Restart();
    return Answer(event, status, instrument_.Patches());
}

long Server::MeasureHdl(Event* event) {
    ServerStatus const status = Measure();
    return Answer(event, status, instrument_.Measured());
}

long Server::SpectrumHdl(Event* event) {
    if (instrument_.Measured() == 0) return Answer(event, ServerStatus::NothingMeasured);
    return Answer(event, instrument_.Last());
}

long Server::ParameterRequestHdl(Event* event) { return Answer(event, instrument_.Conditions()); }

long Server::ParameterDownloadHdl(Event* event) {
    kv::MyMemoryBlock data = event->GetData();
    return Answer(event, instrument_.Require(suite::TakeConditions(data)));
}

long Server::NotifyHdl(Event* event) {
    sv::String const sender = event->GetSender();
    if (std::ranges::find(listeners_, sender) == listeners_.end()) listeners_.push_back(sender);
    return Answer(event);
}

long Server::NotifyOffHdl(Event* event) {
    std::erase(listeners_, event->GetSender());
    return Answer(event);
}

long Server::TriggerHdl(Event* event) {
    ServerStatus const status = Measure();
    Answer(event, status, instrument_.Measured());
    if (status == ServerStatus::Done) TellListeners();
    return 0;
}

// Replaces the post office's own handler, which would show a box when a client exits before its answer.
long Server::ProtocolHdl(Event* event) {
    if (kv::PostOffice::NumberOfCommand(*event) == kv::DISCONNECT) std::erase(listeners_, event->GetSender());
    return Answer(event);
}

long Server::PeerGoneHdl(sv::String* peer) {
    std::erase(listeners_, *peer);
    kv::PostOffice::Instance()->ReleasePeer(*peer);
    return 0;
}

sv::String Server::Display() const {
    if (instrument_.Patches() == 0) {
        return settings_.fault.empty() ? TextOf(NothingToMeasure)
                                       : sv::String(files::ToSuite(settings_.fault));
    }
    if (!instrument_.HasWhite()) return TextOf(WhitePlease);
    sv::String const place = sv::String(instrument_.Measured()) + "/" + sv::String(instrument_.Patches());
    if (instrument_.Measured() == 0) return place + " " + TextOf(Ready);
    if (instrument_.Measured() == instrument_.Patches()) return place + " " + TextOf(EndOfChart);
    return place + " " + sv::String(files::ToSuite(instrument_.Last().name));
}

void Server::Expose() {
    isMeasuring_ = true;
    for (auto const end = Clock::now() + settings_.measuringTime; Clock::now() < end;) {
        sv::Application::Reschedule();
    }
    isMeasuring_ = false;
}

ServerStatus Server::Measure() {
    Expose();
    return instrument_.Measure();
}

void Server::TellListeners() {
    std::vector<sv::String> const listeners = listeners_;
    for (sv::String target : listeners) {
        sv::String message(int{kv::MESSUNG_AUSGELOEST});
        kv::MyMemoryBlock data;
        data << instrument_.Measured();
        if (kv::PostOffice::Instance()->Send(target, message, data) == 0) std::erase(listeners_, target);
    }
}

}  // namespace hqmserv
