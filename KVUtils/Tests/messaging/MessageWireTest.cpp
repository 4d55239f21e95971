#include "KVUtils/Source/messaging/detail/MessageWire.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

using namespace std::string_literals;

namespace kv::detail {
namespace {

std::string Bytes(MyMemoryBlock block) {
    return {block.GetDatenZeiger(), static_cast<std::size_t>(block.Len())};
}

/// The bytes after `convert` has changed a block of them.
std::string Converted(void (*convert)(MyMemoryBlock&), std::string_view bytes) {
    MyMemoryBlock block;
    block.Put(bytes.data(), static_cast<long>(bytes.size()));
    convert(block);
    return Bytes(block);
}
std::string Encoded(std::string_view bytes) { return Converted(&EncodePayload, bytes); }
std::string Decoded(std::string_view bytes) { return Converted(&DecodePayload, bytes); }

TEST(MessageWire, EveryMessageAndItsAnswerComeBackFromTheirNames) {
    for (int number = 0; number < MessageCount; ++number) {
        bool const isReserved = number >= 88 && number <= 90;
        for (int const asked : {number, number + AnswerOffset}) {
            sv::String const name = NameOfMessage(asked);
            EXPECT_EQ(name.IsEmpty(), isReserved) << asked;
            EXPECT_EQ(NumberOfMessage(name), isReserved ? -1 : asked) << name.GetStr();
        }
    }
    EXPECT_EQ(NameOfMessage(FILE_READ_FROM_FILE), "FILE_READ_FROM_FILE");
    EXPECT_EQ(NameOfMessage(1015), "ANSWER!SPECTRUM_REQUEST");
    for (long const number : {-1L, 127L, 999L, 1127L, 1000000000L}) {
        EXPECT_EQ(NameOfMessage(number), "") << number;
    }
}

TEST(MessageWire, PayloadsTravelWithoutZeroBytesAndComeBackLonger) {
    struct {
        std::string plain;
        std::string encoded;
        std::string decoded;
    } const rows[] = {
        {"", "", ""},
        {"abc", "abc", "abc"},
        {"\0"s, "\x01\x0A", "\0\x0A"s},
        {"\x01", "\x01\x01", "\x01\x01"},
        {"a\0c"s,
         "a\x01\x0A"
         "c",
         "a\0cc"s},
        {"\0\0"s, "\x01\x0A\x01\x0A", "\0\0\x0A\x0A"s},
        {"\x0A\0"s, "\x0A\x01\x0A", "\x0A\0\x0A"s},
        {"\x01\0x"s, "\x01\x01\x01\x0Ax", "\x01\0xxx"s},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Encoded(row.plain), row.encoded);
        EXPECT_EQ(Decoded(row.encoded), row.decoded);
    }
    // What no encoder writes: half a pair, a pair without meaning, a zero.
    EXPECT_EQ(Decoded("ab\x01"), "ab\x01");
    EXPECT_EQ(Decoded("\x01z"), "\x01z");
    EXPECT_EQ(Decoded("\0"s), "\0"s);
}

TEST(MessageWire, AnyPayloadComesBackBeforeTheSurplus) {
    std::mt19937 random(41);
    for (int i = 0; i < 5000; ++i) {
        std::string bytes(random() % 40, '\0');
        for (char& byte : bytes) byte = "\0\x01\x0A!abc:\xFF\x7F"[random() % 10];
        std::string const wire = Encoded(bytes);
        ASSERT_EQ(wire.find('\0'), std::string::npos) << i;
        ASSERT_EQ(Decoded(wire).substr(0, bytes.size()), bytes) << i;
        ASSERT_EQ(Decoded(wire).size(), wire.size()) << i;
    }
}

TEST(MessageWire, EncodesFromTheReadPointerToTheLastByteWritten) {
    MyMemoryBlock block;
    block << "abc";
    block.RememberWritePointer();
    block << short{0} << "text";
    block.RestoreWritePointer();
    block << short{0x4142};
    char skipped = 0;
    block >> skipped >> skipped;
    EncodePayload(block);
    EXPECT_EQ(Bytes(block).substr(0, 7), "cBAtext");
    EXPECT_EQ(block.GetGetPointer(), block.GetDatenZeiger());
}

}  // namespace
}  // namespace kv::detail
