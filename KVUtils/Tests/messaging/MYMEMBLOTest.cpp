#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "SV/core/Boxes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// Under AddressSanitizer too, a failed allocation returns null.
extern "C" char const* __asan_default_options() { return "allocator_may_return_null=1"; }  // NOLINT

// The fuzzer's comparison of a block with a plain model, which aborts at the first difference.
extern "C" int CompareMyMemoryBlockWithModel(std::uint8_t const* data, std::size_t size);

namespace kv {
namespace {

using namespace std::string_literals;

static_assert(!std::is_polymorphic_v<MyMemoryBlock>);
static_assert(
    std::is_void_v<decltype(std::declval<MyMemoryBlock&>() = std::declval<MyMemoryBlock const&>())>);

std::string Bytes(MyMemoryBlock& block) {
    return {block.GetDatenZeiger(), static_cast<std::size_t>(block.Len())};
}

/// The size of the storage: the zeros in it are empty texts, which can be read up to its end.
long CapacityOf(MyMemoryBlock const& block) {
    MyMemoryBlock probe(block);
    sv::String text;
    char const* before = nullptr;
    while (std::exchange(before, probe.GetGetPointer()) != probe.GetGetPointer()) probe >> text;
    return static_cast<long>(probe.GetGetPointer() - probe.GetDatenZeiger());
}

template <class Value>
std::string Written(Value value) {
    MyMemoryBlock block;
    block << value;
    return Bytes(block);
}

/// Reads into `value`.
template <class Value>
Value Read(std::string const& bytes, Value value) {
    MyMemoryBlock block;
    block.Put(bytes.data(), static_cast<long>(bytes.size()));
    block >> value;
    return value;
}

template <class Value>
void ExpectForm(Value value, std::string const& bytes, Value back) {
    EXPECT_EQ(Written(value), bytes);
    EXPECT_EQ(Read(bytes, Value{}), back);
}

TEST(MyMemoryBlock, BytesOfEachForm) {
    ExpectForm('\xE4', "\xE4", '\xE4');
    ExpectForm<unsigned char>(0, "\0"s, 0);
    ExpectForm<short>(-2, "\xFE\xFF", -2);
    ExpectForm<unsigned short>(0xFFFE, "\xFE\xFF", 0xFFFE);
    ExpectForm(70000, "\x70\x11", 4464);
    ExpectForm(65535, "\xFF\xFF", -1);
    ExpectForm(0x12345678L, "\x78\x56\x34\x12", 0x12345678L);
    ExpectForm(-2L, "\xFE\xFF\xFF\xFF", -2L);
    ExpectForm(sv::String("abc"), "abc\0"s, sv::String("abc"));
    EXPECT_EQ(Written("abc"), "abc");
    EXPECT_EQ(Written(static_cast<char const*>(nullptr)), "");
}

TEST(MyMemoryBlock, ReadsPastTheEndKeepWhatIsMissing) {
    EXPECT_EQ(Read("", 'x'), 'x');
    EXPECT_EQ(Read<unsigned char>("", 200), 200);
    EXPECT_EQ(Read<short>("", 0x1234), 0x1234);
    EXPECT_EQ(Read<short>("\xFF", 0x1234), 0x12FF);
    EXPECT_EQ(Read<unsigned short>("\xFF", 0x8234), 0x82FF);
    EXPECT_EQ(Read<int>("", 70000), 70000);
    EXPECT_EQ(Read<int>("\x01", 70000), 70000);
    EXPECT_EQ(Read<long>("", -5), -5);
    EXPECT_EQ(Read<long>("\x01\x02\x03", 0x12345678L), 0x12030201L);
    EXPECT_EQ(Read<long>("\xFF\xFF\xFF", -16777216L), -1L);
    EXPECT_EQ(Read<sv::String>("", "x"), "");
    EXPECT_EQ(Read<sv::String>("abc", "x"), "abc");  // the rest of the storage is zeros
}

TEST(MyMemoryBlock, AnyOperationsAgreeWithAModel) {
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        std::vector<std::uint8_t> operations(random() % 2000);
        for (std::uint8_t& byte : operations) byte = static_cast<std::uint8_t>(random());
        EXPECT_EQ(CompareMyMemoryBlockWithModel(operations.data(), operations.size()), 0);
    }
}

TEST(MyMemoryBlock, CapacitiesDoubleAndCountsBelowOneDoNothing) {
    struct {
        long start, put, capacity;
    } const rows[] = {{1024, 5000, 8192}, {1024, 1024, 1024}, {1024, 1025, 2048}, {3, 4, 6}, {1, 3, 4},
                      {0, 0, 0},          {0, 1, 2},          {0, 5, 8},          {-7, 2, 2}};
    for (auto const& row : rows) {
        MyMemoryBlock block(row.start);
        std::string bytes(static_cast<std::size_t>(row.put), 'x');
        EXPECT_EQ(block.Put(bytes.data(), row.put), row.put);
        for (long const count : {0L, -1L, std::numeric_limits<long>::min()}) {
            EXPECT_EQ(block.Put(bytes.data(), count), 0);
            EXPECT_EQ(block.Get(bytes.data(), count), 0);
        }
        EXPECT_EQ(CapacityOf(block), row.capacity) << row.start << " " << row.put;
        EXPECT_EQ(CapacityOf(MyMemoryBlock(block)), row.capacity);
        block.Minimize();
        EXPECT_EQ(CapacityOf(block), row.put);
        EXPECT_EQ(Bytes(block), bytes);
    }
}

TEST(MyMemoryBlock, AssignmentForgetsPositionsExceptToItself) {
    MyMemoryBlock block(8);
    block << "abcdef";
    char first = 0;
    block >> first;
    block.RememberReadPointer();
    MyMemoryBlock assigned;
    assigned << "something else";
    assigned.RememberWritePointer();
    assigned = block;
    assigned.RestoreReadPointer();
    assigned.RestoreWritePointer();
    EXPECT_EQ(Bytes(assigned), "abcdef");
    EXPECT_EQ(assigned.GetGetPointer(), assigned.GetDatenZeiger());
    EXPECT_EQ(assigned.GetPutPointer(), assigned.GetDatenZeiger());
    MyMemoryBlock const& self = block;
    block = self;
    EXPECT_EQ(block.GetGetPointer(), block.GetDatenZeiger() + 1);
}

TEST(MyMemoryBlock, StreamsGiveWhatTheyHoldInMemory) {
    struct {
        std::string text;
        std::string start;
    } const rows[] = {{"hello", "\x05\0hello"s}, {std::string(40000, 'x'), "\x40\x9Cx"}};
    for (auto const& row : rows) {
        std::stringstream text(row.text);
        text.get();  // what was read counts
        MyMemoryBlock block;
        block << static_cast<std::iostream&>(text);
        EXPECT_EQ(Bytes(block).substr(0, row.start.size()), row.start);
        EXPECT_EQ(block.Len(), static_cast<long>(row.text.size()) + 2);
    }
    std::fstream file;
    MyMemoryBlock none;
    none << static_cast<std::iostream&>(file);
    EXPECT_EQ(Bytes(none), "\0\0"s);
}

TEST(MyMemoryBlock, TakesItsOwnBytes) {
    MyMemoryBlock block(2);
    block << "ab";
    for (int i = 0; i < 10; ++i) block.Put(block.GetDatenZeiger(), block.Len());
    ASSERT_EQ(block.Len(), 2048);
    EXPECT_EQ(Bytes(block).find_first_not_of("ab"), std::string::npos);
    EXPECT_EQ(Bytes(block).find("aa"), std::string::npos);
}

TEST(MyMemoryBlock, ReportsThatThereIsNoMemory) {
    if constexpr (std::numeric_limits<long>::digits > 32) {  // a smaller long counts what can be allocated
        int boxes = 0;
        auto const before =
            sv::SetBoxHandler([&](sv::MessBox const& box) { return ++boxes, box.DefaultAnswer(); });
        EXPECT_THROW(MyMemoryBlock(std::numeric_limits<long>::max()), int);
        EXPECT_EQ(boxes, 1);
        sv::SetBoxHandler(before);
    }
    // A block that cannot grow stores what fits.
    MyMemoryBlock block(4);
    block << 'a';
    std::string const source = "bcdefgh";
    EXPECT_EQ(block.Put(source.data(), std::numeric_limits<long>::max()), 3);
    EXPECT_EQ(block.Put(source.data(), std::numeric_limits<long>::max() / 2 + 10), 0);
    EXPECT_EQ(Bytes(block), "abcd");
}

}  // namespace
}  // namespace kv
