// The contract comes first: <windows.h> defines the names of its constants as macros.
#include "Platform/Ddeml.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

// The contract's values, to be compared with the system's.
constexpr std::array transactions{
    platform::XTYP_ERROR,           platform::XTYP_ADVDATA, platform::XTYP_EXECUTE,   platform::XTYP_CONNECT,
    platform::XTYP_CONNECT_CONFIRM, platform::XTYP_POKE,    platform::XTYP_DISCONNECT};
constexpr std::array<std::uintptr_t, 5> values{platform::DDE_FACK, platform::DNS_REGISTER,
                                               platform::DNS_UNREGISTER, platform::TIMEOUT_ASYNC,
                                               platform::CF_TEXT};
constexpr std::array errors{platform::DMLERR_INVALIDPARAMETER, platform::DMLERR_MEMORY_ERROR,
                            platform::DMLERR_NO_CONV_ESTABLISHED, platform::DMLERR_SERVER_DIED,
                            platform::DMLERR_SYS_ERROR};
constexpr int codePage = platform::CP_WINANSI;

}  // namespace

#include <windows.h>

#include <ddeml.h>

namespace {

static_assert(transactions == std::array<unsigned, 7>{XTYP_ERROR, XTYP_ADVDATA, XTYP_EXECUTE, XTYP_CONNECT,
                                                      XTYP_CONNECT_CONFIRM, XTYP_POKE, XTYP_DISCONNECT});
static_assert(values ==
              std::array<std::uintptr_t, 5>{DDE_FACK, DNS_REGISTER, DNS_UNREGISTER, TIMEOUT_ASYNC, CF_TEXT});
static_assert(errors == std::array<unsigned, 5>{DMLERR_INVALIDPARAMETER, DMLERR_MEMORY_ERROR,
                                                DMLERR_NO_CONV_ESTABLISHED, DMLERR_SERVER_DIED,
                                                DMLERR_SYS_ERROR});
static_assert(codePage == CP_WINANSI);

// Handles are converted without change.
::HSZ System(platform::HSZ string) noexcept { return reinterpret_cast<::HSZ>(string); }
::HCONV System(platform::HCONV conversation) noexcept { return reinterpret_cast<::HCONV>(conversation); }
::HDDEDATA System(platform::HDDEDATA data) noexcept { return reinterpret_cast<::HDDEDATA>(data); }
platform::HSZ Ours(::HSZ string) noexcept { return reinterpret_cast<platform::HSZ>(string); }
platform::HCONV Ours(::HCONV conversation) noexcept {
    return reinterpret_cast<platform::HCONV>(conversation);
}
platform::HDDEDATA Ours(::HDDEDATA data) noexcept { return reinterpret_cast<platform::HDDEDATA>(data); }

// The system does not pass its instance to a callback. So each instance has a function of its own, with the
// system's handle types and calling convention, that forwards the call.
constexpr std::size_t MaxInstances = 16;

struct Slot {
    DWORD instance = 0;
    platform::PFNCALLBACK callback = nullptr;
};

constinit std::array<Slot, MaxInstances> slots{};

template <std::size_t Index>
::HDDEDATA CALLBACK PassOn(UINT transaction, UINT format, ::HCONV conversation, ::HSZ string1, ::HSZ string2,
                           ::HDDEDATA data, ULONG_PTR value1, ULONG_PTR value2) {
    platform::PFNCALLBACK const callback = slots[Index].callback;
    if (callback == nullptr) return nullptr;
    return System(callback(transaction, format, Ours(conversation), Ours(string1), Ours(string2), Ours(data),
                           value1, value2));
}

template <std::size_t... Indices>
constexpr std::array<::PFNCALLBACK, MaxInstances> MakePassers(std::index_sequence<Indices...> /*indices*/) {
    return {&PassOn<Indices>...};
}

constexpr std::array<::PFNCALLBACK, MaxInstances> passers =
    MakePassers(std::make_index_sequence<MaxInstances>());

/// Returns whether the peer's program, or its instance, is gone.
bool IsPartnerGone(::HCONV conversation) noexcept {
    CONVINFO info = {};
    info.cb = sizeof info;
    return ::DdeQueryConvInfo(conversation, QID_SYNC, &info) != 0 && info.hwndPartner != nullptr &&
           ::IsWindow(info.hwndPartner) == FALSE;
}

}  // namespace

namespace platform {

unsigned DdeInitializeA(std::uint32_t* instance, PFNCALLBACK callback, std::uint32_t commands,
                        std::uint32_t reserved) {
    if (instance == nullptr || *instance != 0 || callback == nullptr) return DMLERR_INVALIDPARAMETER;
    for (std::size_t i = 0; i < MaxInstances; ++i) {
        Slot& slot = slots[i];
        if (slot.callback != nullptr) continue;
        slot.callback = callback;
        unsigned const error = ::DdeInitializeA(&slot.instance, passers[i], commands, reserved);
        if (error != DMLERR_NO_ERROR) slot = {};
        *instance = slot.instance;
        return error;
    }
    return DMLERR_SYS_ERROR;
}

bool DdeUninitialize(std::uint32_t instance) {
    bool const isDone = ::DdeUninitialize(instance) != FALSE;
    for (Slot& slot : slots) {
        if (slot.instance == instance) slot = {};
    }
    return isDone;
}

unsigned DdeGetLastError(std::uint32_t instance) { return ::DdeGetLastError(instance); }

HSZ DdeCreateStringHandleA(std::uint32_t instance, char const* text, int codePage) {
    return Ours(::DdeCreateStringHandleA(instance, text, codePage));
}

bool DdeFreeStringHandle(std::uint32_t instance, HSZ string) {
    return ::DdeFreeStringHandle(instance, System(string)) != FALSE;
}

int DdeCmpStringHandles(HSZ left, HSZ right) { return ::DdeCmpStringHandles(System(left), System(right)); }

std::uint32_t DdeQueryStringA(std::uint32_t instance, HSZ string, char* target, std::uint32_t size,
                              int codePage) {
    return ::DdeQueryStringA(instance, System(string), target, size, codePage);
}

HDDEDATA DdeNameService(std::uint32_t instance, HSZ service, HSZ reserved, unsigned command) {
    return Ours(::DdeNameService(instance, System(service), System(reserved), command));
}

HCONV DdeConnect(std::uint32_t instance, HSZ service, HSZ topic, void* context) {
    return Ours(::DdeConnect(instance, System(service), System(topic), static_cast<PCONVCONTEXT>(context)));
}

bool DdeDisconnect(HCONV conversation) { return ::DdeDisconnect(System(conversation)) != FALSE; }

HDDEDATA DdeClientTransaction(void const* data, std::uint32_t length, HCONV conversation, HSZ item,
                              unsigned format, unsigned transaction, std::uint32_t timeout,
                              std::uint32_t* result) {
    // Disconnected before the system notices: under Wine a conversation that the system itself has ended
    // blocks every later one with that topic, so that a restarted peer would not be found.
    if (IsPartnerGone(System(conversation))) {
        ::DdeDisconnect(System(conversation));
        return nullptr;
    }
    // The system copies the data; its parameter lacks const.
    auto* const bytes = static_cast<LPBYTE>(const_cast<void*>(data));
    DWORD number = 0;
    ::HDDEDATA const answer =
        ::DdeClientTransaction(bytes, length, System(conversation), System(item), format, transaction,
                               timeout, result == nullptr ? nullptr : &number);
    if (result != nullptr) *result = number;
    return Ours(answer);
}

unsigned char const* DdeAccessData(HDDEDATA data, std::uint32_t* length) {
    DWORD size = 0;
    unsigned char const* const bytes = ::DdeAccessData(System(data), &size);
    if (length != nullptr) *length = size;
    return bytes;
}

bool DdeUnaccessData(HDDEDATA data) { return ::DdeUnaccessData(System(data)) != FALSE; }

std::uint32_t DdeGetData(HDDEDATA data, void* target, std::uint32_t size, std::uint32_t offset) {
    return ::DdeGetData(System(data), static_cast<LPBYTE>(target), size, offset);
}

}  // namespace platform
