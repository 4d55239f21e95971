// What the tests of libkvmail share: the library as programs load it, an account, and real servers.
#pragma once

#include "Platform/Library.h"
#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "Platform/mail/MailEntries.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace tests {

/// The entries of libkvmail, which never leaves the program again.
struct Kvmail {
    Kvmail() {
        unsigned long error = 0;
        void* const library = platform::LoadLibraryFile(KV_MAIL_LIBRARY, error);
        auto const bind = [&](auto& entry, char const* name) {
            entry = reinterpret_cast<std::remove_reference_t<decltype(entry)>>(
                platform::FunctionAddress(library, name, error));
            if (entry == nullptr) throw std::runtime_error(name);
        };
        bind(send, "cmc_send_documents");
        bind(logOn, "MAPILogon");
        bind(findNext, "MAPIFindNext");
        bind(readMail, "MAPIReadMail");
        bind(deleteMail, "MAPIDeleteMail");
        bind(logOff, "MAPILogoff");
        bind(freeBuffer, "MAPIFreeBuffer");
    }

    platform::CmcSendDocumentsEntry send = nullptr;
    platform::MAPILogonEntry logOn = nullptr;
    platform::MAPIFindNextEntry findNext = nullptr;
    platform::MAPIReadMailEntry readMail = nullptr;
    platform::MAPIDeleteMailEntry deleteMail = nullptr;
    platform::MAPILogoffEntry logOff = nullptr;
    platform::MAPIFreeBufferEntry freeBuffer = nullptr;
};

/// A variable of the environment, as long as the object lives.
class Environment {
  public:
    Environment(char const* name, std::string const& value) : name_(name) {
        if (char const* const before = std::getenv(name)) before_ = before;
        ::setenv(name, value.c_str(), 1);
    }
    Environment(Environment const&) = delete;
    Environment& operator=(Environment const&) = delete;
    ~Environment() { before_.empty() ? ::unsetenv(name_) : ::setenv(name_, before_.c_str(), 1); }

  private:
    char const* name_;
    std::string before_;
};

/// Servers of the test's own, gone with it.
class MailServers {
  public:
    static constexpr char Program[] = "/usr/sbin/dovecot";

    /// Why there can be none; empty when there can.
    [[nodiscard]] static std::string WhatIsMissing() {
        for (char const* const needed : {Program, "/usr/lib/dovecot/imap", "/usr/bin/openssl",
                                         "/usr/lib/python3/dist-packages/aiosmtpd/smtp.py"}) {
            if (!std::filesystem::exists(needed)) return std::string("no ") + needed + " on this computer";
        }
        return {};
    }

    MailServers()
        : process_(platform::Process::Start("/usr/bin/python3", {KV_MAIL_SERVERS, directory_ / ""})) {
        if (process_ == nullptr) throw std::runtime_error("cannot start the mail servers");
        auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!std::filesystem::exists(directory_ / "ports")) {
            if (!process_->IsRunning() || std::chrono::steady_clock::now() > deadline)
                throw std::runtime_error("the mail servers do not come up");
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        std::ifstream ports(directory_ / "ports");
        ports >> imaps >> imap >> smtps >> breakingImaps >> breakingSmtps;
    }
    MailServers(MailServers const&) = delete;
    MailServers& operator=(MailServers const&) = delete;
    ~MailServers() { Stop(); }

    void Stop() {
        if (process_->IsRunning()) ::kill(static_cast<pid_t>(process_->Id()), SIGTERM);
        process_->Wait();
    }

    [[nodiscard]] std::string operator/(std::string_view name) const { return directory_ / name; }

    /// A message that came in, as its bytes.
    void Deliver(std::string const& name, std::string_view bytes) const {
        tests::PutBytes(directory_ / ("mail/tmp/" + name), bytes);
        std::filesystem::rename(directory_ / ("mail/tmp/" + name), directory_ / ("mail/new/" + name));
    }

    int imaps = 0;
    int imap = 0;
    int smtps = 0;
    int breakingImaps = 0;
    int breakingSmtps = 0;

  private:
    TemporaryDirectory directory_;
    std::unique_ptr<platform::Process> process_;
};

}  // namespace tests
