// The other program in tests of the messages.
//
//   HQMSERV ask TARGET NAME INI COUNT SIZE  as the program NAME asks TARGET so many times for the spectrum,
//   with
//                                           texts of so many bytes, each when the answer to the last one is
//                                           there; 0 when every answer was its number
//   HQMSERV ANYTHING ELSE                   a measuring server without an instrument
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "Platform/Tests/DdeNumbered.h"
#include "SV/core/Application.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

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

int Serve(sv::String const& commandLine) {
    Server const server(commandLine);
    sv::Application::Execute();
    return 0;
}

int Ask(sv::String const& target, sv::String const& name, sv::String const& ini, unsigned long count,
        std::size_t size) {
    kv::AppDir::CreateAppDir(ini);
    kv::KORVELConfig::CreateKORVELConfig(ini);
    PostOffice& office = *PostOffice::CreatePostOffice(name);
    int const asked = office.NewApp("", target) - 1;
    for (unsigned long i = 0; i < count; ++i) {
        std::string const message = tests::NumberedMessage(i, size);
        MyMemoryBlock data;
        MyMemoryBlock answer;
        data << message.c_str();
        if (office.SendAndReceive(asked, kv::SPECTRUM_REQUEST, data, answer, kv::DisEnable::Nothing) == 0)
            return 1;
        sv::String text;
        answer >> text;
        if (text != sv::String(i)) return 2;
    }
    return 0;
}

int Run(std::vector<std::string> const& words) {
    if (words.size() == 6 && words[0] == "ask") {
        return Ask(sv::String(words[1]), sv::String(words[2]), sv::String(words[3]), std::stoul(words[4]),
                   std::stoul(words[5]));
    }
    sv::String commandLine;
    for (std::string const& word : words) commandLine += (commandLine.IsEmpty() ? "" : " ") + word;
    return Serve(commandLine);
}

}  // namespace

int main(int argc, char** argv) {
    sv::Application::SetUserEventHdl(&kv::DDE::UserEvent);
    // A test that fails may forget this program.
    std::thread([] {
        std::this_thread::sleep_for(std::chrono::minutes(5));
        std::_Exit(9);
    }).detach();
    int const result = Run({argv + 1, argv + argc});
    kv::KVSingleton::DeleteAllSingleton();
    return result;
}
