#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "SV/core/Boxes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

// Under AddressSanitizer too, an allocation that cannot be had is null.
extern "C" char const* __asan_default_options() { return "allocator_may_return_null=1"; }  // NOLINT

namespace kv {
namespace {

static_assert(!std::is_polymorphic_v<MyMemoryBlock>);
static_assert(
    std::is_void_v<decltype(std::declval<MyMemoryBlock&>() = std::declval<MyMemoryBlock const&>())>);

std::string Bytes(MyMemoryBlock& block) {
    return {block.GetDatenZeiger(), static_cast<std::size_t>(block.Len())};
}

/// The size of the storage: the zeros in it are empty texts, which are read up to its end and not on.
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

/// What reading into `value` makes of it.
template <class Value>
Value Found(std::string const& bytes, Value value) {
    MyMemoryBlock block;
    block.Put(bytes.data(), static_cast<long>(bytes.size()));
    block >> value;
    return value;
}

/// The bytes of a form, and that reading them gives `back`.
template <class Value>
void ExpectForm(Value value, std::string const& bytes, Value back) {
    EXPECT_EQ(Written(value), bytes);
    EXPECT_EQ(Found(bytes, Value{}), back);
}

TEST(MyMemoryBlock, BytesOfEachForm) {
    using namespace std::string_literals;
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

TEST(MyMemoryBlock, ReadsPastTheEndKeepWhatIsNotThere) {
    EXPECT_EQ(Found("", 'x'), 'x');
    EXPECT_EQ(Found<unsigned char>("", 200), 200);
    EXPECT_EQ(Found<short>("", 0x1234), 0x1234);
    EXPECT_EQ(Found<short>("\xFF", 0x1234), 0x12FF);
    EXPECT_EQ(Found<unsigned short>("\xFF", 0x8234), 0x82FF);
    EXPECT_EQ(Found<int>("", 70000), 70000);
    EXPECT_EQ(Found<int>("\x01", 70000), 70000);
    EXPECT_EQ(Found<long>("", -5), -5);
    EXPECT_EQ(Found<long>("\x01\x02\x03", 0x12345678L), 0x12030201L);
    EXPECT_EQ(Found<long>("\xFF\xFF\xFF", -16777216L), -1L);
    EXPECT_EQ(Found<sv::String>("", "x"), "");
    EXPECT_EQ(Found<sv::String>("abc", "x"), "abc");  // the storage behind the data is zeros
}

TEST(MyMemoryBlock, GrowsByDoublingAndKeepsItsPlaces) {
    MyMemoryBlock block;
    std::string const head(100, 'h');
    block.Put(head.data(), 100);
    block.RememberWritePointer();
    std::string bytes(924, 'b');
    EXPECT_EQ(block.Put(bytes.data(), 924), 924);
    char read[40] = {};
    EXPECT_EQ(block.Get(read, 40), 40);
    block.RememberReadPointer();
    EXPECT_EQ(block.Get(read, 20), 20);
    EXPECT_EQ(CapacityOf(block), 1024);

    block << 'x';
    EXPECT_EQ(block.Len(), 1025);
    EXPECT_EQ(CapacityOf(block), 2048);
    EXPECT_EQ(Bytes(block), head + bytes + "x");
    EXPECT_EQ(block.GetPutPointer() - block.GetDatenZeiger(), 1025);
    EXPECT_EQ(block.GetGetPointer() - block.GetDatenZeiger(), 60);
    block.RestoreReadPointer();
    EXPECT_EQ(block.GetGetPointer() - block.GetDatenZeiger(), 40);
    block.RestoreWritePointer();
    EXPECT_EQ(block.GetPutPointer() - block.GetDatenZeiger(), 100);
    EXPECT_EQ(block.Len(), 1025);
}

TEST(MyMemoryBlock, Capacities) {
    struct {
        long start, put, capacity;
    } const rows[] = {{1024, 5000, 8192}, {1024, 1024, 1024}, {1024, 1025, 2048}, {3, 4, 6}, {1, 3, 4},
                      {0, 0, 0},          {0, 1, 2},          {0, 5, 8},          {-7, 2, 2}};
    for (auto const& row : rows) {
        MyMemoryBlock block(row.start);
        std::string const bytes(static_cast<std::size_t>(row.put), 'x');
        EXPECT_EQ(block.Put(bytes.data(), row.put), row.put);
        EXPECT_EQ(CapacityOf(block), row.capacity) << row.start << " " << row.put;
        EXPECT_EQ(Bytes(block), bytes);
        block.Minimize();
        EXPECT_EQ(CapacityOf(block), row.put);
        EXPECT_EQ(Bytes(block), bytes);
        block << 'y';
        EXPECT_EQ(Bytes(block), bytes + 'y');
    }
}

TEST(MyMemoryBlock, CountsBelowOneDoNothing) {
    MyMemoryBlock block(0);
    char bytes[3] = {'a', 'b', 'c'};
    for (long const count : {0L, -1L, std::numeric_limits<long>::min()}) {
        EXPECT_EQ(block.Put(bytes, count), 0);
        EXPECT_EQ(block.Get(bytes, count), 0);
    }
    EXPECT_EQ(block.Len(), 0);
    block.Put(bytes, 3);
    char found[10] = {};
    EXPECT_EQ(block.Get(found, 10), 3);
    EXPECT_EQ(block.Get(found, 10), 0);
    EXPECT_STREQ(found, "abc");
}

TEST(MyMemoryBlock, CopiesWhatWasWritten) {
    MyMemoryBlock block(8);
    block << "abcdef";
    char first = 0;
    block >> first;
    block.RememberReadPointer();
    block.RememberWritePointer();
    MyMemoryBlock copy(block);
    MyMemoryBlock assigned;
    assigned << "something else";
    assigned.RememberWritePointer();
    assigned = block;
    for (MyMemoryBlock* const each : {&copy, &assigned}) {
        EXPECT_EQ(Bytes(*each), "abcdef");
        EXPECT_EQ(CapacityOf(*each), 8);
        EXPECT_EQ(each->GetGetPointer(), each->GetDatenZeiger());
        EXPECT_EQ(each->GetPutPointer(), each->GetDatenZeiger() + 6);
        each->RestoreReadPointer();
        each->RestoreWritePointer();
        EXPECT_EQ(each->GetGetPointer(), each->GetDatenZeiger());
        EXPECT_EQ(each->GetPutPointer(), each->GetDatenZeiger());
    }
    MyMemoryBlock const& self = block;
    block = self;
    EXPECT_EQ(block.GetGetPointer(), block.GetDatenZeiger() + 1);
}

TEST(MyMemoryBlock, PatchesWhatWasWritten) {
    MyMemoryBlock block(4);
    block << 'a';
    block.RememberWritePointer();
    block << "bcd";
    block.RestoreWritePointer();
    block << 'X';  // the length goes on counting up, and the storage with it
    EXPECT_EQ(block.Len(), 5);
    EXPECT_EQ(Bytes(block), std::string("aXcd\0", 5));
    char found[9] = {};
    EXPECT_EQ(block.Get(found, 9), 2);  // up to the write pointer
    MyMemoryBlock copy(block);
    EXPECT_EQ(copy.Get(found, 9), 5);  // all that was written
    EXPECT_STREQ(found, "aXcd");
}

TEST(MyMemoryBlock, TextsAreBoundByTheStorage) {
    MyMemoryBlock block(8);
    block << "abcdefgh";
    sv::String text;
    block >> text;
    EXPECT_EQ(text, "abcdefgh");
    EXPECT_EQ(block.GetGetPointer(), block.GetDatenZeiger() + 8);
    block >> text;
    EXPECT_EQ(text, "");
    EXPECT_EQ(block.GetGetPointer(), block.GetDatenZeiger() + 8);

    // Behind the write pointer, and then out of a storage that has shrunk.
    MyMemoryBlock patched;
    patched.RememberWritePointer();
    patched << sv::String("abc");
    patched.RestoreWritePointer();
    patched >> text;
    EXPECT_EQ(text, "abc");
    patched >> text;
    patched.RememberReadPointer();
    patched.Minimize();
    EXPECT_EQ(patched.GetGetPointer(), patched.GetDatenZeiger() + 4);
    patched.RestoreReadPointer();
    EXPECT_EQ(patched.GetGetPointer(), patched.GetDatenZeiger() + 4);
    char byte = 'x';
    EXPECT_EQ(patched.Get(&byte, 1), 0);
}

TEST(MyMemoryBlock, PeeksUpToAZeroOrTheStorageAndPadsWithZeros) {
    struct {
        short count;
        std::string expected;
    } const rows[] = {{0, "....."}, {-5, "....."}, {2, "ab..."}, {5, std::string("abc\0", 5)}};
    for (long const capacity : {3L, 8L}) {
        MyMemoryBlock block(capacity);
        block << "abc";
        for (auto const& row : rows) {
            std::string found = ".....";
            block.PeekNextChars(found.data(), row.count);
            EXPECT_EQ(found, row.expected) << row.count;
            EXPECT_EQ(block.GetGetPointer(), block.GetDatenZeiger());
        }
    }
}

TEST(MyMemoryBlock, StreamsGiveWhatTheyHoldInMemory) {
    std::stringstream text("hello");
    text.get();
    MyMemoryBlock block;
    block << static_cast<std::iostream&>(text);
    EXPECT_EQ(Bytes(block), std::string("\x05\0hello", 7));
    std::fstream file;
    MyMemoryBlock none;
    none << static_cast<std::iostream&>(file);
    EXPECT_EQ(Bytes(none), std::string(2, '\0'));
    std::stringstream large(std::string(40000, 'x'));
    MyMemoryBlock many;
    many << static_cast<std::iostream&>(large);
    unsigned short count = 0;
    many >> count;
    EXPECT_EQ(count, 40000);
    EXPECT_EQ(many.Len(), 40002);
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
    if constexpr (std::numeric_limits<long>::digits > 32) {  // what a smaller long counts can be had
        int boxes = 0;
        auto const before =
            sv::SetBoxHandler([&](sv::MessBox const& box) { return ++boxes, box.DefaultAnswer(); });
        EXPECT_THROW(MyMemoryBlock(std::numeric_limits<long>::max()), int);
        EXPECT_EQ(boxes, 1);
        sv::SetBoxHandler(before);
    }
    // What cannot grow stores what fits.
    MyMemoryBlock block(4);
    block << 'a';
    std::string const source = "bcdefgh";
    EXPECT_EQ(block.Put(source.data(), std::numeric_limits<long>::max()), 3);
    EXPECT_EQ(block.Put(source.data(), std::numeric_limits<long>::max() / 2 + 10), 0);
    EXPECT_EQ(Bytes(block), "abcd");
}

}  // namespace
}  // namespace kv
