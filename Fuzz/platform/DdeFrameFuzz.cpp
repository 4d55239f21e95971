// Reads any bytes of a peer, in any pieces: the frames do not depend on the pieces, lie within the bytes
// read, and take no more memory than these.
#include "Platform/posix/DdeFrame.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace {

using platform::detail::Frame;
using platform::detail::FrameReader;

// The frames of a stream, in a comparable form.
struct Outcome {
    std::vector<std::string> frames;
    bool isMalformed = false;
    bool operator==(Outcome const&) const = default;
};

void Require(bool holds) {
    if (!holds) std::abort();
}

Outcome ReadAll(std::span<std::uint8_t const> stream, std::size_t cut) {
    Outcome outcome;
    FrameReader reader;
    std::size_t given = 0;
    while (!stream.empty() && !outcome.isMalformed) {
        std::span<std::byte> const space = reader.Space();
        Require(!space.empty());
        std::size_t const count = std::min({cut, space.size(), stream.size()});
        std::memcpy(space.data(), stream.data(), count);
        reader.Commit(count);
        stream = stream.subspan(count);
        given += count;
        Require(reader.Capacity() <= std::max<std::size_t>(64U << 10, 4 * given));
        while (reader.HasNext() && !outcome.isMalformed) {
            Frame frame{};
            FrameReader::Result const result = reader.Next(frame);
            Require(result != FrameReader::Result::Incomplete);
            outcome.isMalformed = result == FrameReader::Result::Malformed;
            if (outcome.isMalformed) break;
            std::string text =
                std::to_string(static_cast<int>(frame.kind)) + ' ' + std::to_string(frame.format);
            text.append(" ").append(frame.text1).append("|").append(frame.text2).append("|");
            text.append(reinterpret_cast<char const*>(frame.data.data()), frame.data.size());
            outcome.frames.push_back(std::move(text));
        }
    }
    return outcome;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) return 0;
    std::span const stream(data + 1, size - 1);
    Require(ReadAll(stream, std::size_t{1} + data[0]) == ReadAll(stream, size));
    return 0;
}
