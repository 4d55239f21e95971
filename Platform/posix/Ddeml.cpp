#include "Platform/Ddeml.h"

#include "Platform/posix/DdeCall.h"
#include "Platform/posix/DdeExchange.h"
#include "Platform/posix/DdeFrame.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace platform {

using detail::Conversation;
using detail::DdeInstance;
using detail::Exchange;

namespace {

DdeInstance* Find(std::uint32_t instance) { return Exchange::Instance().FindInstance(instance); }

}  // namespace

unsigned DdeInitializeA(std::uint32_t* instance, PFNCALLBACK callback, std::uint32_t /*commands*/,
                        std::uint32_t /*reserved*/) {
    if (instance == nullptr || *instance != 0 || callback == nullptr) return DMLERR_INVALIDPARAMETER;
    detail::MeetingPlace place;
    if (!place.Open()) return DMLERR_SYS_ERROR;
    *instance = Exchange::Instance().NewInstance(callback, std::move(place))->GetNumber();
    return DMLERR_NO_ERROR;
}

bool DdeUninitialize(std::uint32_t instance) {
    if (Find(instance) == nullptr) return false;
    Exchange::Instance().EndInstance(instance);
    return true;
}

unsigned DdeGetLastError(std::uint32_t instance) {
    DdeInstance* const found = Find(instance);
    return found == nullptr ? DMLERR_INVALIDPARAMETER : found->TakeLastError();
}

HSZ DdeCreateStringHandleA(std::uint32_t instance, char const* text, int /*codePage*/) {
    if (Find(instance) == nullptr || text == nullptr || text[0] == '\0') return nullptr;
    return Exchange::Instance().Strings().Share(
        std::string_view(text).substr(0, detail::FrameHeader::LongestText));
}

bool DdeFreeStringHandle(std::uint32_t instance, HSZ string) {
    return Find(instance) != nullptr && Exchange::Instance().Strings().Free(string);
}

int DdeCmpStringHandles(HSZ left, HSZ right) {
    auto const& strings = Exchange::Instance().Strings();
    return detail::CompareIgnoreCase(strings.Text(left).value_or(""), strings.Text(right).value_or(""));
}

std::uint32_t DdeQueryStringA(std::uint32_t instance, HSZ string, char* target, std::uint32_t size,
                              int /*codePage*/) {
    std::optional<std::string_view> const text = Exchange::Instance().Strings().Text(string);
    if (Find(instance) == nullptr || !text) return 0;
    if (target == nullptr) return static_cast<std::uint32_t>(text->size());
    if (size == 0) return 0;
    std::size_t const length = text->copy(target, size - 1);
    target[length] = '\0';
    return static_cast<std::uint32_t>(length);
}

HDDEDATA DdeNameService(std::uint32_t instance, HSZ service, HSZ /*reserved*/, unsigned command) {
    DdeInstance* const found = Find(instance);
    if (found == nullptr) return nullptr;
    bool isDone = false;
    if (command == DNS_REGISTER) {
        isDone = service != nullptr && found->Register(service);
    } else if (command == DNS_UNREGISTER && service == nullptr) {
        found->UnregisterAll();
        isDone = true;
    } else if (command == DNS_UNREGISTER) {
        isDone = found->Unregister(service);
    }
    return isDone ? DdeAnswer(1) : found->Fail(DMLERR_INVALIDPARAMETER, HDDEDATA{});
}

HCONV DdeConnect(std::uint32_t instance, HSZ service, HSZ topic, void* context) {
    DdeInstance* const found = Find(instance);
    auto const& strings = Exchange::Instance().Strings();
    std::optional<std::string_view> const serviceText = strings.Text(service);
    std::optional<std::string_view> const topicText = strings.Text(topic);
    if (found == nullptr) return nullptr;
    if (!serviceText || !topicText || context != nullptr)
        return found->Fail(DMLERR_INVALIDPARAMETER, HCONV{});
    auto* const conversation = detail::CallPeers(*found, *serviceText, *topicText);
    if (conversation == nullptr && Find(instance) != nullptr)
        found->Fail(DMLERR_NO_CONV_ESTABLISHED, nullptr);
    return conversation;
}

bool DdeDisconnect(HCONV conversation) {
    std::shared_ptr<Conversation> const found = Exchange::Instance().Find(conversation);
    if (found == nullptr || found->GetState() != Conversation::State::Open) return false;
    found->Leave();
    return true;
}

HDDEDATA DdeClientTransaction(void const* data, std::uint32_t length, HCONV conversation, HSZ item,
                              unsigned format, unsigned transaction, std::uint32_t timeout,
                              std::uint32_t* /*result*/) {
    std::shared_ptr<Conversation> const found = Exchange::Instance().Find(conversation);
    DdeInstance* const instance = found == nullptr ? nullptr : Find(found->GetInstance());
    if (instance == nullptr) return nullptr;
    bool const isPoke = transaction == XTYP_POKE;
    std::optional<std::string_view> const itemText = Exchange::Instance().Strings().Text(item);
    if (timeout != TIMEOUT_ASYNC || length > DdeLargestData || (data == nullptr && length > 0) ||
        (!isPoke && transaction != XTYP_EXECUTE) || isPoke != itemText.has_value()) {
        return instance->Fail(DMLERR_INVALIDPARAMETER, HDDEDATA{});
    }
    auto const kind = isPoke ? detail::FrameKind::Poke : detail::FrameKind::Execute;
    std::span const bytes(static_cast<std::byte const*>(data), length);
    if (!found->Send(kind, itemText.value_or(""), format, bytes)) {
        return instance->Fail(DMLERR_SERVER_DIED, HDDEDATA{});
    }
    return DdeAnswer(1);
}

unsigned char const* DdeAccessData(HDDEDATA data, std::uint32_t* length) {
    detail::TransactionData const* const found = Exchange::Instance().FindData(data);
    if (found == nullptr) return nullptr;
    if (length != nullptr) *length = static_cast<std::uint32_t>(found->size());
    // Empty data must not be null either.
    static constexpr unsigned char nothing = 0;
    return found->empty() ? &nothing : reinterpret_cast<unsigned char const*>(found->data());
}

bool DdeUnaccessData(HDDEDATA data) { return Exchange::Instance().FindData(data) != nullptr; }

std::uint32_t DdeGetData(HDDEDATA data, void* target, std::uint32_t size, std::uint32_t offset) {
    detail::TransactionData const* const found = Exchange::Instance().FindData(data);
    if (found == nullptr) return 0;
    auto const total = static_cast<std::uint32_t>(found->size());
    if (target == nullptr) return total;
    std::uint32_t const count = offset < total ? std::min(size, total - offset) : 0;
    if (count > 0) std::memcpy(target, found->data() + offset, count);
    return count;
}

}  // namespace platform
