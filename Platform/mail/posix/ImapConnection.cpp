#include "Platform/mail/posix/ImapConnection.h"

#include "Platform/mail/posix/MailError.h"
#include "Platform/posix/Descriptor.h"

#include <algorithm>
#include <array>
#include <poll.h>

namespace platform::detail {

namespace {

// A slow response may take this multiple of the timeout.
constexpr int SlowResponseFactor = 4;
// The maximum total size of the responses to one command.
constexpr std::size_t LargestAnswer = 4 * ImapCutter::LargestResponse;

[[noreturn]] void FailNetwork(std::string const& words) {
    throw MailError(MailFault::Network, "IMAP: " + words);
}

}  // namespace

ImapConnection::ImapConnection(MailAccount const& account) : timeout_(account.timeoutSeconds) {
    curl_.SetServer(account, account.imap, account.imap.startTls ? "imap" : "imaps");
    curl_.Set(CURLOPT_CONNECT_ONLY, 1L);
    curl_.Perform("IMAP");
    curl_socket_t socket = CURL_SOCKET_BAD;
    curl_easy_getinfo(curl_.Get(), CURLINFO_ACTIVESOCKET, &socket);
    if (socket == CURL_SOCKET_BAD) FailNetwork("no connection");
    socket_ = socket;
}

std::vector<ImapValue> ImapConnection::Command(std::string const& command) {
    auto const deadline = Clock::now() + SlowResponseFactor * timeout_;
    std::string const tag = "K" + std::to_string(++commands_);
    received_ = 0;
    Send(tag + ' ' + command + "\r\n", deadline);
    std::vector<ImapValue> answers;
    while (true) {
        ImapValue response = Receive(deadline);
        if (response[0].Is("*")) {
            if (response[1].Is("BYE")) FailNetwork("connection closed by server");
            response.items.erase(response.items.begin());
            answers.push_back(std::move(response));
        } else if (response[0].Is(tag)) {
            if (response[1].Is("OK")) return answers;
            throw MailError(MailFault::Server, "IMAP: command refused by server: " + command);
        }
    }
}

void ImapConnection::Send(std::string_view bytes, Clock::time_point deadline) {
    while (!bytes.empty()) {
        std::size_t sent = 0;
        CURLcode const code = curl_easy_send(curl_.Get(), bytes.data(), bytes.size(), &sent);
        bytes.remove_prefix(sent);
        if (code == CURLE_AGAIN) {
            Wait(POLLOUT, deadline);
        } else if (code != CURLE_OK) {
            FailNetwork("connection lost");
        }
    }
}

ImapValue ImapConnection::Receive(Clock::time_point deadline) {
    while (true) {
        if (auto const response = cutter_.Next()) {
            auto value = ParseImap(*response);
            if (!value) FailNetwork("malformed response");
            return std::move(*value);
        }
        if (cutter_.IsOverfull() || received_ > LargestAnswer) FailNetwork("response too large");
        std::array<char, 16384> chunk;
        std::size_t count = 0;
        CURLcode const code = curl_easy_recv(curl_.Get(), chunk.data(), chunk.size(), &count);
        if (code == CURLE_AGAIN) {
            Wait(POLLIN, deadline);
        } else if (code != CURLE_OK || count == 0) {
            FailNetwork("connection lost");
        }
        received_ += count;
        cutter_.Add({chunk.data(), count});
    }
}

void ImapConnection::Wait(short events, Clock::time_point deadline) {
    using std::chrono::milliseconds;
    auto const left = std::chrono::duration_cast<milliseconds>(deadline - Clock::now());
    auto const limit = std::min<milliseconds>(left, timeout_);
    pollfd entry = {socket_, events, 0};
    if (limit.count() <= 0 || Retry([&] { return ::poll(&entry, 1, static_cast<int>(limit.count())); }) <= 0)
        FailNetwork("timed out");
}

}  // namespace platform::detail
