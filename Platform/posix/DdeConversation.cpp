#include "Platform/posix/DdeConversation.h"

#include "Platform/posix/DdeExchange.h"
#include "Platform/posix/DdeMeetingPlace.h"

#include <array>
#include <cerrno>
#include <new>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace platform::detail {

Conversation::Conversation(Side side, Descriptor socket, std::uint32_t instance)
    : side_(side),
      state_(side == Side::Client ? State::Open : State::Calling),
      socket_(std::move(socket)),
      instance_(instance) {
    isBroken_ = !IsPeerOfUser(socket_.Number(), peerProcess_);
}

Conversation::~Conversation() {
    End();
    Exchange::Instance().Strings().Free(service_);
    Exchange::Instance().Strings().Free(topic_);
}

bool Conversation::Start() { return Poller::Instance().Add(socket_.Number(), EPOLLIN, *this); }

bool Conversation::IsOfThisProcess() const noexcept { return peerProcess_ == getpid(); }

bool Conversation::Step(std::uint32_t ready) {
    // The callback may end this conversation, or its instance.
    std::shared_ptr<Conversation> const self = shared_from_this();
    if ((ready & EPOLLOUT) != 0) Flush();
    if (state_ == State::Ended) return false;
    bool const isReadable = (ready & ~std::uint32_t{EPOLLOUT}) != 0;
    // A conversation that is leaving ignores everything except the end of the peer.
    if (state_ == State::Leaving) return isReadable && PeerIsGone();
    return Receive(isReadable);
}

bool Conversation::Receive(bool isReadable) {
    if (!reader_.HasNext()) {
        if (!isReadable) return false;
        std::span<std::byte> const space = reader_.Space();
        ssize_t const count = recv(socket_.Number(), space.data(), space.size(), MSG_DONTWAIT);
        if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR)) return false;
        if (count <= 0) return PeerIsGone();
        reader_.Commit(static_cast<std::size_t>(count));
    }
    Frame frame{};
    switch (reader_.Next(frame)) {
        case FrameReader::Result::Incomplete:
            return false;
        case FrameReader::Result::Malformed:
            return PeerIsGone();
        case FrameReader::Result::Frame:
            break;
    }
    if (reader_.HasNext()) Poller::Instance().CallAgain(*this);
    return Handle(frame);
}

bool Conversation::Handle(Frame const& frame) {
    bool const isServer = side_ == Side::Server;
    switch (frame.kind) {
        case FrameKind::Connect:
            if (isServer && state_ == State::Calling) return AnswerConnect(frame.text1, frame.text2);
            break;
        case FrameKind::Confirm:
            if (isServer && state_ == State::Accepted) return HandleConfirm();
            break;
        case FrameKind::Poke:
        case FrameKind::Execute:
            if (isServer && state_ == State::Open) return HandleTransaction(frame);
            break;
        case FrameKind::Accept:
            break;
    }
    return PeerIsGone();
}

bool Conversation::AnswerConnect(std::string_view service, std::string_view topic) {
    Exchange& exchange = Exchange::Instance();
    DdeInstance const* const instance = exchange.FindInstance(instance_);
    auto* const known = exchange.Strings().Find(service);
    if (instance == nullptr || !instance->HasService(known)) return PeerIsGone();
    exchange.Strings().Keep(known);
    service_ = known;
    topic_ = exchange.Strings().Share(topic);
    bool const isAccepted = Call(XTYP_CONNECT, 0, topic_, service_, nullptr) != nullptr;
    if (state_ == State::Ended) return true;
    if (isAccepted && SendWhole(socket_.Number(), FrameKind::Accept, {}, {})) {
        state_ = State::Accepted;
    } else {
        PeerIsGone();
    }
    return true;
}

bool Conversation::HandleConfirm() {
    state_ = State::Open;
    Call(XTYP_CONNECT_CONFIRM, 0, topic_, service_, nullptr);
    return true;
}

bool Conversation::HandleTransaction(Frame const& frame) {
    Exchange& exchange = Exchange::Instance();
    OpenData const data(exchange, frame.data);
    if (frame.kind == FrameKind::Execute) {
        Call(XTYP_EXECUTE, 0, topic_, nullptr, data.Handle());
    } else {
        StringUse const item(exchange.Strings(), exchange.Strings().Own(frame.text1));
        Call(XTYP_POKE, frame.format, topic_, item.Get(), data.Handle());
    }
    return true;
}

bool Conversation::PeerIsGone() {
    bool const wasOpen = state_ == State::Open;
    End();
    // The handle is valid until the callback returns.
    if (wasOpen) Call(XTYP_DISCONNECT, 0, nullptr, nullptr, nullptr);
    Exchange::Instance().Forget(handle_);
    return wasOpen;
}

HDDEDATA Conversation::Call(unsigned transaction, unsigned format, HSZ string1, HSZ string2,
                            HDDEDATA data) const {
    DdeInstance const* const instance = Exchange::Instance().FindInstance(instance_);
    if (instance == nullptr) return nullptr;
    auto* const conversation = transaction == XTYP_CONNECT ? nullptr : handle_;
    return instance->GetCallback()(transaction, format, conversation, string1, string2, data, 0,
                                   static_cast<std::uintptr_t>(IsOfThisProcess()));
}

bool Conversation::Send(FrameKind kind, std::string_view item, unsigned format,
                        std::span<std::byte const> data) {
    if (side_ != Side::Client || state_ != State::Open || isBroken_) return false;
    FrameHeader const header(kind, item, {}, data.size(), format);
    std::array const parts{BytesOf(header), std::as_bytes(std::span(item)), data};
    std::size_t sent = 0;
    if (outgoing_.Count() == 0) {
        isBroken_ = !SendParts(socket_.Number(), parts, sent);
        if (isBroken_ || sent == sizeof header + header.bodyLength) return !isBroken_;
    }
    return Keep(parts, sent);
}

bool Conversation::Keep(FrameParts parts, std::size_t alreadySent) {
    bool const wasEmpty = outgoing_.Count() == 0;
    try {
        outgoing_.Append(parts, alreadySent);
    } catch (std::bad_alloc const&) {
        // No other frame may follow half a frame.
        if (alreadySent > 0) {
            isBroken_ = true;
            shutdown(socket_.Number(), SHUT_RDWR);
        }
        return false;
    }
    if (wasEmpty) Poller::Instance().Change(socket_.Number(), EPOLLIN | EPOLLOUT, *this);
    return !outgoing_.IsFlushDue() || Flush();
}

bool Conversation::Flush() {
    if (state_ == State::Ended) return false;
    isBroken_ = !outgoing_.Flush(socket_.Number()) || isBroken_;
    if (outgoing_.Count() > 0) return true;
    if (state_ == State::Leaving) {
        PeerIsGone();
    } else {
        Poller::Instance().Change(socket_.Number(), EPOLLIN, *this);
    }
    return !isBroken_;
}

void Conversation::Leave() {
    if (state_ == State::Ended || state_ == State::Leaving) return;
    if (outgoing_.Count() > 0 && !isBroken_) {
        state_ = State::Leaving;
        Poller::Instance().Change(socket_.Number(), EPOLLOUT, *this);
        return;
    }
    End();
    Exchange::Instance().Forget(handle_);
}

void Conversation::End() {
    if (state_ == State::Ended) return;
    state_ = State::Ended;
    Poller::Instance().Remove(socket_.Number(), *this);
    socket_ = Descriptor();
}

}  // namespace platform::detail
