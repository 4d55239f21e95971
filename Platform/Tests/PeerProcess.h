// PeerProcess: a program that a test runs, killed by its owner's destructor.
#pragma once

#include "Platform/Process.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tests {

struct KillProcess {
    void operator()(platform::Process* process) const {
        std::unique_ptr<platform::Process> const owned(process);
        process->Kill();
        process->Wait();
    }
};
using PeerProcess = std::unique_ptr<platform::Process, KillProcess>;

[[nodiscard]] inline PeerProcess StartPeer(std::string const& program,
                                           std::vector<std::string> const& arguments = {}) {
    PeerProcess peer(platform::Process::Start(program, arguments).release());
    if (peer == nullptr) throw std::runtime_error("cannot start " + program);
    return peer;
}

}  // namespace tests
