// Ddeml: dynamic data exchange between programs on one desktop, by the names and values of the DDE management
// library. On Windows these are the system's own operations; elsewhere they run over local sockets.
//
// An instance is known by the number that `DdeInitializeA` gave it. All operations, and all calls of the
// callback, belong to the one thread that runs the event loop. The callback is called from
// `EventLoop::DispatchOne`, one transaction a call, and while `DdeConnect` waits for its answer: then with
// XTYP_CONNECT alone, so that two programs that connect to each other at the same moment both get through.
#pragma once

#include <cstdint>

namespace platform {

// Handles are opaque, and null is none. A stale one is refused, never followed.
using HSZ = struct DdeString*;
using HCONV = struct DdeConversationTag*;
using HDDEDATA = struct DdeDataTag*;

/// The callback of an instance: transaction, format of the data, conversation, two strings, data, two more
/// values.
///   XTYP_CONNECT          topic, service            1 accepts the conversation, 0 refuses it
///   XTYP_CONNECT_CONFIRM  topic, service            the conversation stands from here on
///   XTYP_POKE             topic, item, data         DDE_FACK
///   XTYP_EXECUTE          topic, data               DDE_FACK, or 0 where there is nobody to execute
///   XTYP_DISCONNECT                                 the peer ended the conversation, or died
/// Strings and data are valid until the callback returns.
using PFNCALLBACK = HDDEDATA (*)(unsigned transaction, unsigned format, HCONV conversation, HSZ string1,
                                 HSZ string2, HDDEDATA data, std::uintptr_t value1, std::uintptr_t value2);

/// A number as the callback's answer.
[[nodiscard]] inline HDDEDATA DdeAnswer(std::uintptr_t value) noexcept {
    return reinterpret_cast<HDDEDATA>(value);  // NOLINT(performance-no-int-to-ptr): the interface mixes them
}

inline constexpr unsigned XTYP_ERROR = 0x8002;
inline constexpr unsigned XTYP_ADVDATA = 0x4010;
inline constexpr unsigned XTYP_EXECUTE = 0x4050;
inline constexpr unsigned XTYP_CONNECT = 0x1062;
inline constexpr unsigned XTYP_CONNECT_CONFIRM = 0x8072;
inline constexpr unsigned XTYP_POKE = 0x4090;
inline constexpr unsigned XTYP_DISCONNECT = 0x80C2;

inline constexpr std::uintptr_t DDE_FACK = 0x8000;
inline constexpr unsigned DNS_REGISTER = 1;
inline constexpr unsigned DNS_UNREGISTER = 2;
inline constexpr std::uint32_t TIMEOUT_ASYNC = 0xFFFFFFFF;
inline constexpr int CP_WINANSI = 1004;
inline constexpr unsigned CF_TEXT = 1;

inline constexpr unsigned DMLERR_NO_ERROR = 0;
inline constexpr unsigned DMLERR_INVALIDPARAMETER = 0x4006;
inline constexpr unsigned DMLERR_MEMORY_ERROR = 0x4008;
inline constexpr unsigned DMLERR_NO_CONV_ESTABLISHED = 0x400A;
inline constexpr unsigned DMLERR_SERVER_DIED = 0x400E;
inline constexpr unsigned DMLERR_SYS_ERROR = 0x400F;

/// The most that one transaction carries on POSIX; a larger one is refused before anything is sent.
inline constexpr std::uint32_t DdeLargestData = 16U << 20;
/// How long `DdeConnect` waits on POSIX for programs that do not answer at all: stopped, or busy without a
/// loop.
inline constexpr int DdeConnectLimitMs = 2000;

/// Opens an instance, whose number goes into `instance`, which must be 0 on entry. 0 on success, else a
/// DMLERR_ value: DMLERR_SYS_ERROR where the user's private directory for sockets belongs to another user, or
/// others have any access to it. Command flags are taken by Windows alone.
[[nodiscard]] unsigned DdeInitializeA(std::uint32_t* instance, PFNCALLBACK callback, std::uint32_t commands,
                                      std::uint32_t reserved);
/// Ends the instance's conversations and the instance. Data that peers have not taken yet is still handed
/// over, as long as they keep taking it.
bool DdeUninitialize(std::uint32_t instance);

/// The error of the instance's last failed operation; reading it clears it.
[[nodiscard]] unsigned DdeGetLastError(std::uint32_t instance);

/// A handle of the text, which is cut to 255 bytes; null for an empty one. Texts that differ in the case of
/// ASCII letters alone have one handle, with the spelling that came first. Each handle made is freed once.
[[nodiscard]] HSZ DdeCreateStringHandleA(std::uint32_t instance, char const* text, int codePage);
bool DdeFreeStringHandle(std::uint32_t instance, HSZ string);
/// 0 when both stand for one text, without regard to the case of ASCII letters; else -1 or 1.
[[nodiscard]] int DdeCmpStringHandles(HSZ left, HSZ right);
/// Copies the text with its zero, cut to `size` bytes, and returns its length; with no target its full
/// length.
std::uint32_t DdeQueryStringA(std::uint32_t instance, HSZ string, char* target, std::uint32_t size,
                              int codePage);

/// Registers or unregisters a service: peers' connections to registered ones alone reach the callback.
/// DNS_UNREGISTER without a service unregisters all. Null on failure.
HDDEDATA DdeNameService(std::uint32_t instance, HSZ service, HSZ reserved, unsigned command);

/// Opens a conversation with an instance, in this or another program of the same user, that has registered
/// the service and accepts the topic; null when there is none. All instances are asked at once. `context`
/// must be null.
[[nodiscard]] HCONV DdeConnect(std::uint32_t instance, HSZ service, HSZ topic, void* context);
/// Ends a conversation: what was poked before still arrives, and the peer then gets XTYP_DISCONNECT. False
/// for one that has ended.
bool DdeDisconnect(HCONV conversation);

/// Sends one transaction, XTYP_POKE or XTYP_EXECUTE, and does not wait: `timeout` must be TIMEOUT_ASYNC. What
/// the system does not take at once is kept, in order, and sent by the event loop. Not null when the
/// transaction is on its way; null when the conversation has ended or the data is too large. An execution has
/// no item. On Windows the result, where one is asked for, is the transaction's number; elsewhere `result` is
/// not touched.
HDDEDATA DdeClientTransaction(void const* data, std::uint32_t length, HCONV conversation, HSZ item,
                              unsigned format, unsigned transaction, std::uint32_t timeout,
                              std::uint32_t* result);

/// The bytes of the data and their number. Null for no data.
[[nodiscard]] unsigned char const* DdeAccessData(HDDEDATA data, std::uint32_t* length);
bool DdeUnaccessData(HDDEDATA data);
/// Copies up to `size` bytes from `offset` on and returns how many; with no target the number of all.
std::uint32_t DdeGetData(HDDEDATA data, void* target, std::uint32_t size, std::uint32_t offset);

}  // namespace platform
