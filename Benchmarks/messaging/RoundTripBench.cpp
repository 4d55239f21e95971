// A request of 1 KB answered by the same bytes: between two post offices, over the transport below them, over
// a bare local socket, over D-Bus and over ZeroMQ. All programs, including the bus daemon, share one
// processor.
#include "Benchmarks/Ratios.h"
#include "Benchmarks/messaging/Asker.h"
#include "Benchmarks/messaging/Peers.h"
#include "KVUtils/Source/messaging/MessageTable.h"
#include "Platform/EventLoop.h"
#include "Platform/Tests/DdeEndpoint.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <fstream>
#include <systemd/sd-bus.h>
#include <zmq.h>

namespace {

using bench::Place;

constexpr std::size_t TripsOfABatch = 255;
constexpr int Batches = 12;

/// One iteration is a batch. Its time is that of the median round trip, which other programs do not disturb.
template <class Trip>
void MeasureTrips(benchmark::State& state, Trip const& trip) {
    using Clock = std::chrono::steady_clock;
    std::array<double, TripsOfABatch> seconds{};
    for (auto _ : state) {
        for (double& time : seconds) {
            auto const start = Clock::now();
            if (!trip()) return state.SkipWithError("no answer");
            time = std::chrono::duration<double>(Clock::now() - start).count();
        }
        auto* const median = seconds.begin() + TripsOfABatch / 2;
        std::ranges::nth_element(seconds, median);
        state.SetIterationTime(*median);
    }
}

void BM_SendAndReceive(benchmark::State& state) {
    Place const place;
    std::vector<char> const payload = bench::Payload(bench::Small);
    bool const isThere = bench::RunInOffice(
        place, [&] { MeasureTrips(state, [&] { return bench::Ask(kv::SPECTRUM_REQUEST, payload); }); });
    if (!isThere) state.SkipWithError("no server");
}
BENCHMARK(BM_SendAndReceive)->UseManualTime()->Iterations(Batches)->Unit(benchmark::kMicrosecond);

void BM_PokeAndPokeBack(benchmark::State& state) {
    Place const place;
    bench::Peer const answerer({"poke"});
    tests::DdeEndpoint asker("asker");
    bool isAnswered = false;
    asker.onPoke = [&](platform::HCONV, std::string_view, std::string_view) { isAnswered = true; };
    platform::HCONV const conversation = asker.Connect("answerer");
    std::vector<char> const payload = bench::Payload(bench::Small);
    MeasureTrips(state, [&] {
        isAnswered = false;
        if (!asker.Poke(conversation, "SPECTRUM_REQUEST", {payload.data(), payload.size()})) return false;
        while (!isAnswered) {
            if (!platform::EventLoop::DispatchOne()) platform::EventLoop::Wait(platform::EventLoop::Forever);
        }
        return true;
    });
}
BENCHMARK(BM_PokeAndPokeBack)->UseManualTime()->Iterations(Batches)->Unit(benchmark::kMicrosecond);

void BM_BareSocketRoundTrip(benchmark::State& state) {
    Place const place;
    constexpr std::size_t Size = bench::Small + bench::FrameOverhead;
    bench::PeerOnSocket const answerer("socket", Size);
    std::vector<char> bytes(Size);
    MeasureTrips(state, [&] {
        return bench::SendAll(answerer.Socket(), bytes) && bench::ReceiveAll(answerer.Socket(), bytes);
    });
}
BENCHMARK(BM_BareSocketRoundTrip)->UseManualTime()->Iterations(Batches)->Unit(benchmark::kMicrosecond);

// A private daemon, separate from the user's.
std::string WriteBusConfiguration(Place const& place) {
    std::string name = place.Name("bus.conf");
    std::ofstream(name) << "<busconfig><type>session</type><listen>unix:path=" << place.Name("bus")
                        << "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
                           "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>\n";
    return name;
}

bool CallOverBus(sd_bus* bus, std::vector<char> const& payload) {
    sd_bus_message* question = nullptr;
    sd_bus_message* answer = nullptr;
    void const* bytes = nullptr;
    std::size_t size = 0;
    bool const isAnswered = sd_bus_message_new_method_call(bus, &question, bench::BusName, bench::BusPath,
                                                           bench::BusInterface, "Echo") >= 0 &&
                            sd_bus_message_append_array(question, 'y', payload.data(), payload.size()) >= 0 &&
                            sd_bus_call(bus, question, 0, nullptr, &answer) >= 0 &&
                            sd_bus_message_read_array(answer, 'y', &bytes, &size) >= 0 &&
                            size == payload.size();
    sd_bus_message_unref(question);
    sd_bus_message_unref(answer);
    return isAnswered;
}

void BM_DBusRoundTrip(benchmark::State& state) {
    Place const place;
    bench::Peer const daemon("dbus-daemon", {"--nofork", "--nopidfile", "--print-address=1",
                                             "--config-file=" + WriteBusConfiguration(place)});
    bench::Peer const answerer({"bus", daemon.FirstLine()});
    sd_bus* bus = nullptr;
    if (sd_bus_new(&bus) < 0 || sd_bus_set_address(bus, daemon.FirstLine().c_str()) < 0 ||
        sd_bus_set_bus_client(bus, 1) < 0 || sd_bus_start(bus) < 0) {
        return state.SkipWithError("no bus");
    }
    std::vector<char> const payload = bench::Payload(bench::Small);
    MeasureTrips(state, [&] { return CallOverBus(bus, payload); });
    sd_bus_unref(bus);
}
BENCHMARK(BM_DBusRoundTrip)->UseManualTime()->Iterations(Batches)->Unit(benchmark::kMicrosecond);

void BM_ZeroMqRoundTrip(benchmark::State& state) {
    Place const place;
    std::string const endpoint = "ipc://" + place.Name("zeromq");
    bench::Peer const answerer({"reply", endpoint});
    void* const context = zmq_ctx_new();
    void* const socket = zmq_socket(context, ZMQ_REQ);
    if (zmq_connect(socket, endpoint.c_str()) != 0) return state.SkipWithError("zmq_connect");
    std::vector<char> bytes = bench::Payload(bench::Small);
    int const size = static_cast<int>(bytes.size());
    MeasureTrips(state, [&] {
        return zmq_send(socket, bytes.data(), bytes.size(), 0) == size &&
               zmq_recv(socket, bytes.data(), bytes.size(), 0) == size;
    });
    zmq_close(socket);
    zmq_ctx_term(context);
}
BENCHMARK(BM_ZeroMqRoundTrip)->UseManualTime()->Iterations(Batches)->Unit(benchmark::kMicrosecond);

bench::Ratio const bare("BM_SendAndReceive", "BM_BareSocketRoundTrip",
                        "a question and its answer over the same bytes on a bare socket");
bench::Ratio const transport("BM_PokeAndPokeBack", "BM_BareSocketRoundTrip",
                             "the transport's part of that: a poke and one back");
bench::Ratio const dbus("BM_SendAndReceive", "BM_DBusRoundTrip",
                        "a question and its answer over a call through the D-Bus daemon");
bench::Ratio const zeroMq("BM_SendAndReceive", "BM_ZeroMqRoundTrip",
                          "a question and its answer over ZeroMQ's REQ and REP");

}  // namespace
