// Any bytes as a data file, read by any sequence of operations: a failure stays on its line, a success takes
// one line, and the lines are those that a plain splitting finds.
#include "KVUtils/Source/data/ASCIIFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

void Require(bool isKept) {
    if (!isKept) std::abort();
}

/// The first byte chooses modes, the second how many of the next are operations; the rest is the file.
struct Input {
    explicit Input(std::string_view bytes) {
        if (bytes.size() < 2) return;
        tabs = bytes[0] & 1;
        isFile = (bytes[0] & 2) != 0;
        std::size_t const count = static_cast<unsigned char>(bytes[1]) % 64;
        operations = bytes.substr(2, count);
        if (bytes.size() > 2 + count) content = bytes.substr(2 + count);
    }
    kv::uchar tabs = 0;
    bool isFile = false;
    std::string_view operations;
    std::string_view content;
};

sv::String const Key = "k";

enum class Effect { OneLine, SomeLines };

/// One operation: whether it succeeded, and how far it then goes.
struct Outcome {
    bool isRead;
    Effect effect;
};

Outcome Apply(kv::ASCIIFile& file, char operation) {
    kv::uchar flag = 0;
    short number = 0;
    int integer = 0;
    double real = 0;
    short shorts[3];
    int ints[3];
    double reals[3];
    int date[6];
    sv::String text;
    kv::MyStringList list;
    switch (static_cast<unsigned char>(operation) % 16) {
        case 0:
            return {file.GetBOOL(Key, flag) != 0, Effect::OneLine};
        case 1:
            return {file.GetShort(Key, number) != 0, Effect::OneLine};
        case 2:
            return {file.GetInt(Key, integer) != 0, Effect::OneLine};
        case 3:
            return {file.GetReal(Key, real) != 0, Effect::OneLine};
        case 4:
            return {file.GetShortArray(Key, shorts, 3) != 0, Effect::OneLine};
        case 5:
            return {file.GetIntArray(Key, ints, 3) != 0, Effect::OneLine};
        case 6:
            return {file.GetRealArray(Key, reals, 3) != 0, Effect::OneLine};
        case 7:
            return {file.GetString(Key, text, 0) != 0, Effect::OneLine};
        case 8:
            return {file.GetString(Key, text, 1) != 0, Effect::OneLine};
        case 9:
            return {file.GetString(Key, list) != 0, Effect::OneLine};
        case 10:
            return {file.GetMultilineString(Key, text) != 0, Effect::SomeLines};
        case 11:
            return {file.GetDate(Key, date[0], date[1], date[2], date[3], date[4], date[5]) != 0,
                    Effect::OneLine};
        case 12:
            return {file.GetTitel(Key) != 0, Effect::OneLine};
        case 13:
            return {file.GetKeyString(text) != 0, Effect::OneLine};
        case 14:
            return {file.SkipLines(1) != 0, Effect::OneLine};
        default:
            return {file.SkipLines(3) != 0, Effect::SomeLines};
    }
}

/// A look at the line `ahead` lines on, if it is a free one, after which the stream is as it was.
std::string Peek(std::stringstream& stream, kv::ASCIIFile const& file, int ahead) {
    auto const state = stream.rdstate();
    auto const place = stream.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
    kv::ASCIIFile copy(file);
    copy.SkipLines(ahead);
    sv::String line;
    copy.GetKeyString(line);
    stream.clear(state);
    stream.rdbuf()->pubseekpos(place, std::ios::in);
    return std::string(line.View());
}

void CheckOperations(Input const& input) {
    std::stringstream stream{std::string(input.content)};
    kv::ASCIIFile file(&stream, 1, input.tabs);
    for (char const operation : input.operations) {
        std::string const current = Peek(stream, file, 0);
        std::string const next = Peek(stream, file, 1);
        Outcome const outcome = Apply(file, operation);
        if (!outcome.isRead) Require(Peek(stream, file, 0) == current);
        if (outcome.isRead && outcome.effect == Effect::OneLine) Require(Peek(stream, file, 0) == next);
    }
    Require(file.GetError() == 0);
}

/// The same lines by other means.
std::vector<std::string> PlainLines(std::string_view content) {
    std::vector<std::string> lines;
    while (!content.empty()) {
        std::size_t const end = content.find('\n');
        std::string line(content.substr(0, end));
        if (end != std::string_view::npos && line.ends_with('\r')) line.pop_back();
        line = std::string(line.substr(0, 1023).c_str());
        std::string decoded;
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (line[i] == '^' && i + 1 < line.size()) {
                decoded += static_cast<char>(line[++i] - 64);
            } else if (line[i] != '\t') {
                decoded += line[i];
            }
        }
        lines.push_back(decoded);
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
    }
    return lines;
}

void CheckLines(Input const& input) {
    std::stringstream stream{std::string(input.content)};
    kv::ASCIIFile file(&stream, 1, input.tabs);
    for (std::string const& line : PlainLines(input.content)) {
        sv::String found;
        bool const isFree = file.GetKeyString(found) != 0;
        Require(isFree == (!line.empty() && line.front() != '['));
        if (isFree) {
            Require(found.View() == line);
        } else {
            file.SkipLines(1);
        }
    }
    sv::String behind;
    Require(file.GetKeyString(behind) == 0 && stream.eof());
}

/// A named file, of lines ended by CR if no LF comes early.
void CheckFile(Input const& input) {
    static std::string const path =
        (std::filesystem::temp_directory_path() / ("ASCIIFileFuzz." + std::to_string(std::random_device()())))
            .string();
    std::ofstream(path, std::ios::binary) << input.content;
    {
        kv::ASCIIFile file(path, 1, input.tabs);
        float done = file.GetPercentDone();
        Require(done >= -1);
        for (char const operation : input.operations) {
            bool const isRead = Apply(file, operation).isRead;
            Require(isRead ? file.GetPercentDone() >= done : file.GetPercentDone() == done);
            done = file.GetPercentDone();
        }
        file.SkipToTitel("k");
        file.CheckVersion(5);
        Require(file.SkipToTitel("no\nsuch title") == 0);
    }
    std::filesystem::remove(path);
}

/// Any text without the character that begins an escape comes back.
void CheckRoundTrip(Input const& input) {
    std::string text;
    for (char const byte : input.content.substr(0, 500)) {
        if (byte != '^') text += byte;
    }
    std::stringstream stream;
    kv::ASCIIFile(&stream, 0, input.tabs).PutString(Key, text);
    kv::ASCIIFile reader(&stream, 1, input.tabs);
    sv::String found;
    Require(reader.GetString(Key, found, 0) != 0);
    Require(found.View() == (input.tabs != 0 ? "\t" : "") + text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const bytes(data, data + size);
    Input const input(bytes);
    if (input.isFile) {
        CheckFile(input);
    } else {
        CheckOperations(input);
        CheckLines(input);
        CheckRoundTrip(input);
    }
    return 0;
}
