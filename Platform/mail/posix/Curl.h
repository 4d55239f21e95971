// Curl: one transfer or connection of libcurl's, set up as all of ours are.
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

    /// The server, over TLS with a certificate that is checked, and who asks it. `scheme` without "s" begins
    /// TLS inside the connection.
    void SetServer(MailAccount const& account, MailServer const& server, std::string const& scheme);
    /// Throws a `MailError` in the words of libcurl, below `what`, when that fails.
    void Perform(std::string const& what);

  private:
    static void Require(CURLcode code);

    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl_;
    std::unique_ptr<std::array<char, CURL_ERROR_SIZE>> words_;
};

/// Keeps a connection that the other side has cut from ending the program, as long as the object lives and on
/// its thread alone.
class SigpipeGuard {
  public:
    SigpipeGuard() noexcept;
    SigpipeGuard(SigpipeGuard const&) = delete;
    SigpipeGuard& operator=(SigpipeGuard const&) = delete;
    ~SigpipeGuard();

  private:
    bool wasOurs_ = false;  // blocked here, so that what is pending in the end came from here
};

}  // namespace platform::detail
