// MailEntries: the functions that a mail client's library exports, as published for Simple MAPI and the
// Common Messaging Calls (CMC). They are bound by name at run time; libkvmail provides them on systems
// without such a mail client.
//
// `ULONG` has 32 bits and a session handle the size of a pointer, on every system. Texts are zero-terminated
// and in the suite's code page (Windows-1252), where a mail client uses the system's ANSI code page; a
// character that the code page lacks becomes "?". Unlike the published declarations, parameters that are only
// read are `const`.
#pragma once

#include <cstddef>
#include <cstdint>

// On 32-bit Windows the entries remove their arguments from the stack themselves.
#ifdef _WIN32
#define KV_MAIL_CALL __stdcall
#else
#define KV_MAIL_CALL
#endif

namespace platform {

using ULONG = std::uint32_t;
/// A session; 0 means none.
using LHANDLE = std::uintptr_t;
/// A window handle as an integer.
using ULONG_PTR = std::uintptr_t;

/// A sender or recipient. libkvmail reports the name of a sender as "name/address".
struct MapiRecipDesc {
    ULONG ulReserved;
    ULONG ulRecipClass;
    char* lpszName;
    char* lpszAddress;
    ULONG ulEIDSize;
    void* lpEntryID;
};

/// An attached file. The path is empty if the file has not been fetched.
struct MapiFileDesc {
    ULONG ulReserved;
    ULONG flFlags;
    ULONG nPosition;
    char* lpszPathName;
    char* lpszFileName;
    void* lpFileType;
};

/// A message. The date received has the form "YYYY/MM/DD HH:MM".
struct MapiMessage {
    ULONG ulReserved;
    char* lpszSubject;
    char* lpszNoteText;
    char* lpszMessageType;
    char* lpszDateReceived;
    char* lpszConversationID;
    ULONG flFlags;
    MapiRecipDesc* lpOriginator;
    ULONG nRecipCount;
    MapiRecipDesc* lpRecips;
    ULONG nFileCount;
    MapiFileDesc* lpFiles;
};

/// The size of a message identifier with its terminating zero.
inline constexpr std::size_t MapiMessageIdSize = 512;

inline constexpr ULONG MAPI_LOGON_UI = 0x1;
inline constexpr ULONG MAPI_ENVELOPE_ONLY = 0x40;
inline constexpr ULONG MAPI_PEEK = 0x80;
inline constexpr ULONG MAPI_SUPPRESS_ATTACH = 0x800;

inline constexpr ULONG MAPI_ORIG = 0;  // classes of recipients
inline constexpr ULONG MAPI_TO = 1;

inline constexpr ULONG SUCCESS_SUCCESS = 0;
inline constexpr ULONG MAPI_E_FAILURE = 2;
inline constexpr ULONG MAPI_E_LOGON_FAILURE = 3;
inline constexpr ULONG MAPI_E_INSUFFICIENT_MEMORY = 5;
inline constexpr ULONG MAPI_E_ATTACHMENT_WRITE_FAILURE = 13;
inline constexpr ULONG MAPI_E_NO_MESSAGES = 16;
inline constexpr ULONG MAPI_E_INVALID_MESSAGE = 17;
inline constexpr ULONG MAPI_E_TEXT_TOO_LARGE = 18;
inline constexpr ULONG MAPI_E_INVALID_SESSION = 19;
inline constexpr ULONG MAPI_E_NETWORK_FAILURE = 23;

inline constexpr ULONG CMC_SEND_UI_REQUESTED = 0x1;
inline constexpr ULONG CMC_LOGON_UI_ALLOWED = 0x1000000;
inline constexpr ULONG CMC_ERROR_UI_ALLOWED = 0x2000000;

inline constexpr ULONG CMC_SUCCESS = 0;
inline constexpr ULONG CMC_E_ATTACHMENT_NOT_FOUND = 2;
inline constexpr ULONG CMC_E_ATTACHMENT_READ_FAILURE = 4;
inline constexpr ULONG CMC_E_FAILURE = 8;
inline constexpr ULONG CMC_E_INSUFFICIENT_MEMORY = 9;
inline constexpr ULONG CMC_E_INVALID_CONFIGURATION = 10;
inline constexpr ULONG CMC_E_INVALID_PARAMETER = 16;
inline constexpr ULONG CMC_E_LOGON_FAILURE = 19;
inline constexpr ULONG CMC_E_RECIPIENT_NOT_FOUND = 23;
inline constexpr ULONG CMC_E_SERVICE_UNAVAILABLE = 24;
inline constexpr ULONG CMC_E_TEXT_TOO_LARGE = 25;
inline constexpr ULONG CMC_E_UNSUPPORTED_FLAG = 33;

/// `cmc_send_documents`: recipients, subject, text, flags, file paths, file names, the delimiter of these
/// lists, and a window handle.
using CmcSendDocumentsEntry = ULONG(KV_MAIL_CALL*)(char const* recipients, char const* subject,
                                                   char const* text, ULONG flags, char const* filePaths,
                                                   char const* fileNames, char const* delimiter, ULONG uiId);
using MAPILogonEntry = ULONG(KV_MAIL_CALL*)(ULONG_PTR window, char const* profile, char const* password,
                                            ULONG flags, ULONG reserved, LHANDLE* session);
/// Stores the identifier of the message after `seed`, or of the first one if `seed` is empty, in `id`, which
/// has `MapiMessageIdSize` bytes.
using MAPIFindNextEntry = ULONG(KV_MAIL_CALL*)(LHANDLE session, ULONG_PTR window, char const* messageType,
                                               char const* seed, ULONG flags, ULONG reserved, char* id);
/// Returns the message, which the caller releases by `MAPIFreeBuffer`.
using MAPIReadMailEntry = ULONG(KV_MAIL_CALL*)(LHANDLE session, ULONG_PTR window, char const* id, ULONG flags,
                                               ULONG reserved, MapiMessage** message);
using MAPIDeleteMailEntry = ULONG(KV_MAIL_CALL*)(LHANDLE session, ULONG_PTR window, char const* id,
                                                 ULONG flags, ULONG reserved);
using MAPILogoffEntry = ULONG(KV_MAIL_CALL*)(LHANDLE session, ULONG_PTR window, ULONG flags, ULONG reserved);
using MAPIFreeBufferEntry = ULONG(KV_MAIL_CALL*)(void* buffer);

}  // namespace platform
