#include "Apps/suite/ServerClient.h"

#include "Apps/files/SuiteText.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "SV/core/Application.h"

#include <algorithm>
#include <utility>

namespace suite {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// Enough for a server on a busy machine.
constexpr auto TimeToStart = 3s;
constexpr auto TimeToAnswer = 2s;

constexpr unsigned char ProtocolVersion = 3;  // the first version with a language

std::string Seconds(std::chrono::milliseconds time) { return std::to_string(time.count() / 1000) + " s"; }

}  // namespace

constinit ServerClient* ServerClient::theClient_ = nullptr;

ServerClient::ServerClient(Settings settings) : settings_(std::move(settings)) {
    theClient_ = this;
    kv::PostOffice::Instance()->ChangeReceiveFunction(&Receive);
    try {
        Connect();
        if (settings_.isExclusive) {
            kv::MyMemoryBlock showsNoWindow;
            showsNoWindow << static_cast<unsigned char>(0);
            Ask(kv::LOCK, showsNoWindow);
            isLocked_ = true;
        }
    } catch (...) {
        Disconnect();
        throw;
    }
}

ServerClient::~ServerClient() { Disconnect(); }

void ServerClient::Disconnect() noexcept {
    try {
        // Disconnecting must neither take long nor be cancelled.
        settings_.timeout = std::min<std::chrono::milliseconds>(settings_.timeout, 2s);
        settings_.isInterrupted = [] { return false; };
        // Sending to a server that has exited would start another one.
        if (kv::PostOffice::IsReachable(ServerName)) {
            if (isLocked_) Ask(kv::UNLOCK);
            for (; connects_ > 0; --connects_) Ask(kv::DISCONNECT);
        }
    } catch (...) {  // NOLINT(bugprone-empty-catch): the server has exited
    }
    theClient_ = nullptr;
}

void ServerClient::Receive(kv::KORVELEvent& event) {
    if (theClient_ != nullptr && kv::PostOffice::NumberOfMessage(event.GetCommandName()) ==
                                     theClient_->awaited_ + kv::PostOffice::AnswerOffset) {
        theClient_->answer_ = event.GetData();
        theClient_->awaited_ = Nothing;
        return;
    }
    kv::PostOffice::Instance()->CommunicationReceiveFunction(event);
}

bool ServerClient::Send(int message, kv::MyMemoryBlock data) {
    sv::String target(ServerNumber);
    sv::String name(message);
    answer_.reset();
    awaited_ = message;
    return kv::PostOffice::Instance()->Send(target, name, data) != 0;
}

void ServerClient::Connect() {
    kv::MyMemoryBlock data;
    data << ProtocolVersion << static_cast<short>(kv::Language::GetCountryCode());
    // The message that starts the server is lost, and so is one that arrives while the server exits.
    auto const end = Clock::now() + settings_.timeout;
    for (;;) {
        if (Send(kv::CONNECT, data)) {
            ++connects_;  // a slow server counts each attempt and needs as many disconnects
            if (IsAnsweredBy(std::min(Clock::now() + TimeToAnswer, end))) break;
        } else {
            WaitForStart(std::min(Clock::now() + TimeToStart, end));
        }
        if (Clock::now() < end) continue;
        sv::String const* const path = kv::PostOffice::Instance()->GetPath(ServerNumber);
        throw ServerError("the measuring server " + std::string(ServerName) +
                          " cannot be reached or started" +
                          (path == nullptr ? "" : " from " + files::FromSuite(path->View())));
    }
    answer_.reset();
}

// Sends nothing: another message would start another server.
void ServerClient::WaitForStart(Clock::time_point end) const {
    while (Clock::now() < end && !kv::PostOffice::IsReachable(ServerName)) {
        if (settings_.isInterrupted()) throw ServerError("interrupted");
        sv::Application::Reschedule();
    }
}

bool ServerClient::IsAnsweredBy(Clock::time_point end) {
    for (; !answer_ && Clock::now() < end; sv::Application::Reschedule()) {
        if (settings_.isInterrupted()) throw ServerError("interrupted");
    }
    return answer_.has_value();
}

kv::MyMemoryBlock ServerClient::WaitForAnswer(int message) {
    if (!IsAnsweredBy(Clock::now() + settings_.timeout)) {
        throw ServerError("the measuring server did not answer " +
                          std::string(kv::PostOffice::NameOfMessage(message).View()) + " within " +
                          Seconds(settings_.timeout));
    }
    return *std::exchange(answer_, std::nullopt);
}

kv::MyMemoryBlock ServerClient::Ask(int message, kv::MyMemoryBlock const& request) {
    if (!Send(message, request)) throw ServerError("the measuring server has exited");
    kv::MyMemoryBlock answer = WaitForAnswer(message);
    auto status = static_cast<unsigned char>(ServerStatus::NotHandled);
    answer >> status;
    if (ServerStatus const result{status}; result != ServerStatus::Done) {
        throw ServerError(Describe(result), result);
    }
    return answer;
}

std::string ServerClient::AskText(int message) {
    kv::MyMemoryBlock answer = Ask(message);
    sv::String text;
    answer >> text;
    return files::FromSuite(text.View());
}

DeviceIdentity ServerClient::Identify() {
    DeviceIdentity identity{.name = AskText(kv::GET_DEVICE_NAME),
                            .serialNumber = AskText(kv::GET_SERIE_NR),
                            .softwareVersion = AskText(kv::GET_SW_VERSION)};
    kv::MyMemoryBlock answer = Ask(kv::GET_DEVICE_TYPE);
    short type = 0;
    answer >> type;
    identity.type = static_cast<DeviceType>(type);
    return identity;
}

std::string ServerClient::Display() { return AskText(kv::GET_DISPLAY_STRING); }

bool ServerClient::IsReady() {
    kv::MyMemoryBlock answer = Ask(kv::IS_READY);
    unsigned char isReady = 0;
    answer >> isReady;
    return isReady != 0;
}

files::StatedConditions ServerClient::Conditions() {
    kv::MyMemoryBlock answer = Ask(kv::PARAMETER_REQUEST);
    return TakeConditions(answer);
}

void ServerClient::Require(files::StatedConditions const& conditions) {
    kv::MyMemoryBlock request;
    PutConditions(request, conditions);
    Ask(kv::PARAMETER_DOWNLOAD, request);
}

void ServerClient::MeasureWhite() { Ask(kv::EXEC_WHITE_MEASUREMENT); }

long ServerClient::BeginChart() {
    kv::MyMemoryBlock answer = Ask(kv::NEW_MEASURE_REQUEST);
    long patches = 0;
    answer >> patches;
    return patches;
}

MeasuredPatch ServerClient::Measure() {
    Ask(kv::EXEC_MEASUREMENT);
    kv::MyMemoryBlock answer = Ask(kv::SPECTRUM_REQUEST);
    if (auto patch = TakePatch(answer)) return *patch;
    throw ServerError("the measuring server sent a spectrum that ends too early");
}

}  // namespace suite
