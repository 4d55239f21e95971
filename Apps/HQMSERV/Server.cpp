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
/// Posted when no client has connected before the timeout.
constexpr unsigned long NoClientEvent = 2002;

/// Numbers of the display's texts in their group.
enum DisplayText : unsigned long { NothingToMeasure, WhitePlease, Ready, EndOfChart };

template <class Field>
void Put(kv::MyMemoryBlock& block, Field const& field) {
    block << field;
}
void Put(kv::MyMemoryBlock& block, sv::String const& text) { block << text; }
void Put(kv::MyMemoryBlock& block, std::string const& text) { block << sv::String(files::ToSuite(text)); }
void Put(kv::MyMemoryBlock& block, suite::MeasuredPatch const& patch) { suite::PutPatch(block, patch); }
void Put(kv::MyMemoryBlock& block, files::StatedConditions const& conditions) {
    suite::PutConditions(block, conditions);
}

/// Answers with a status, and with fields if that is Done.
template <class... Fields>
void Answer(kv::KORVELEvent* event, ServerStatus status, Fields const&... fields) {
    kv::MyMemoryBlock data;
    data << static_cast<unsigned char>(status);
    if (status == ServerStatus::Done) (Put(data, fields), ...);
    // Fails when the client has exited, which needs no report.
    kv::PostOffice::Instance()->Answer(event, data);
}

template <class... Fields>
void Answer(kv::KORVELEvent* event, Fields const&... fields) {
    Answer(event, ServerStatus::Done, fields...);
}

void AnswerByte(kv::KORVELEvent* event, bool isSo) {
    Answer(event, static_cast<unsigned char>(isSo ? 1 : 0));
}

/// In the language that the last client has requested.
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

std::span<Server::Entry const> Server::Table() {
    static constexpr auto Trigger = [](Server& server, Event* event) {
        ServerStatus const status = server.Measure();
        Answer(event, status, server.instrument_.Measured());
        if (status == ServerStatus::Done) server.NotifyListeners();
    };
    // Replaces the post office's own handler, which shows a box if a client exits before its answer.
    static constexpr auto Protocol = [](Server& server, Event* event) {
        if (kv::PostOffice::NumberOfCommand(*event) == kv::DISCONNECT)
            std::erase(server.listeners_, event->GetSender());
        Answer(event);
    };
    static constexpr Entry Entries[] = {
        {kv::GET_SW_VERSION, AtOnce,
         [](Server& server, Event* event) { Answer(event, server.instrument_.Identity().softwareVersion); }},
        {kv::GET_DEVICE_NAME, AtOnce,
         [](Server& server, Event* event) { Answer(event, server.instrument_.Identity().name); }},
        {kv::GET_DEVICE_TYPE, AtOnce,
         [](Server& server, Event* event) {
             Answer(event, static_cast<short>(server.instrument_.Identity().type));
         }},
        {kv::GET_SERIE_NR, AtOnce,
         [](Server& server, Event* event) { Answer(event, server.instrument_.Identity().serialNumber); }},
        {kv::GET_DISPLAY_STRING, AtOnce,
         [](Server& server, Event* event) { Answer(event, server.Display()); }},
        {kv::IS_APP_READY, AtOnce, [](Server& /*server*/, Event* event) { AnswerByte(event, true); }},
        {kv::IS_READY, AtOnce,
         [](Server& server, Event* event) {
             AnswerByte(event, server.instrument_.Patches() > 0 && !server.isMeasuring_);
         }},
        {kv::EXEC_WHITE_MEASUREMENT, InTurn,
         [](Server& server, Event* event) {
             server.WaitForExposure();
             Answer(event, server.instrument_.MeasureWhite());
         }},
        {kv::NEW_MEASURE_REQUEST, InTurn,
         [](Server& server, Event* event) {
             ServerStatus const status = server.instrument_.Restart();
             Answer(event, status, server.instrument_.Patches());
         }},
        {kv::EXEC_MEASUREMENT, InTurn,
         [](Server& server, Event* event) {
             ServerStatus const status = server.Measure();
             Answer(event, status, server.instrument_.Measured());
         }},
        {kv::SPECTRUM_REQUEST, InTurn,
         [](Server& server, Event* event) {
             if (server.instrument_.Measured() == 0) return Answer(event, ServerStatus::NothingMeasured);
             Answer(event, server.instrument_.Last());
         }},
        {kv::PARAMETER_REQUEST, InTurn,
         [](Server& server, Event* event) { Answer(event, server.instrument_.Conditions()); }},
        {kv::PARAMETER_DOWNLOAD, InTurn,
         [](Server& server, Event* event) {
             kv::MyMemoryBlock data = event->GetData();
             Answer(event, server.instrument_.Require(suite::TakeConditions(data)));
         }},
        {kv::NOTIFY_MESSUNG, InTurn,
         [](Server& server, Event* event) {
             sv::String const sender = event->GetSender();
             if (std::ranges::find(server.listeners_, sender) == server.listeners_.end())
                 server.listeners_.push_back(sender);
             Answer(event);
         }},
        {kv::NOTIFY_MESSUNG_AUS, InTurn,
         [](Server& server, Event* event) {
             std::erase(server.listeners_, event->GetSender());
             Answer(event);
         }},
        {kv::MESSUNG_AUSGELOEST, InTurn, Trigger},
        {kv::LOCK, InTurn, Protocol},
        {kv::UNLOCK, InTurn, Protocol},
        {kv::DISCONNECT, InTurn, Protocol}};
    return Entries;
}

Server::Server(Instrument instrument, Settings settings)
    : instrument_(std::move(instrument)), settings_(std::move(settings)) {
    theServer_ = this;
    auto const link = sv::Link::To<&Server::MessageHdl>(*this);
    for (Entry const& entry : Table()) {
        kv::PostOffice::Instance()->ChangeMessageHdl(static_cast<unsigned>(entry.message), link, entry.when);
    }
    kv::PostOffice::Instance()->ChangePeerGoneHdl(sv::Link::To<&Server::PeerGoneHdl>(*this));
    sv::Application::SetUserEventHdl(&UserEvent);
    WaitForFirstClient();
}

Server::~Server() {
    kv::PostOffice::Instance()->ChangePeerGoneHdl({});
    theServer_ = nullptr;
}

void Server::WaitForFirstClient() {
    if (settings_.timeout.count() == 0) return;
    timeout_ = std::jthread([timeout = settings_.timeout](std::stop_token const& stop) {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait_for(lock, stop, timeout, [] { return false; });
        if (!stop.stop_requested()) sv::Application::PostUserEvent(NoClientEvent, nullptr);
    });
}

void Server::UserEvent(unsigned long id, void* data) {
    kv::DDE::UserEvent(id, data);
    bool const isWaiting = theServer_ != nullptr && kv::PostOffice::Instance()->ConnectedClients() <= 0;
    if (id == NoClientEvent && isWaiting) sv::Application::Quit();
}

long Server::MessageHdl(Event* event) {
    int const message = kv::PostOffice::NumberOfCommand(*event);
    auto const entry = std::ranges::find(Table(), message, &Entry::message);
    if (entry != Table().end()) entry->handle(*this, event);
    return 0;
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

void Server::WaitForExposure() {
    isMeasuring_ = true;
    for (auto const end = Clock::now() + settings_.measuringTime; Clock::now() < end;) {
        sv::Application::Reschedule();
    }
    isMeasuring_ = false;
}

ServerStatus Server::Measure() {
    WaitForExposure();
    return instrument_.Measure();
}

void Server::NotifyListeners() {
    std::vector<sv::String> const listeners = listeners_;
    for (sv::String target : listeners) {
        sv::String message(int{kv::MESSUNG_AUSGELOEST});
        kv::MyMemoryBlock data;
        data << instrument_.Measured();
        if (kv::PostOffice::Instance()->Send(target, message, data) == 0) std::erase(listeners_, target);
    }
}

}  // namespace hqmserv
