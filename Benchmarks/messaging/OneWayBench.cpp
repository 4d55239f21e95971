// Bursts of messages of 1 KB and 64 KB in one direction, until the last has arrived: through the post office,
// over a bare local socket and through ZeroMQ. Both programs share one processor.
#include "Benchmarks/Ratios.h"
#include "Benchmarks/messaging/Asker.h"
#include "Benchmarks/messaging/Peers.h"
#include "KVUtils/Source/messaging/PostOffice.h"

#include <zmq.h>

namespace {

using bench::Place;

/// The same for every size of message.
constexpr std::size_t BytesOfABurst = 16U << 20;

std::size_t SizeOf(benchmark::State const& state) { return static_cast<std::size_t>(state.range(0)); }
std::size_t CountOf(benchmark::State const& state) { return BytesOfABurst / SizeOf(state); }

void Account(benchmark::State& state) {
    auto const bytes = static_cast<std::int64_t>(BytesOfABurst) * state.iterations();
    state.SetBytesProcessed(bytes);
    state.SetItemsProcessed(bytes / state.range(0));
}

void SendBurst(benchmark::State& state, std::vector<char> const& payload) {
    long const size = static_cast<long>(payload.size());
    for (std::size_t i = 0; i < CountOf(state); ++i) {
        kv::MyMemoryBlock data(size);
        data.Put(payload.data(), size);
        sv::String target(0);
        sv::String message(int{kv::SPECTRUM_DOWNLOAD});
        if (kv::PostOffice::Instance()->Send(target, message, data) == 0)
            return state.SkipWithError("not sent");
    }
    kv::MyMemoryBlock question;
    kv::MyMemoryBlock answer;
    long taken = 0;
    kv::PostOffice::Instance()->SendAndReceive(0, kv::OUTPUT_STATUS, question, answer,
                                               kv::DisEnable::Nothing);
    answer >> taken;
    if (static_cast<std::size_t>(taken) != CountOf(state)) state.SkipWithError("messages were lost");
}

void BM_OneWaySend(benchmark::State& state) {
    Place const place;
    std::vector<char> const payload = bench::Payload(SizeOf(state));
    bool const isThere = bench::RunInOffice(place, [&] {
        for (auto _ : state) SendBurst(state, payload);
        Account(state);
    });
    if (!isThere) state.SkipWithError("no server");
}
BENCHMARK(BM_OneWaySend)
    ->Arg(bench::Small)
    ->Arg(bench::Large)
    ->UseRealTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

void BM_OneWayBareSocket(benchmark::State& state) {
    Place const place;
    std::vector<char> bytes(SizeOf(state) + bench::FrameOverhead);
    bench::PeerOnSocket const receiver("sink", CountOf(state) * bytes.size());
    char done = 0;
    for (auto _ : state) {
        for (std::size_t i = 0; i < CountOf(state); ++i) {
            if (!bench::SendAll(receiver.Socket(), bytes)) return state.SkipWithError("not sent");
        }
        if (recv(receiver.Socket(), &done, 1, 0) != 1) return state.SkipWithError("no answer");
    }
    Account(state);
}
BENCHMARK(BM_OneWayBareSocket)
    ->Arg(bench::Small)
    ->Arg(bench::Large)
    ->UseRealTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

void BM_OneWayZeroMq(benchmark::State& state) {
    Place const place;
    std::string const endpoint = "ipc://" + place.Name("zeromq");
    bench::Peer const receiver({"pull", endpoint});
    void* const context = zmq_ctx_new();
    void* const out = zmq_socket(context, ZMQ_PUSH);
    void* const done = zmq_socket(context, ZMQ_PULL);
    zmq_connect(out, endpoint.c_str());
    zmq_connect(done, (endpoint + "-done").c_str());
    std::vector<char> const payload = bench::Payload(SizeOf(state));
    char answer = 0;
    for (auto _ : state) {
        for (std::size_t i = 0; i < CountOf(state); ++i) zmq_send(out, payload.data(), payload.size(), 0);
        zmq_send(out, payload.data(), 1, 0);
        if (zmq_recv(done, &answer, 1, 0) != 1) state.SkipWithError("no answer");
    }
    Account(state);
    zmq_close(out);
    zmq_close(done);
    zmq_ctx_term(context);
}
BENCHMARK(BM_OneWayZeroMq)
    ->Arg(bench::Small)
    ->Arg(bench::Large)
    ->UseRealTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

bench::Ratio const bareSmall("BM_OneWaySend/1024", "BM_OneWayBareSocket/1024",
                             "1 KB one way, over writes to a bare socket");
bench::Ratio const bareLarge("BM_OneWaySend/65536", "BM_OneWayBareSocket/65536", "64 KB, likewise");
bench::Ratio const zeroMqSmall("BM_OneWaySend/1024", "BM_OneWayZeroMq/1024",
                               "1 KB one way, over ZeroMQ's PUSH and PULL");
bench::Ratio const zeroMqLarge("BM_OneWaySend/65536", "BM_OneWayZeroMq/65536", "64 KB, likewise");

}  // namespace
