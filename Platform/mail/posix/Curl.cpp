#include "Platform/mail/posix/Curl.h"

#include "Platform/mail/posix/MailError.h"

#include <csignal>
#include <ctime>
#include <new>

namespace platform::detail {

namespace {

sigset_t SigpipeAlone() noexcept {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    return set;
}

MailFault FaultOf(CURLcode code) noexcept {
    switch (code) {
        case CURLE_LOGIN_DENIED:
        case CURLE_AUTH_ERROR:
            return MailFault::Logon;
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
        case CURLE_COULDNT_RESOLVE_HOST:
        case CURLE_COULDNT_RESOLVE_PROXY:
        case CURLE_COULDNT_CONNECT:
        case CURLE_OPERATION_TIMEDOUT:
        case CURLE_GOT_NOTHING:
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_USE_SSL_FAILED:
        case CURLE_WEIRD_SERVER_REPLY:
            return MailFault::Network;
        default:
            return MailFault::Server;
    }
}

}  // namespace

CurlHandle::CurlHandle()
    : curl_(curl_easy_init(), &curl_easy_cleanup), words_(new std::array<char, CURL_ERROR_SIZE>{}) {
    if (curl_ == nullptr) throw std::bad_alloc();
    Set(CURLOPT_ERRORBUFFER, words_->data());
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_PROTOCOLS_STR, "imap,imaps,smtp,smtps");
    Set(CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
    Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
}

void CurlHandle::SetServer(MailAccount const& account, MailServer const& server, std::string const& scheme) {
    Set(CURLOPT_URL, (scheme + "://" + server.host + ':' + std::to_string(server.port)).c_str());
    Set(CURLOPT_USERNAME, account.user.c_str());
    if (account.token.empty()) {
        Set(CURLOPT_PASSWORD, account.password.c_str());
    } else {
        Set(CURLOPT_XOAUTH2_BEARER, account.token.c_str());
    }
    if (!account.caFile.empty()) Set(CURLOPT_CAINFO, account.caFile.c_str());
    long const seconds = account.timeoutSeconds;
    Set(CURLOPT_CONNECTTIMEOUT, seconds);
    Set(CURLOPT_SERVER_RESPONSE_TIMEOUT, seconds);
    Set(CURLOPT_LOW_SPEED_LIMIT, 1L);
    Set(CURLOPT_LOW_SPEED_TIME, seconds);
}

void CurlHandle::Perform(std::string const& what) {
    CURLcode const code = curl_easy_perform(Get());
    if (code == CURLE_OK) return;
    std::string const words = words_->front() != '\0' ? words_->data() : curl_easy_strerror(code);
    long answer = 0;
    curl_easy_getinfo(Get(), CURLINFO_RESPONSE_CODE, &answer);
    MailFault const fault = FaultOf(code);
    // libcurl reports a refusal by an SMTP server as a network error.
    throw MailError(fault == MailFault::Network && answer >= 400 ? MailFault::Server : fault,
                    what + ": " + words);
}

void CurlHandle::Require(CURLcode code) {
    if (code != CURLE_OK) throw MailError(MailFault::Configuration, curl_easy_strerror(code));
}

SigpipeGuard::SigpipeGuard() noexcept {
    sigset_t const set = SigpipeAlone();
    sigset_t before;
    wasOurs_ = pthread_sigmask(SIG_BLOCK, &set, &before) == 0 && sigismember(&before, SIGPIPE) == 0;
}

SigpipeGuard::~SigpipeGuard() {
    if (!wasOurs_) return;
    sigset_t const set = SigpipeAlone();
    timespec const now{};
    sigtimedwait(&set, nullptr, &now);
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

}  // namespace platform::detail
