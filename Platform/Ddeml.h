// Ddeml: dynamic data exchange between programs on one desktop, with the names and values of the DDE
// management library. Windows supplies these operations itself; other systems run them over local sockets.
//
// An instance is identified by the number that `DdeInitializeA` returned for it. All operations, and all
// calls of the callback, belong to the thread that runs the event loop. The callback is called from
// `EventLoop::DispatchOne`, once per transaction, and while `DdeConnect` waits for its answer: then with
// XTYP_CONNECT only, so that two programs that connect to each other at the same moment both succeed.
#pragma once

#include <cstdint>

namespace platform {

// Handles are opaque; null means none. Using a stale handle fails and is safe.
using HSZ = struct DdeString*;
using HCONV = struct DdeConversationTag*;
using HDDEDATA = struct DdeDataTag*;

/// The callback of an instance. Parameters: transaction, format of the data, conversation, two strings, data,
/// two more values.
///   XTYP_CONNECT          topic, service            return 1 to accept the conversation, 0 to refuse it
///   XTYP_CONNECT_CONFIRM  topic, service            the conversation is established
///   XTYP_POKE             topic, item, data         return DDE_FACK
///   XTYP_EXECUTE          topic, data               return DDE_FACK, or 0 if the command is not executed
///   XTYP_DISCONNECT                                 the peer ended the conversation or terminated
/// Strings and data are valid until the callback returns.
using PFNCALLBACK = HDDEDATA (*)(unsigned transaction, unsigned format, HCONV conversation, HSZ string1,
                                 HSZ string2, HDDEDATA data, std::uintptr_t value1, std::uintptr_t value2);

/// Converts a number to the callback's return type.
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

/// The largest data of one transaction on POSIX, in bytes; larger data is refused before anything is sent.
inline constexpr std::uint32_t DdeLargestData = 16U << 20;
/// The timeout of `DdeConnect` on POSIX, for programs that do not answer because they are stopped or run no
/// event loop.
inline constexpr int DdeConnectLimitMs = 2000;

/// Opens an instance and stores its number in `instance`, which must be 0 on entry. Returns 0 on success,
/// else a DMLERR_ value: DMLERR_SYS_ERROR if the user's directory for sockets belongs to another user or
/// grants others any access. `commands` has an effect on Windows only.
[[nodiscard]] unsigned DdeInitializeA(std::uint32_t* instance, PFNCALLBACK callback, std::uint32_t commands,
                                      std::uint32_t reserved);
/// Ends the instance and its conversations. Data that peers have not yet received is still delivered, as long
/// as they keep reading.
bool DdeUninitialize(std::uint32_t instance);

/// Returns the error of the instance's last failed operation and clears it.
[[nodiscard]] unsigned DdeGetLastError(std::uint32_t instance);

/// Returns a handle for the text, which is cut to 255 bytes; null for an empty text. Texts that differ only
/// in the case of ASCII letters share one handle, with the spelling that came first. Free every handle
/// created once.
[[nodiscard]] HSZ DdeCreateStringHandleA(std::uint32_t instance, char const* text, int codePage);
bool DdeFreeStringHandle(std::uint32_t instance, HSZ string);
/// Returns 0 if both handles have the same text, ignoring the case of ASCII letters; else -1 or 1.
[[nodiscard]] int DdeCmpStringHandles(HSZ left, HSZ right);
/// Copies the text and its terminating zero, cut to `size` bytes, and returns its length; without a target
/// returns the full length.
std::uint32_t DdeQueryStringA(std::uint32_t instance, HSZ string, char* target, std::uint32_t size,
                              int codePage);

/// Registers or unregisters a service. The callback is called only for connections to registered services.
/// DNS_UNREGISTER without a service unregisters all. Returns null on failure.
HDDEDATA DdeNameService(std::uint32_t instance, HSZ service, HSZ reserved, unsigned command);

/// Opens a conversation with an instance of this or another program of the same user that has registered the
/// service and accepts the topic; returns null if there is none. Asks all instances at once. `context` must
/// be null.
[[nodiscard]] HCONV DdeConnect(std::uint32_t instance, HSZ service, HSZ topic, void* context);
/// Ends a conversation: data poked before still arrives, then the peer receives XTYP_DISCONNECT. Returns
/// false if the conversation has already ended.
bool DdeDisconnect(HCONV conversation);

/// Sends one transaction, XTYP_POKE or XTYP_EXECUTE, without waiting: `timeout` must be TIMEOUT_ASYNC. Data
/// that the system does not accept at once is queued, in order, and sent by the event loop. Returns null if
/// the conversation has ended or the data is too large. An execution has no item. On Windows `result`, if not
/// null, receives the transaction's number; elsewhere it is not changed.
HDDEDATA DdeClientTransaction(void const* data, std::uint32_t length, HCONV conversation, HSZ item,
                              unsigned format, unsigned transaction, std::uint32_t timeout,
                              std::uint32_t* result);

/// Returns the bytes of the data and stores their number in `length`. Returns null for no data.
[[nodiscard]] unsigned char const* DdeAccessData(HDDEDATA data, std::uint32_t* length);
bool DdeUnaccessData(HDDEDATA data);
/// Copies up to `size` bytes, starting at `offset`, and returns the number copied; without a target returns
/// the total number.
std::uint32_t DdeGetData(HDDEDATA data, void* target, std::uint32_t size, std::uint32_t offset);

}  // namespace platform
