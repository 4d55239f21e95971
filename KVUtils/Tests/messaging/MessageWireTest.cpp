#include "KVUtils/Source/messaging/detail/MessageWire.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <string_view>

using namespace std::string_literals;

namespace kv::detail {
namespace {

std::string Bytes(MyMemoryBlock block) {
    return {block.GetDatenZeiger(), static_cast<std::size_t>(block.Len())};
}

MyMemoryBlock Block(std::string_view bytes) {
    MyMemoryBlock block;
    block.Put(bytes.data(), static_cast<long>(bytes.size()));
    return block;
}

std::string Encoded(std::string_view bytes) {
    MyMemoryBlock block = Block(bytes);
    EncodePayload(block);
    return Bytes(block);
}

std::string Decoded(std::string_view bytes) {
    MyMemoryBlock block = Block(bytes);
    DecodePayload(block);
    return Bytes(block);
}

TEST(MessageTable, EveryNameIsThereOnceAndEndsWithinItsRecord) {
    std::set<std::string_view> names;
    for (MessageRecord const& record : MessageTable) {
        ASSERT_EQ(record.name[sizeof record.name - 1], '\0');
        if (record.name[0] != '\0') {
            EXPECT_TRUE(names.insert(record.name).second) << record.name;
        }
    }
    EXPECT_EQ(names.size(), MessageTable.size() - 3);
    EXPECT_STREQ(MessageTable[FILE_READ_FROM_FILE].name, "FILE_READ_FROM_FILE");
}

TEST(MessageWire, EveryMessageAndItsAnswerComeBackFromTheirNames) {
    for (int number = 0; number < MessageCount; ++number) {
        bool const isReserved = number >= 88 && number <= 90;
        for (int const asked : {number, number + AnswerOffset}) {
            sv::String const name = NameOfMessage(asked);
            EXPECT_EQ(name.IsEmpty(), isReserved) << asked;
            EXPECT_EQ(NumberOfMessage(name), isReserved ? -1 : asked) << name.GetStr();
        }
    }
}

TEST(MessageWire, NumbersBecomeNames) {
    EXPECT_EQ(NameOfMessage(0), "CONNECT");
    EXPECT_EQ(NameOfMessage(1015), "ANSWER!SPECTRUM_REQUEST");
    for (long const number : {-1L, 127L, 999L, 1127L, 1000000000L}) {
        EXPECT_EQ(NameOfMessage(number), "") << number;
    }
}

TEST(MessageWire, NamesBecomeNumbers) {
    struct {
        char const* name;
        int number;
        bool isAnswerToAnswer;
    } const rows[] = {
        {"LOCK", 2, false},
        {"ANSWER!LOCK", 1002, false},
        {"lock", -1, false},
        {"LOCK ", -1, false},
        {"LOCK!LOCK", -1, false},
        {"answer!LOCK", -1, false},
        {"ANZAHL_BOTSCHAFTEN", -1, false},
        {"ANSWER!ANZAHL_BOTSCHAFTEN", -1, false},
        {"ANSWER", -1, false},
        {"ANSWER!", -1, false},
        {"", -1, false},
        {"ANSWER!NOSUCH", -1, false},
        {"ANSWER!ANSWER!LOCK", -1, true},
        {"ANSWER!ANSWER", -1, true},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(NumberOfMessage(row.name), row.number) << row.name;
        EXPECT_EQ(IsAnswerToAnswer(row.name), row.isAnswerToAnswer) << row.name;
    }
    EXPECT_EQ(NameWithoutPrefix("ANSWER!A!B"), "A!B");
    EXPECT_EQ(NameWithoutPrefix("A!B"), "A!B");
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
        {"a\0b"s,
         "a\x01\x0A"
         "b",
         "a\0bb"s},
        {"\0\0"s, "\x01\x0A\x01\x0A", "\0\0\x0A\x0A"s},
        {"\x0A\0"s, "\x0A\x01\x0A", "\x0A\0\x0A"s},
        {"\x01\0x"s, "\x01\x01\x01\x0Ax", "\x01\0xxx"s},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Encoded(row.plain), row.encoded);
        EXPECT_EQ(Decoded(row.encoded), row.decoded);
    }
    // What no encoder writes: half a pair, a pair of no meaning, a zero.
    EXPECT_EQ(Decoded("ab\x01"), "ab\x01");
    EXPECT_EQ(Decoded("\x01z"), "\x01z");
    EXPECT_EQ(Decoded("\0"s), "\0"s);
}

TEST(MessageWire, AnyPayloadComesBackInFrontOfTheSurplus) {
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
    MyMemoryBlock block = Block("abcdef");
    char skipped = 0;
    block >> skipped >> skipped;
    EncodePayload(block);
    EXPECT_EQ(Bytes(block), "cdef");
    EXPECT_EQ(block.GetGetPointer(), block.GetDatenZeiger());

    MyMemoryBlock patched;
    patched.RememberWritePointer();
    patched << short{0} << "text";
    patched.RestoreWritePointer();
    patched << short{0x4142};
    EncodePayload(patched);
    EXPECT_EQ(Bytes(patched).substr(0, 6), "BAtext");
}

}  // namespace
}  // namespace kv::detail
