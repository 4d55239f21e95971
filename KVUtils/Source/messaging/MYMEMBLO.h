// MyMemoryBlock: the growable byte buffer that carries the payload of every message. A sender writes fields
// with `<<` and the receiver reads the same sequence of fields with `>>`. Fields have no type tag and no
// alignment, and integers are little-endian on every machine.
#pragma once

#include "SV/core/String.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iosfwd>
#include <memory>

namespace kv {

class MyMemoryBlock {
  public:
    static constexpr long DefaultCapacity = 1024;

    MyMemoryBlock() : MyMemoryBlock(DefaultCapacity) {}
    /// Creates an empty block with room for this many bytes, all zero. A size below 0 counts as 0. When there
    /// is no memory, this constructor, the next one and assignment report it through `Check::POINTER`.
    explicit MyMemoryBlock(long size);
    /// Copies the bytes and the capacity of the other block. The read pointer is at the start, the write
    /// pointer after the bytes, and nothing is remembered.
    MyMemoryBlock(MyMemoryBlock const& other);
    // NOLINTNEXTLINE(misc-unconventional-assign-operator): assignment returns nothing
    void operator=(MyMemoryBlock const& other);

    /// Appends bytes at the write pointer, doubling the capacity as needed, and returns how many were stored:
    /// all, or those that fit when there is no memory to grow; 0 for a count below 1. The bytes may be part
    /// of the block itself.
    long Put(void const* source, long count) {
        return count >= 1 && count <= capacity_ - length_ ? Store(source, count) : PutGrowing(source, count);
    }
    /// Copies up to `count` bytes from the read pointer to `target`, which is written despite its `const`.
    /// Stops at the write pointer. Returns how many bytes were copied; 0 for a count below 1.
    long Get(void const* target, long count) noexcept;

    /// Returns how many bytes were written. Bytes that overwrite others count again.
    [[nodiscard]] long Len() const noexcept { return length_; }

    /// These pointers are valid until the block grows or shrinks.
    [[nodiscard]] char* GetDatenZeiger() noexcept { return storage_.get(); }
    [[nodiscard]] char* GetGetPointer() noexcept { return storage_.get() + read_; }
    [[nodiscard]] char* GetPutPointer() noexcept { return storage_.get() + write_; }

    /// Remembered positions keep their place in the data when the block grows. The initial ones are the start
    /// of the data.
    void RememberReadPointer() noexcept { rememberedRead_ = read_; }
    void RestoreReadPointer() noexcept { read_ = rememberedRead_; }
    /// For patching bytes already written, not for truncating: the length stays, and continues to grow.
    void RememberWritePointer() noexcept { rememberedWrite_ = write_; }
    void RestoreWritePointer() noexcept { write_ = rememberedWrite_; }

    /// Copies characters from the read pointer up to a zero byte or the end of the storage and pads with
    /// zeros to `count`, like strncpy. The read pointer does not move. The write pointer is not a bound.
    void PeekNextChars(char* target, short count) const noexcept;
    /// Shrinks the storage to the length. Does nothing when there is no memory.
    void Minimize();

    friend MyMemoryBlock& operator>>(MyMemoryBlock& block, sv::String& text);

  private:
    struct Free {
        void operator()(char* bytes) const noexcept { std::free(bytes); }
    };
    using Storage = std::unique_ptr<char[], Free>;

    /// Stores bytes that fit.
    long Store(void const* source, long count) noexcept {
        std::memmove(GetPutPointer(), source, static_cast<std::size_t>(count));
        write_ += count;
        length_ += count;
        return count;
    }
    long PutGrowing(void const* source, long count);
    /// Makes room for `count` more bytes by doubling; a capacity of 0 becomes 2. Does nothing when there is
    /// no memory.
    void CheckSize(long count);
    /// Resizes the storage and fills the new part with zeros. Does nothing when there is no memory.
    void Resize(long capacity);

    Storage storage_;
    // Offsets, so that they survive a move of the storage.
    long read_ = 0;
    long write_ = 0;  // never above length_
    long rememberedRead_ = 0;
    long rememberedWrite_ = 0;
    long length_ = 0;  // never above capacity_
    long capacity_ = 0;
};

namespace detail {

/// Writes the lowest bytes of a number in little-endian order.
template <std::size_t Size>
MyMemoryBlock& PutBytes(MyMemoryBlock& block, unsigned long value) {
    if constexpr (std::endian::native == std::endian::little) {
        block.Put(&value, Size);
    } else {
        std::array<char, Size> bytes;
        for (std::size_t i = 0; i < Size; ++i) bytes[i] = static_cast<char>(value >> (8 * i) & 0xFF);
        block.Put(bytes.data(), Size);
    }
    return block;
}

}  // namespace detail

/// One byte.
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, char value) {
    return detail::PutBytes<1>(block, static_cast<unsigned long>(value));
}
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, unsigned char value) {
    return detail::PutBytes<1>(block, value);
}
/// Two bytes.
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, short value) {
    return detail::PutBytes<2>(block, static_cast<unsigned long>(value));
}
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, unsigned short value) {
    return detail::PutBytes<2>(block, value);
}
/// Two bytes, the low 16 bits. Only a `long` carries 32.
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, int value) {
    return detail::PutBytes<2>(block, static_cast<unsigned long>(value));
}
/// Four bytes, the low 32 bits if a long has more.
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, long value) {
    return detail::PutBytes<4>(block, static_cast<unsigned long>(value));
}
/// The characters without a terminating zero, so the reader must know how many there are. Nothing for a null
/// pointer.
MyMemoryBlock& operator<<(MyMemoryBlock& block, char const* text);
/// The characters and a terminating zero.
MyMemoryBlock& operator<<(MyMemoryBlock& block, sv::String const& text);
/// The number of bytes that the stream holds in memory, as an `int`, then these bytes: the whole text of a
/// string stream, whether read or not; 0 and no bytes for any other stream. The number is correct up to 65535
/// bytes when read as unsigned.
MyMemoryBlock& operator<<(MyMemoryBlock& block, std::iostream& stream);

/// At the end of the data the target keeps its value, as in all readers.
MyMemoryBlock& operator>>(MyMemoryBlock& block, char& value);
MyMemoryBlock& operator>>(MyMemoryBlock& block, unsigned char& value);
/// If fewer bytes are left, they replace the low bytes of the target.
MyMemoryBlock& operator>>(MyMemoryBlock& block, short& value);
MyMemoryBlock& operator>>(MyMemoryBlock& block, unsigned short& value);
/// Sign-extended from 16 bits. If only one byte is left it is skipped and the target keeps its value.
MyMemoryBlock& operator>>(MyMemoryBlock& block, int& value);
/// Sign-extended from 32 bits. If fewer bytes are left, as for a short.
MyMemoryBlock& operator>>(MyMemoryBlock& block, long& value);
/// The characters up to the next zero byte, which is skipped, or to the end of the storage; there the text is
/// empty. The write pointer is not a bound: a text without a terminating zero ends at the zeros that follow
/// the data.
MyMemoryBlock& operator>>(MyMemoryBlock& block, sv::String& text);

}  // namespace kv
