// A round trip of 1 KB, poked there and poked back, against the same bytes sent to and fro over a bare local
// socket with blocking calls. Both take turns within one run, and all processes share one processor, so that
// the ratio says what the protocol and the loop add to the system's own work.
#include "Benchmarks/Ratios.h"
#include "Platform/Ddeml.h"
#include "Platform/EventLoop.h"
#include "Platform/Tests/RuntimeDirectory.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sched.h>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using platform::HCONV;
using platform::HDDEDATA;
using platform::HSZ;
using Clock = std::chrono::steady_clock;

constexpr std::size_t PayloadSize = 1024;
// What a poke adds to its data: header and item.
constexpr std::size_t MessageSize = PayloadSize + 16 + 5;
constexpr char const* RoleVariable = "KVUTILS_BENCH_ROLE";

// One end of the conversation: pokes, and counts what is poked to it.
class End {
  public:
    End(char const* ownTopic, bool answers) {
        current = this;
        answers_ = answers;
        if (platform::DdeInitializeA(&instance_, &Callback, 0, 0) != platform::DMLERR_NO_ERROR) std::abort();
        service_ = Handle("KVUtilsBench");
        topic_ = Handle(ownTopic);
        item_ = Handle("BENCH");
        platform::DdeNameService(instance_, service_, nullptr, platform::DNS_REGISTER);
    }
    End(End const&) = delete;
    End& operator=(End const&) = delete;
    ~End() { platform::DdeUninitialize(instance_); }

    bool Connect(char const* topic) {
        HSZ const target = Handle(topic);
        conversation_ = platform::DdeConnect(instance_, service_, target, nullptr);
        platform::DdeFreeStringHandle(instance_, target);
        return conversation_ != nullptr;
    }

    void Poke(void const* data, std::uint32_t length) {
        platform::DdeClientTransaction(data, length, conversation_, item_, platform::CF_TEXT,
                                       platform::XTYP_POKE, platform::TIMEOUT_ASYNC, nullptr);
    }

    void AwaitAnswer() {
        std::size_t const before = received_;
        while (received_ == before) {
            if (!platform::EventLoop::DispatchOne()) platform::EventLoop::Wait(platform::EventLoop::Forever);
        }
    }

  private:
    HSZ Handle(char const* text) const {
        return platform::DdeCreateStringHandleA(instance_, text, platform::CP_WINANSI);
    }

    static HDDEDATA Callback(unsigned transaction, unsigned, HCONV, HSZ topic, HSZ, HDDEDATA data,
                             std::uintptr_t, std::uintptr_t) {
        if (transaction == platform::XTYP_CONNECT) {
            return platform::DdeAnswer(platform::DdeCmpStringHandles(topic, current->topic_) == 0);
        }
        if (transaction == platform::XTYP_POKE) {
            ++current->received_;
            std::uint32_t length = 0;
            unsigned char const* const bytes = platform::DdeAccessData(data, &length);
            if (current->answers_) {
                if (current->conversation_ == nullptr) current->Connect("asker");
                current->Poke(bytes, length);
            }
            return platform::DdeAnswer(platform::DDE_FACK);
        }
        return nullptr;
    }

    static inline End* current = nullptr;

    std::uint32_t instance_ = 0;
    HSZ service_ = nullptr;
    HSZ topic_ = nullptr;
    HSZ item_ = nullptr;
    HCONV conversation_ = nullptr;
    std::size_t received_ = 0;
    bool answers_ = false;
};

bool SendAll(int socket, std::array<char, MessageSize> const& bytes) {
    return send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
}

bool ReceiveAll(int socket, std::array<char, MessageSize>& bytes) {
    return recv(socket, bytes.data(), bytes.size(), MSG_WAITALL) == static_cast<ssize_t>(bytes.size());
}

// This program starts itself again as the other end, which never reaches main().
[[maybe_unused]] bool const isOtherEnd = [] {
    char const* const role = std::getenv(RoleVariable);
    if (role == nullptr) return false;
    if (std::string_view(role) == "dde") {
        End answerer("answerer", true);
        while (true) answerer.AwaitAnswer();
    }
    std::array<char, MessageSize> bytes{};
    int const socket = std::atoi(role);
    while (ReceiveAll(socket, bytes) && SendAll(socket, bytes)) continue;
    std::_Exit(0);
}();

class OtherEnd {
  public:
    explicit OtherEnd(std::string const& role) {
        setenv(RoleVariable, role.c_str(), 1);
        std::string name = "KVUtilsBench";
        std::array<char*, 2> arguments{name.data(), nullptr};
        if (posix_spawn(&id_, "/proc/self/exe", nullptr, nullptr, arguments.data(), environ) != 0)
            std::abort();
        unsetenv(RoleVariable);
    }
    OtherEnd(OtherEnd const&) = delete;
    OtherEnd& operator=(OtherEnd const&) = delete;
    ~OtherEnd() {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }

  private:
    pid_t id_ = -1;
};

// The processes that start while this lives share the first processor with this one.
class OneProcessor {
  public:
    OneProcessor() {
        sched_getaffinity(0, sizeof before_, &before_);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(0, &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    OneProcessor(OneProcessor const&) = delete;
    OneProcessor& operator=(OneProcessor const&) = delete;
    ~OneProcessor() { sched_setaffinity(0, sizeof before_, &before_); }

  private:
    cpu_set_t before_{};
};

double Median(std::vector<double>& samples) {
    auto const middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

template <class Operation>
double MicrosecondsOf(Operation const& operation) {
    auto const start = Clock::now();
    operation();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void DdeRoundTrip(benchmark::State& state) {
    OneProcessor const oneProcessor;
    // The user's own programs are not asked.
    tests::RuntimeDirectory const directory;
    std::array<int, 2> sockets{};
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, sockets.data()) != 0) return state.SkipWithError("socketpair");
    OtherEnd const bare(std::to_string(sockets[1]));
    close(sockets[1]);
    End asker("asker", false);
    OtherEnd const answerer("dde");
    while (!asker.Connect("answerer")) usleep(1000);

    std::array<char, MessageSize> message{};
    std::vector<double> bareTimes;
    std::vector<double> ddeTimes;
    for (auto _ : state) {
        bareTimes.push_back(
            MicrosecondsOf([&] { SendAll(sockets[0], message) && ReceiveAll(sockets[0], message); }));
        ddeTimes.push_back(MicrosecondsOf([&] {
            asker.Poke(message.data(), PayloadSize);
            asker.AwaitAnswer();
        }));
    }
    close(sockets[0]);
    double const dde = Median(ddeTimes);
    double const socket = Median(bareTimes);
    state.counters["dde_us"] = dde;
    state.counters["socket_us"] = socket;
    state.counters["ratio"] = dde / socket;
}
BENCHMARK(DdeRoundTrip)->UseRealTime();

}  // namespace
