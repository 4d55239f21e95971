// Reads any data file by any sequence of operations: a failure stays on its line, a success advances one
// line, and every file ends.
#include "KVUtils/Source/data/ASCIIFile.h"
#include "KVUtils/Tests/data/ASCIIFileReaders.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>

namespace {

void Require(bool isKept) {
    if (!isKept) std::abort();
}

/// The first byte selects modes, the second the number of operations that follow; the rest is the file.
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

bool Apply(kv::ASCIIFile& file, int reader) {
    return (reader < kv::test::Readers ? kv::test::ReadAs(reader, file) : file.SkipLines(1)) != 0;
}

int ReaderOf(char operation) { return static_cast<unsigned char>(operation) % (kv::test::Readers + 1); }

/// Returns the line `ahead` lines after the current one, if it is free text, and restores the stream.
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

void CheckStream(Input const& input) {
    constexpr int OfSeveralLines = kv::test::ReadersOfKeys - 1;
    std::stringstream stream{std::string(input.content)};
    kv::ASCIIFile file(&stream, 1, input.tabs);
    for (char const operation : input.operations) {
        std::string const current = Peek(stream, file, 0);
        std::string const next = Peek(stream, file, 1);
        bool const isRead = Apply(file, ReaderOf(operation));
        if (isRead && ReaderOf(operation) == OfSeveralLines) continue;
        Require(Peek(stream, file, 0) == (isRead ? next : current));
    }
    Require(file.GetError() == 0);
}

/// Reads a named file, whose lines end with CR unless an LF comes early.
void CheckFile(Input const& input) {
    static std::string const path =
        (std::filesystem::temp_directory_path() / ("ASCIIFileFuzz." + std::to_string(std::random_device()())))
            .string();
    std::ofstream(path, std::ios::binary) << input.content;
    {
        kv::ASCIIFile file(path, 1, input.tabs);
        float done = file.GetPercentDone();
        for (char const operation : input.operations) {
            bool const isRead = Apply(file, ReaderOf(operation));
            Require(isRead ? file.GetPercentDone() >= done : file.GetPercentDone() == done);
            done = file.GetPercentDone();
        }
        Require(file.SkipToTitel("no\nsuch title") == 0);
    }
    std::filesystem::remove(path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const bytes(data, data + size);
    Input const input(bytes);
    input.isFile ? CheckFile(input) : CheckStream(input);
    return 0;
}
