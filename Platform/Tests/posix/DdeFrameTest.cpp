#include "Platform/posix/DdeFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

namespace {

std::string Bytes(FrameHeader const& header, std::string_view body) {
    std::string bytes(sizeof header, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    return bytes += body;
}

std::string Poke(std::string_view item, std::string_view data) {
    return Bytes(FrameHeader(FrameKind::Poke, item, {}, data.size(), CF_TEXT), std::string(item) += data);
}

// Hands over up to `count` bytes, and takes them off.
void Feed(FrameReader& reader, std::string_view& bytes, std::size_t count) {
    std::span<std::byte> const space = reader.Space();
    count = std::min({count, space.size(), bytes.size()});
    std::memcpy(space.data(), bytes.data(), count);
    reader.Commit(count);
    bytes.remove_prefix(count);
}

TEST(DdeFrameTest, FramesSurviveAnyCuts) {
    std::mt19937 random(4711);
    std::uniform_int_distribution<std::size_t> length(0, 3000);
    std::string stream;
    std::vector<std::string> sent;
    for (int i = 0; i < 300; ++i) {
        sent.push_back(std::string(i == 150 ? 400'000 : length(random), static_cast<char>(i)));
        stream += Poke("ITEM" + std::to_string(i), sent.back());
    }
    for (std::size_t const cut : {std::size_t{1}, std::size_t{15}, std::size_t{1000}, stream.size()}) {
        FrameReader reader;
        std::string_view rest = stream;
        std::size_t got = 0;
        while (!rest.empty()) {
            Feed(reader, rest, cut);
            Frame frame{};
            while (reader.HasNext()) {
                ASSERT_EQ(reader.Next(frame), FrameReader::Result::Frame);
                ASSERT_EQ(frame.text1, "ITEM" + std::to_string(got));
                auto const* const data = reinterpret_cast<char const*>(frame.data.data());
                ASSERT_EQ(std::string_view(data, frame.data.size()), sent[got++]) << "cut " << cut;
            }
            ASSERT_EQ(reader.Next(frame), FrameReader::Result::Incomplete);
        }
        EXPECT_EQ(got, sent.size());
        EXPECT_FALSE(reader.IsInsideFrame());
        EXPECT_LE(reader.Capacity(), 1U << 20);
    }
}

TEST(DdeFrameTest, WhatAFrameMayBe) {
    std::string const text(256, 't');
    auto const header = [](FrameKind kind, std::uint32_t body, std::uint16_t length1, std::uint16_t length2) {
        FrameHeader made;
        made.kind = kind;
        made.bodyLength = body;
        made.length1 = length1;
        made.length2 = length2;
        return made;
    };
    struct Row {
        FrameHeader header;
        bool isValid;
        char const* why;
    };
    for (Row const& row : {
             Row{header(FrameKind::Connect, 4, 2, 2), true, "service and topic"},
             Row{header(FrameKind::Connect, 2, 2, 0), false, "no topic"},
             Row{header(FrameKind::Connect, 2, 0, 2), false, "no service"},
             Row{header(FrameKind::Connect, 5, 2, 2), false, "data"},
             Row{header(FrameKind::Connect, 258, 256, 2), false, "a text of 256 bytes"},
             Row{header(FrameKind::Accept, 0, 0, 0), true, "no body"},
             Row{header(FrameKind::Confirm, 1, 0, 0), false, "a body"},
             Row{header(FrameKind::Poke, 3, 3, 0), true, "no data"},
             Row{header(FrameKind::Poke, 2, 3, 0), false, "texts longer than the body"},
             Row{header(FrameKind::Poke, DdeLargestData + 3, 3, 0), true, "the most data"},
             Row{header(FrameKind::Poke, DdeLargestData + 4, 3, 0), false, "more than the most data"},
             Row{header(FrameKind::Poke, 0xFFFFFFFF, 0, 0), false, "4 GiB"},
             Row{header(FrameKind::Execute, 9, 0, 0), true, "data alone"},
             Row{header(FrameKind::Execute, 9, 1, 0), false, "an item"},
             Row{header(FrameKind{0}, 0, 0, 0), false, "no kind"},
             Row{header(FrameKind{6}, 0, 0, 0), false, "an unknown kind"},
         }) {
        EXPECT_EQ(row.header.IsValid(), row.isValid) << row.why;
        FrameReader reader;
        std::string const bytes = Bytes(row.header, {});
        std::string_view rest = bytes;
        Feed(reader, rest, rest.size());
        Frame frame{};
        EXPECT_EQ(reader.Next(frame) == FrameReader::Result::Malformed, !row.isValid) << row.why;
    }
    FrameHeader foreign = header(FrameKind::Accept, 0, 0, 0);
    foreign.mark ^= 1;
    EXPECT_FALSE(foreign.IsValid());
}

TEST(DdeFrameTest, AnAnnouncementTakesNoMemory) {
    FrameReader reader;
    std::string const bytes = Bytes(FrameHeader(FrameKind::Poke, {}, {}, DdeLargestData, CF_TEXT), "some");
    std::string_view rest = bytes;
    Feed(reader, rest, rest.size());
    Frame frame{};
    EXPECT_EQ(reader.Next(frame), FrameReader::Result::Incomplete);
    EXPECT_FALSE(reader.Space().empty());
    EXPECT_LE(reader.Capacity(), 64U << 10);
}

}  // namespace

}  // namespace platform::detail
