#include "KVUtils/Source/messaging/RezepturServer.h"

#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "Platform/Ddeml.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"

#include <array>
#include <utility>

namespace kv {

namespace {

using platform::DdeAnswer;
using platform::HCONV;
using platform::HDDEDATA;
using platform::HSZ;

struct State {
    RezepturServer* server = nullptr;
    platform::PFNCALLBACK callback = nullptr;
    std::uint32_t instance = 0;
    HSZ service = nullptr;
    HSZ topic = nullptr;
    HCONV conversation = nullptr;
};

constinit State state;

void Require(bool succeeded, sv::Window* parent, char const* failure) {
    if (succeeded) return;
    sv::ErrorBox(parent, sv::WB_OK, failure).Execute();
    sv::Application::Quit();
}

bool Accepts(HSZ topic, HSZ service) {
    return state.conversation == nullptr && platform::DdeCmpStringHandles(topic, state.topic) == 0 &&
           platform::DdeCmpStringHandles(service, state.service) == 0;
}

DDERezepturVorlage Template(HSZ item, HDDEDATA data) {
    std::array<char, 256> name{};
    platform::DdeQueryStringA(state.instance, item, name.data(), name.size(), platform::CP_WINANSI);
    DDERezepturVorlage vorlage{name.data(), {}};
    std::uint32_t length = 0;
    unsigned char const* const bytes = platform::DdeAccessData(data, &length);
    if (bytes != nullptr) vorlage.data.Put(bytes, static_cast<long>(length));
    platform::DdeUnaccessData(data);
    return vorlage;
}

}  // namespace

RezepturServer::RezepturServer(sv::Window* parent) {
    state.server = this;
    state.callback = &ServerCallBack;
    Require(state.callback != nullptr, parent, "Setup of callback failed.");
    Require(platform::DdeInitializeA(&state.instance, state.callback, 0, 0) == platform::DMLERR_NO_ERROR,
            parent, "Initialization failed.");
    state.service =
        platform::DdeCreateStringHandleA(state.instance, "KORVEL_professional", platform::CP_WINANSI);
    state.topic = platform::DdeCreateStringHandleA(state.instance, "tint_blending", platform::CP_WINANSI);
    Require(state.service != nullptr && state.topic != nullptr, parent, "String creation failed.");
    Require(
        platform::DdeNameService(state.instance, state.service, nullptr, platform::DNS_REGISTER) != nullptr,
        parent, "DDE Registration failed.");
}

RezepturServer::~RezepturServer() {
    if (state.server != this) return;  // a later one replaced it
    state.server = nullptr;
    if (state.conversation != nullptr) platform::DdeDisconnect(state.conversation);
    if (state.instance != 0) {
        platform::DdeNameService(state.instance, state.service, nullptr, platform::DNS_UNREGISTER);
        for (HSZ const handle : {state.service, state.topic}) {
            if (handle != nullptr) platform::DdeFreeStringHandle(state.instance, handle);
        }
        platform::DdeUninitialize(state.instance);
    }
    state = {};
}

void RezepturServer::VerwendeVorlage(DDERezepturVorlage& /*vorlage*/) {
    // Intentional: users of the suite know this wording.
    sv::InfoBox(RegisterTopWindow::GetActiveTopWindow(), "Septkrum erhalten!").Execute();
}

HDDEDATA ServerCallBack(unsigned transaction, unsigned /*format*/, HCONV conversation, HSZ topic,
                        HSZ serviceOrItem, HDDEDATA data, std::uintptr_t /*value1*/,
                        std::uintptr_t /*value2*/) {
    switch (transaction) {
        case platform::XTYP_CONNECT:
            return DdeAnswer(Accepts(topic, serviceOrItem) ? 1 : 0);
        case platform::XTYP_CONNECT_CONFIRM:
            state.conversation = conversation;
            return nullptr;
        case platform::XTYP_DISCONNECT:
            if (conversation == state.conversation) state.conversation = nullptr;
            return nullptr;
        case platform::XTYP_ERROR:
            sv::ErrorBox(RegisterTopWindow::GetActiveTopWindow(), sv::WB_OK, "A DDE error occured!")
                .Execute();
            return nullptr;
        case platform::XTYP_POKE:
            if (state.server != nullptr) {
                DDERezepturVorlage vorlage = Template(serviceOrItem, data);
                state.server->VerwendeVorlage(vorlage);
            }
            return DdeAnswer(platform::DDE_FACK);
        default:
            return nullptr;
    }
}

HDDEDATA ClientCallBack(unsigned transaction, unsigned /*format*/, HCONV /*conversation*/, HSZ /*topic*/,
                        HSZ /*item*/, HDDEDATA /*data*/, std::uintptr_t /*value1*/,
                        std::uintptr_t /*value2*/) {
    auto const inform = [](char const* text) {
        sv::InfoBox(RegisterTopWindow::GetActiveTopWindow(), text).Execute();
    };
    switch (transaction) {
        case platform::XTYP_ADVDATA:
            return DdeAnswer(platform::DDE_FACK);
        case platform::XTYP_ERROR:
            inform("A critical DDE error has occured.");
            return nullptr;
        case platform::XTYP_DISCONNECT:
            inform("Disconnected.");
            state.conversation = nullptr;
            return nullptr;
        default:
            return nullptr;
    }
}

}  // namespace kv
