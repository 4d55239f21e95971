// A program that writes an ini file, for tests of what happens when several do so, and when one of them is
// killed.
//
//     ConfigWriter write FILE GROUP KEY VALUE      writes one key
//     ConfigWriter keys FILE GROUP PREFIX COUNT    writes PREFIX0 to PREFIX(COUNT - 1), each with its number
//     ConfigWriter rounds FILE GROUP KEY           adds 1 to the key's number until it is killed
//
// Exit code: 0 when everything was written, 1 when a write failed, 2 for other arguments.
#include "SV/core/Config.h"

#include <string_view>
#include <vector>

namespace {

bool WriteKeys(sv::Config& config, sv::String const& prefix, long count) {
    for (long number = 0; number < count; ++number) {
        sv::String const text(number);
        if (!config.WriteKey(prefix + text, text)) return false;
    }
    return true;
}

bool WriteRounds(sv::Config& config, sv::String const& key) {
    while (config.WriteKey(key, sv::String(config.ReadKey(key).ToLong() + 1))) {
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string_view> const words(argv, argv + argc);
    if (words.size() < 5) return 2;
    sv::Config config(words[2]);
    config.SetGroup(words[3]);
    sv::String const key = words[4];
    bool isWritten = false;
    if (words[1] == "write" && words.size() == 6) {
        isWritten = config.WriteKey(key, words[5]);
    } else if (words[1] == "keys" && words.size() == 6) {
        isWritten = WriteKeys(config, key, sv::String(words[5]).ToLong());
    } else if (words[1] == "rounds" && words.size() == 5) {
        isWritten = WriteRounds(config, key);
    } else {
        return 2;
    }
    return isWritten ? 0 : 1;
}
