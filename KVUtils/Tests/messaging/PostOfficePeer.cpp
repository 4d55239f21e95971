// The other program in tests of the messages.
//
//   HQMSERV ask TARGET NAME INI COUNT SIZE  as program NAME asks TARGET COUNT times for the spectrum, with
//   texts
//                                           of SIZE bytes; exits with 0 if every answer was its number
//   HQMSERV ...                             a measuring server without an instrument
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
        office.ChangeMessageHdl(kv::GET_SW_VERSION, sv::Link::To<&Server::StartHdl>(*this), 1);
    }

  private:
    long EchoHdl(KORVELEvent* event) {
        sv::String text;
        MyMemoryBlock data = event->GetData();
        data >> text;
        return Answer(event, text);
    }
    /// Answers how this program was started, and where.
    long StartHdl(KORVELEvent* event) {
        return Answer(event, commandLine_ + " in " + std::filesystem::current_path().string());
    }

    static long Answer(KORVELEvent* event, sv::String const& text) {
        MyMemoryBlock data;
        data << text;
        return PostOffice::Instance()->Answer(event, data);
    }

    sv::String commandLine_;
};

int Ask(std::vector<std::string> const& words) {
    sv::String const ini(words[3]);
    kv::AppDir::CreateAppDir(ini);
    kv::KORVELConfig::CreateKORVELConfig(ini);
    PostOffice& office = *PostOffice::CreatePostOffice(sv::String(words[2]));
    int const asked = office.NewApp("", sv::String(words[1])) - 1;
    for (unsigned long i = 0; i < std::stoul(words[4]); ++i) {
        std::string const message = tests::NumberedMessage(i, std::stoul(words[5]));
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
    if (words.size() == 6 && words[0] == "ask") return Ask(words);
    sv::String commandLine;
    for (std::string const& word : words) commandLine += (commandLine.IsEmpty() ? "" : " ") + word;
    Server const server(commandLine);
    sv::Application::Execute();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    sv::Application::SetUserEventHdl(&kv::DDE::UserEvent);
    // A failing test may leave this program running.
    std::thread([] {
        std::this_thread::sleep_for(std::chrono::minutes(5));
        std::_Exit(9);
    }).detach();
    int const result = Run({argv + 1, argv + argc});
    kv::KVSingleton::DeleteAllSingleton();
    return result;
}
