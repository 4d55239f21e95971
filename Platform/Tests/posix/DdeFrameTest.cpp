#include "Platform/posix/DdeFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

namespace platform::detail {

namespace {

std::string Bytes(FrameHeader const& header, std::string_view body) {
    std::string bytes(sizeof header, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    return bytes += body;
}

// Passes up to `count` bytes to the reader and removes them.
void Feed(FrameReader& reader, std::string_view& bytes, std::size_t count) {
    std::span<std::byte> const space = reader.Space();
    ASSERT_FALSE(space.empty());
    count = std::min({count, space.size(), bytes.size()});
    std::memcpy(space.data(), bytes.data(), count);
    reader.Commit(count);
    bytes.remove_prefix(count);
}

TEST(DdeFrameTest, FramesDoNotDependOnThePiecesOfTheStream) {
    std::mt19937 random(4711);
    std::uniform_int_distribution<std::size_t> length(0, 3000);
    std::string stream;
    std::vector<std::string> sent;
    for (int i = 0; i < 300; ++i) {
        sent.push_back("ITEM" + std::string(i == 150 ? 400'000 : length(random), static_cast<char>(i)));
        stream +=
            Bytes(FrameHeader(FrameKind::Poke, "ITEM", {}, sent.back().size() - 4, CF_TEXT), sent.back());
    }
    for (std::size_t const piece : {std::size_t{1}, std::size_t{15}, std::size_t{1000}, stream.size()}) {
        FrameReader reader;
        std::string_view rest = stream;
        std::size_t got = 0;
        while (!rest.empty()) {
            Feed(reader, rest, piece);
            Frame frame{};
            while (reader.HasNext()) {
                ASSERT_EQ(reader.Next(frame), FrameReader::Result::Frame);
                auto const* const data = reinterpret_cast<char const*>(frame.data.data());
                ASSERT_EQ(std::string(frame.text1).append(data, frame.data.size()), sent[got++]) << piece;
            }
            ASSERT_EQ(reader.Next(frame), FrameReader::Result::Incomplete);
        }
        EXPECT_EQ(got, sent.size());
        EXPECT_LE(reader.Capacity(), 1U << 20);
    }
}

TEST(DdeFrameTest, HeadersAreChecked) {
    struct Row {
        char const* what;
        bool isValid;
        FrameKind kind;
        std::uint32_t body;
        std::uint16_t length1;
        std::uint16_t length2;
        std::uint32_t markBits = 0;
    };
    for (Row const& row : {
             Row{"service and topic", true, FrameKind::Connect, 4, 2, 2},
             Row{"no topic", false, FrameKind::Connect, 2, 2, 0},
             Row{"no service", false, FrameKind::Connect, 2, 0, 2},
             Row{"data", false, FrameKind::Connect, 5, 2, 2},
             Row{"a text of 256 bytes", false, FrameKind::Connect, 258, 256, 2},
             Row{"no body", true, FrameKind::Accept, 0, 0, 0},
             Row{"another mark", false, FrameKind::Accept, 0, 0, 0, 1},
             Row{"a body", false, FrameKind::Confirm, 1, 0, 0},
             Row{"no data", true, FrameKind::Poke, 3, 3, 0},
             Row{"texts longer than the body", false, FrameKind::Poke, 2, 3, 0},
             Row{"maximum data", true, FrameKind::Poke, DdeLargestData + 3, 3, 0},
             Row{"more than the maximum", false, FrameKind::Poke, DdeLargestData + 4, 3, 0},
             Row{"4 GiB", false, FrameKind::Poke, 0xFFFFFFFF, 0, 0},
             Row{"data alone", true, FrameKind::Execute, 9, 0, 0},
             Row{"an item", false, FrameKind::Execute, 9, 1, 0},
             Row{"no kind", false, FrameKind{0}, 0, 0, 0},
             Row{"an unknown kind", false, FrameKind{6}, 0, 0, 0},
         }) {
        FrameHeader header;
        header.mark ^= row.markBits;
        header.kind = row.kind;
        header.bodyLength = row.body;
        header.length1 = row.length1;
        header.length2 = row.length2;
        FrameReader reader;
        std::string const bytes = Bytes(header, {});
        std::string_view rest = bytes;
        Feed(reader, rest, rest.size());
        Frame frame{};
        EXPECT_EQ(reader.Next(frame) != FrameReader::Result::Malformed, row.isValid) << row.what;
        EXPECT_FALSE(reader.Space().empty());
        EXPECT_LE(reader.Capacity(), 64U << 10) << "an announced body takes no memory: " << row.what;
    }
}

}  // namespace

}  // namespace platform::detail
