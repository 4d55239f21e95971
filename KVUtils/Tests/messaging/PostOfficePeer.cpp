// A measuring server without an instrument, for tests between two programs.
#include "KVUtils/Source/messaging/PostOffice.h"
#include "SV/core/Application.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>

namespace {

using kv::KORVELEvent;
using kv::MyMemoryBlock;
using kv::PostOffice;

class Server {
  public:
    explicit Server(sv::String commandLine) : commandLine_(std::move(commandLine)) {
        auto& office = *PostOffice::CreatePostOffice("HQMSERV");
        office.ChangeMessageHdl(kv::SPECTRUM_REQUEST, sv::Link::To<&Server::EchoHdl>(*this), 1);
        office.ChangeMessageHdl(kv::NEW_FORMULA, sv::Link::To<&Server::AskBackHdl>(*this), 1);
        office.ChangeMessageHdl(kv::GET_SW_VERSION, sv::Link::To<&Server::StartHdl>(*this), 1);
        office.ChangeMessageHdl(kv::MOVE_UP, sv::Link::To<&Server::CountHdl>(*this), 1);
        office.ChangeMessageHdl(kv::OUTPUT_STATUS, sv::Link::To<&Server::StatusHdl>(*this), 1);
    }

  private:
    /// The text that came in.
    long EchoHdl(KORVELEvent* event) {
        sv::String text;
        MyMemoryBlock data = event->GetData();
        data >> text;
        return Answer(event, text);
    }
    /// What the asker answers when it is asked for the time.
    long AskBackHdl(KORVELEvent* event) {
        PostOffice& office = *PostOffice::Instance();
        int const asker = office.NewApp("", event->GetSender()) - 1;
        MyMemoryBlock data;
        MyMemoryBlock time;
        sv::String text = "not sent";
        if (office.SendAndReceive(asker, kv::TIME_REQUEST, data, time, kv::DisEnable::Nothing) != 0)
            time >> text;
        return Answer(event, text);
    }
    /// How this program was started, and where.
    long StartHdl(KORVELEvent* event) {
        return Answer(event, commandLine_ + " in " + std::filesystem::current_path().string());
    }
    long CountHdl(KORVELEvent* event) {
        long number = -1;
        MyMemoryBlock data = event->GetData();
        data >> number;
        if (number == counted_) ++counted_;
        return 0;
    }
    /// How many numbers came in their order.
    long StatusHdl(KORVELEvent* event) { return Answer(event, sv::String(counted_)); }

    static long Answer(KORVELEvent* event, sv::String const& text) {
        MyMemoryBlock data;
        data << text;
        return PostOffice::Instance()->Answer(event, data);
    }

    sv::String commandLine_;
    long counted_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    sv::String commandLine;
    for (int i = 1; i < argc; ++i) commandLine += sv::String(i > 1 ? " " : "") + argv[i];
    Server const server(commandLine);
    sv::Application::SetUserEventHdl(&kv::DDE::UserEvent);
    // A test that fails may forget this program.
    std::thread([] {
        std::this_thread::sleep_for(std::chrono::minutes(2));
        sv::Application::Quit();
    }).detach();
    sv::Application::Execute();
    kv::KVSingleton::DeleteAllSingleton();
}
