// Desktop: a temporary folder for the programs' sockets and the suite's ini file.
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

/// Waits until the server is reachable, or no longer is.
inline void WaitUntil(bool isReachable) {
    for (int i = 0; i < 3000 && kv::PostOffice::IsReachable(suite::ServerName) != isReachable; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

class Desktop {
  public:
    /// A message starts the server under test, which replays `chart`.
    explicit Desktop(std::string const& chart = Chart) {
        // On Windows all tests share the session: the previous test's server has to exit first.
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

/// A process that is killed at the end of the test.
class Program {
  public:
    Program(std::string const& file, std::vector<std::string> const& arguments)
        : process_(tests::StartPeer(file, arguments)) {}

    void Kill() { process_.reset(); }
    /// Waits until it exits. False if it fails or keeps running.
    [[nodiscard]] bool Ends() {
        for (int i = 0; i < 3000 && process_->IsRunning(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return !process_->IsRunning() && process_->Wait() == 0;
    }

  private:
    tests::PeerProcess process_;
};

/// The measuring server, ready for messages.
class ServerProgram : public Program {
  public:
    explicit ServerProgram(std::vector<std::string> const& arguments) : Program(KV_HQMSERV, arguments) {
        WaitUntil(true);
    }
};

}  // namespace hqmserv::test
