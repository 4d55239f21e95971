// Shared by the tests of libkvmail: the library as programs load it, tables of cases, and real servers.
#pragma once

#include "Platform/Library.h"
#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "Platform/Tests/TestSystem.h"
#include "Platform/mail/MailEntries.h"
#include "Platform/mail/posix/Glib.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tests {

/// Returns the path of a file beside the tests.
[[nodiscard]] inline std::filesystem::path DataFile(std::string const& name) {
    return std::filesystem::path(KV_MAIL_SERVERS).parent_path() / name;
}

/// Returns the rows of a table beside the tests: cells between tabs, with the escapes of C in octal.
[[nodiscard]] inline std::vector<std::vector<std::string>> Table(std::string const& name) {
    std::ifstream file(DataFile(name));
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("# ")) continue;
        std::istringstream cells(line + '\t');
        auto& row = rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, '\t');)
            row.push_back(platform::detail::TakeText(g_strcompress(cell.c_str())));
    }
    EXPECT_GT(rows.size(), 3U) << name;
    return rows;
}

/// The entries of libkvmail, which is never unloaded.
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

/// Sets an environment variable for the lifetime of the object.
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

/// Mail servers of one test.
class MailServers {
  public:
    static constexpr char Program[] = "/usr/sbin/dovecot";

    /// Returns what is missing to run them; empty if nothing is.
    [[nodiscard]] static std::string WhatIsMissing() {
        for (char const* const needed : {Program, "/usr/lib/dovecot/imap", "/usr/bin/openssl",
                                         "/usr/lib/python3/dist-packages/aiosmtpd/smtp.py"}) {
            if (!std::filesystem::exists(needed)) return std::string("no ") + needed;
        }
        return {};
    }

    MailServers()
        : process_(platform::Process::Start("/usr/bin/python3", {KV_MAIL_SERVERS, directory_ / ""})) {
        if (process_ == nullptr) throw std::runtime_error("cannot start the mail servers");
        std::filesystem::path const file = directory_ / "ports";
        static_cast<void>(WaitUntil([&] { return std::filesystem::exists(file) || !process_->IsRunning(); },
                                    std::chrono::seconds(30)));
        std::ifstream ports(file);
        if (!(ports >> imaps >> imap >> smtps >> breakingImaps >> breakingSmtps))
            throw std::runtime_error("the mail servers do not start");
    }
    MailServers(MailServers const&) = delete;
    MailServers& operator=(MailServers const&) = delete;
    ~MailServers() { Stop(); }

    void Stop() {
        if (process_->IsRunning()) ::kill(static_cast<pid_t>(process_->Id()), SIGTERM);
        process_->Wait();
    }

    [[nodiscard]] std::string operator/(std::string_view name) const { return directory_ / name; }

    /// Puts a message into the mailbox.
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
