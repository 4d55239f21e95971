// A program that writes an ini file, for tests with several writers and with killed ones.
//
//     ConfigWriter write FILE GROUP KEY VALUE      writes one key
//     ConfigWriter keys FILE GROUP PREFIX COUNT    writes PREFIX0 to PREFIX(COUNT - 1), each with its number
//     ConfigWriter rounds FILE GROUP KEY           adds 1 to the key's number until it is killed
//
// Exit code: 0 when everything was written, 1 when a write failed, 2 for other arguments.
#include "SV/core/Config.h"

#include <string_view>
#include <vector>

int main(int argc, char** argv) {
    std::vector<std::string_view> const words(argv, argv + argc);
    std::string_view const command = argc > 4 ? words[1] : "";
    if (argc != (command == "rounds" ? 5 : 6)) return 2;
    sv::Config config(words[2]);
    config.SetGroup(words[3]);
    sv::String const key = words[4];
    if (command == "write") return config.WriteKey(key, words[5]) ? 0 : 1;
    if (command == "keys") {
        bool isWritten = true;
        for (long number = 0; isWritten && number < sv::String(words[5]).ToLong(); ++number)
            isWritten = config.WriteKey(key + sv::String(number), sv::String(number));
        return isWritten ? 0 : 1;
    }
    if (command != "rounds") return 2;
    while (config.WriteKey(key, sv::String(config.ReadKey(key).ToLong() + 1))) continue;
    return 1;
}
