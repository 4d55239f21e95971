// BenchPeer: the other program of the message benchmarks. It prints a line when it can be reached, and runs
// until it or its parent exits.
//
//   BenchPeer office            a post office with the measuring server's name
//   BenchPeer poke              the transport only: pokes back what is poked
//   BenchPeer socket FD SIZE    echoes SIZE bytes over the socket
//   BenchPeer sink FD SIZE      sends one byte for every SIZE bytes received
//   BenchPeer bus ADDRESS       a service at a D-Bus daemon
//   BenchPeer reply ENDPOINT    a ZeroMQ REP socket
//   BenchPeer pull ENDPOINT     a ZeroMQ PULL socket, and ENDPOINT-done to report the end of a burst
#include "Benchmarks/messaging/Peers.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "Platform/Tests/DdeEndpoint.h"
#include "SV/core/Application.h"

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <systemd/sd-bus.h>
#include <unistd.h>
#include <utility>
#include <vector>
#include <zmq.h>

namespace {

using kv::KORVELEvent;
using kv::MyMemoryBlock;
using kv::PostOffice;

void PrintReady() {
    std::puts("ready");
    std::fflush(stdout);
}

class Office {
  public:
    Office() {
        PostOffice& office = *PostOffice::CreatePostOffice("HQMSERV");
        office.ChangeMessageHdl(kv::SPECTRUM_REQUEST, sv::Link::To<&Office::EchoHdl>(*this), 1);
        office.ChangeMessageHdl(kv::SPECTRUM_DOWNLOAD, sv::Link::To<&Office::TakeHdl>(*this), 1);
        office.ChangeMessageHdl(kv::OUTPUT_STATUS, sv::Link::To<&Office::CountHdl>(*this), 1);
        office.ChangeMessageHdl(kv::EXEC_MEASUREMENT, sv::Link::To<&Office::MeasureHdl>(*this), 1);
    }

  private:
    long EchoHdl(KORVELEvent* event) {
        MyMemoryBlock data = event->GetData();
        return PostOffice::Instance()->Answer(event, data);
    }
    long TakeHdl(KORVELEvent* /*event*/) {
        ++taken_;
        return 0;
    }
    long CountHdl(KORVELEvent* event) {
        MyMemoryBlock data;
        data << std::exchange(taken_, 0);
        return PostOffice::Instance()->Answer(event, data);
    }
    long MeasureHdl(KORVELEvent* event) {
        sleep(bench::SecondsToWait);
        return EchoHdl(event);
    }

    long taken_ = 0;
};

void RunOffice() {
    Office const office;
    sv::Application::SetUserEventHdl(&kv::DDE::UserEvent);
    PrintReady();
    sv::Application::Execute();
}

void RunPoke() {
    tests::DdeEndpoint endpoint("answerer");
    platform::HCONV back = nullptr;
    endpoint.onPoke = [&](platform::HCONV, std::string_view, std::string_view data) {
        if (back == nullptr) back = endpoint.Connect("asker");
        if (!endpoint.Poke(back, "SPECTRUM_REQUEST", data)) std::exit(1);
    };
    PrintReady();
    while (!tests::RunUntil([] { return false; })) continue;
}

void RunSocket(int socket, std::size_t size) {
    std::vector<char> bytes(size);
    PrintReady();
    while (bench::ReceiveAll(socket, bytes) && bench::SendAll(socket, bytes)) continue;
}

void RunSink(int socket, std::size_t burst) {
    std::vector<char> bytes(bench::Large);
    PrintReady();
    std::size_t taken = 0;
    for (ssize_t count = 0; (count = recv(socket, bytes.data(), bytes.size(), 0)) > 0;) {
        taken += static_cast<std::size_t>(count);
        if (taken < burst) continue;
        taken -= burst;
        if (send(socket, bytes.data(), 1, MSG_NOSIGNAL) != 1) return;
    }
}

int EchoOnBus(sd_bus_message* message, void* /*data*/, sd_bus_error* /*error*/) {
    void const* bytes = nullptr;
    std::size_t size = 0;
    sd_bus_message* answer = nullptr;
    int result = sd_bus_message_read_array(message, 'y', &bytes, &size);
    if (result >= 0) result = sd_bus_message_new_method_return(message, &answer);
    if (result >= 0) result = sd_bus_message_append_array(answer, 'y', bytes, size);
    if (result >= 0) result = sd_bus_send(nullptr, answer, nullptr);
    sd_bus_message_unref(answer);
    return result;
}

void RunBus(char const* address) {
    static sd_bus_vtable const table[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("Echo", "ay", "ay", &EchoOnBus, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END,
    };
    sd_bus* bus = nullptr;
    if (sd_bus_new(&bus) < 0 || sd_bus_set_address(bus, address) < 0 || sd_bus_set_bus_client(bus, 1) < 0 ||
        sd_bus_start(bus) < 0 || sd_bus_request_name(bus, bench::BusName, 0) < 0 ||
        sd_bus_add_object_vtable(bus, nullptr, bench::BusPath, bench::BusInterface, table, nullptr) < 0) {
        std::exit(1);
    }
    PrintReady();
    for (int result = 0; result >= 0;) {
        result = sd_bus_process(bus, nullptr);
        if (result == 0) result = sd_bus_wait(bus, UINT64_MAX);
    }
}

void* Bound(void* context, int kind, std::string const& endpoint) {
    void* const socket = zmq_socket(context, kind);
    if (socket == nullptr || zmq_bind(socket, endpoint.c_str()) != 0) std::exit(1);
    return socket;
}

void RunReply(std::string const& endpoint) {
    void* const socket = Bound(zmq_ctx_new(), ZMQ_REP, endpoint);
    std::vector<char> bytes(bench::Large);
    PrintReady();
    while (true) {
        int const size = zmq_recv(socket, bytes.data(), bytes.size(), 0);
        if (size < 0 || zmq_send(socket, bytes.data(), static_cast<std::size_t>(size), 0) != size) return;
    }
}

void RunPull(std::string const& endpoint) {
    void* const context = zmq_ctx_new();
    void* const in = Bound(context, ZMQ_PULL, endpoint);
    void* const done = Bound(context, ZMQ_PUSH, endpoint + "-done");
    std::vector<char> bytes(bench::Large);
    PrintReady();
    for (int size = 0; (size = zmq_recv(in, bytes.data(), bytes.size(), 0)) >= 0;) {
        if (size == 1 && zmq_send(done, bytes.data(), 1, 0) != 1) return;
    }
}

}  // namespace

int main(int argc, char** argv) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::string_view const role = argc > 1 ? argv[1] : "";
    if (role == "office") RunOffice();
    if (role == "poke") RunPoke();
    if (role == "socket" && argc == 4) RunSocket(std::atoi(argv[2]), std::strtoul(argv[3], nullptr, 10));
    if (role == "sink" && argc == 4) RunSink(std::atoi(argv[2]), std::strtoul(argv[3], nullptr, 10));
    if (role == "bus" && argc == 3) RunBus(argv[2]);
    if (role == "reply" && argc == 3) RunReply(argv[2]);
    if (role == "pull" && argc == 3) RunPull(argv[2]);
    return 1;
}
