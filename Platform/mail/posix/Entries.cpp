// The exported entries. They show and print nothing; a failure returns a number and is logged. Calls from
// several threads are serialised.
#include "Platform/mail/MailEntries.h"
#include "Platform/mail/posix/Curl.h"
#include "Platform/mail/posix/Gmime.h"
#include "Platform/mail/posix/MailError.h"
#include "Platform/mail/posix/MailRecord.h"
#include "Platform/mail/posix/MailSending.h"
#include "Platform/mail/posix/MailStore.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#define KV_MAIL_ENTRY extern "C" __attribute__((visibility("default"))) platform::ULONG KV_MAIL_CALL

namespace {

using namespace platform;
using namespace platform::detail;

// Destroyed when the program exits, since the library is never unloaded.
struct State {
    std::mutex turn;
    std::map<LHANDLE, std::unique_ptr<MailStore>> sessions;
    LHANDLE lastSession = 0;
    std::map<void*, std::unique_ptr<MailRecord>> records;
};

State& TheState() {
    static State state;
    return state;
}

std::string_view ViewOf(char const* text) noexcept { return text == nullptr ? "" : text; }

/// Executes an entry; returns 0 or the number of the failure.
template <class Call>
ULONG Answer(ULONG (*code)(MailFault), ULONG outOfMemory, ULONG failure, Call const& call) noexcept {
    try {
        std::lock_guard const turn(TheState().turn);
        SigpipeGuard const guard;
        StartGmime();
        return call();
    } catch (MailError const& error) {
        WriteLog(error.what());
        return code(error.Fault());
    } catch (std::bad_alloc const&) {
        return outOfMemory;
    } catch (std::exception const& error) {
        WriteLog(error.what());
        return failure;
    }
}

template <class Call>
ULONG AnswerMapi(Call const& call) noexcept {
    return Answer(&MapiCode, MAPI_E_INSUFFICIENT_MEMORY, MAPI_E_FAILURE, call);
}

/// Executes an entry that requires a session.
template <class Call>
ULONG AnswerIn(LHANDLE session, Call const& call) noexcept {
    return AnswerMapi([&]() -> ULONG {
        auto const& sessions = TheState().sessions;
        auto const found = sessions.find(session);
        return found == sessions.end() ? MAPI_E_INVALID_SESSION : call(*found->second);
    });
}

MessageNumber NumberOf(char const* id) {
    auto const number = ParseMessageId(ViewOf(id));
    if (!number) throw MailError(MailFault::NoMessage, "no message identifier");
    return *number;
}

FetchExtent ExtentOf(ULONG flags) noexcept {
    if ((flags & MAPI_ENVELOPE_ONLY) != 0) return FetchExtent::Head;
    return (flags & MAPI_SUPPRESS_ATTACH) != 0 ? FetchExtent::Text : FetchExtent::Files;
}

}  // namespace

KV_MAIL_ENTRY cmc_send_documents(char const* recipients, char const* subject, char const* text, ULONG flags,
                                 char const* filePaths, char const* fileNames, char const* delimiter,
                                 ULONG /*uiId*/) {
    // There is no user interface, and a mail that the user wants to see first must not be sent unseen.
    if ((flags & CMC_SEND_UI_REQUESTED) != 0) return CMC_E_UNSUPPORTED_FLAG;
    return Answer(&CmcCode, CMC_E_INSUFFICIENT_MEMORY, CMC_E_FAILURE, [&] {
        Send(LoadAccount(AccountFile()), MailFrom(ViewOf(recipients), ViewOf(subject), ViewOf(text),
                                                  ViewOf(filePaths), ViewOf(fileNames), ViewOf(delimiter)));
        return CMC_SUCCESS;
    });
}

KV_MAIL_ENTRY MAPILogon(ULONG_PTR /*window*/, char const* /*profile*/, char const* /*password*/,
                        ULONG /*flags*/, ULONG /*reserved*/, LHANDLE* session) {
    return AnswerMapi([&] {
        auto store = std::make_unique<MailStore>(AccountFile());
        State& state = TheState();
        state.sessions.emplace(++state.lastSession, std::move(store));
        *session = state.lastSession;
        return SUCCESS_SUCCESS;
    });
}

KV_MAIL_ENTRY MAPIFindNext(LHANDLE session, ULONG_PTR /*window*/, char const* /*messageType*/,
                           char const* seed, ULONG /*flags*/, ULONG /*reserved*/, char* id) {
    return AnswerIn(session, [&](MailStore& store) -> ULONG {
        bool const isFirst = ViewOf(seed).empty();
        auto const next = store.FindNext(isFirst ? std::nullopt : std::optional(NumberOf(seed)));
        if (!next) return MAPI_E_NO_MESSAGES;
        std::string const text = MessageId(*next);
        std::copy_n(text.c_str(), text.size() + 1, id);
        return SUCCESS_SUCCESS;
    });
}

KV_MAIL_ENTRY MAPIReadMail(LHANDLE session, ULONG_PTR /*window*/, char const* id, ULONG flags,
                           ULONG /*reserved*/, MapiMessage** message) {
    return AnswerIn(session, [&](MailStore& store) {
        bool const peek = (flags & (MAPI_PEEK | MAPI_ENVELOPE_ONLY)) != 0;
        auto record = std::make_unique<MailRecord>(store.Fetch(NumberOf(id), ExtentOf(flags), peek));
        *message = record->Message();
        TheState().records.emplace(*message, std::move(record));
        return SUCCESS_SUCCESS;
    });
}

KV_MAIL_ENTRY MAPIDeleteMail(LHANDLE session, ULONG_PTR /*window*/, char const* id, ULONG /*flags*/,
                             ULONG /*reserved*/) {
    return AnswerIn(session, [&](MailStore& store) {
        store.Delete(NumberOf(id));
        return SUCCESS_SUCCESS;
    });
}

KV_MAIL_ENTRY MAPILogoff(LHANDLE session, ULONG_PTR /*window*/, ULONG /*flags*/, ULONG /*reserved*/) {
    return AnswerMapi(
        [&] { return TheState().sessions.erase(session) == 0 ? MAPI_E_INVALID_SESSION : SUCCESS_SUCCESS; });
}

KV_MAIL_ENTRY MAPIFreeBuffer(void* buffer) {
    return AnswerMapi([&] {
        TheState().records.erase(buffer);
        return SUCCESS_SUCCESS;
    });
}
