// Curl: a libcurl handle with common settings.
#pragma once

#include "Platform/mail/posix/MailAccount.h"

#include <array>
#include <curl/curl.h>
#include <memory>
#include <string>

namespace platform::detail {

class CurlHandle {
  public:
    CurlHandle();

    [[nodiscard]] CURL* Get() const noexcept { return curl_.get(); }
    template <class Value>
    void Set(CURLoption option, Value value) {
        Require(curl_easy_setopt(Get(), option, value));
    }

    /// Sets the server, with TLS and a verified certificate, and the user's credentials. `scheme` without "s"
    /// selects STARTTLS.
    void SetServer(MailAccount const& account, MailServer const& server, std::string const& scheme);
    /// Performs the transfer. Throws a `MailError` with `what` and libcurl's message on failure.
    void Perform(std::string const& what);

  private:
    static void Require(CURLcode code);

    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl_;
    std::unique_ptr<std::array<char, CURL_ERROR_SIZE>> words_;
};

/// Blocks SIGPIPE for the lifetime of the object, on its thread only, so that a broken connection does not
/// end the program.
class SigpipeGuard {
  public:
    SigpipeGuard() noexcept;
    SigpipeGuard(SigpipeGuard const&) = delete;
    SigpipeGuard& operator=(SigpipeGuard const&) = delete;
    ~SigpipeGuard();

  private:
    bool wasOurs_ = false;  // blocked here, so a pending signal was caused here
};

}  // namespace platform::detail
