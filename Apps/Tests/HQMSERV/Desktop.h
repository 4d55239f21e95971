// Desktop: a test's own folder for the programs' sockets, and its own ini file of the suite.
#pragma once

#include "Apps/suite/ServerPayloads.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "Platform/Tests/PeerProcess.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace hqmserv::test {

inline std::string const Chart = KV_APPS_DATA "/chart24-lab-a.csv";

/// Waits some time until the server can be reached, or cannot any more.
inline void WaitUntil(bool isReachable) {
    for (int i = 0; i < 3000 && kv::PostOffice::IsReachable(suite::ServerName) != isReachable; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

class Desktop {
  public:
    /// The server is the program under test; it plays `chart` when a message starts it.
    explicit Desktop(std::string const& chart = Chart) {
        // Where programs find one another by the session, the server of the test before has to end first.
        WaitUntil(false);
        std::ofstream(ini_) << "[HQM-Server]\nPath=" << KV_HQMSERV << "\nMeasurements=" << chart << '\n';
        Set("KORVEL_INI", ini_);
    }
    Desktop(Desktop const&) = delete;
    Desktop& operator=(Desktop const&) = delete;
    ~Desktop() { Set("KORVEL_INI", ""); }

    [[nodiscard]] std::string File(std::string const& name) const { return files_ / name; }

  private:
    static void Set(char const* name, std::string const& value) {
#ifdef _WIN32
        _putenv_s(name, value.c_str());
#else
        setenv(name, value.c_str(), 1);
#endif
    }

    tests::RuntimeDirectory sockets_;
    tests::TemporaryDirectory files_;
    std::string ini_ = File("KORVEL.INI");
};

/// A program that is killed at the end of the test, whatever becomes of it.
class Program {
  public:
    Program(std::string const& file, std::vector<std::string> const& arguments)
        : process_(tests::StartPeer(file, arguments)) {}

    void Kill() { process_.reset(); }
    /// Whether it ends by itself, with success, in some time.
    [[nodiscard]] bool Ends() {
        for (int i = 0; i < 3000 && process_->IsRunning(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return !process_->IsRunning() && process_->Wait() == 0;
    }

  private:
    tests::PeerProcess process_;
};

/// The measuring server, which takes messages from here on.
class ServerProgram : public Program {
  public:
    explicit ServerProgram(std::vector<std::string> const& arguments) : Program(KV_HQMSERV, arguments) {
        WaitUntil(true);
    }
};

}  // namespace hqmserv::test
