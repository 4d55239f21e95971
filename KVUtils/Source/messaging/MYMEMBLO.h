// MyMemoryBlock: the growable byte buffer that carries the payload of every message. A sender writes fields
// with `<<`, the receiver reads the same sequence of fields with `>>`: no field has a type tag, none is
// aligned, and integers are little-endian on every machine.
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
    /// An empty block with room for this many bytes. A size below 0 counts as 0. The storage starts as zeros.
    /// When there is no memory, this constructor, the next and assignment report through `Check::POINTER`.
    explicit MyMemoryBlock(long size);
    /// The bytes and the capacity of the other block, with the read pointer at the start, the write pointer
    /// behind the bytes and nothing remembered.
    MyMemoryBlock(MyMemoryBlock const& other);
    // NOLINTNEXTLINE(misc-unconventional-assign-operator): assignment answers nothing
    void operator=(MyMemoryBlock const& other);

    /// Appends bytes at the write pointer, growing by doubling, and returns how many it stored: all of them,
    /// or those that fit when there is no memory to grow; 0 for a count below 1. The bytes may lie in the
    /// block itself.
    long Put(void const* source, long count) {
        return count >= 1 && count <= capacity_ - length_ ? Store(source, count) : PutGrowing(source, count);
    }
    /// Copies up to `count` bytes from the read pointer to `target`, which is written in spite of its
    /// `const`, and returns how many there were before the write pointer; 0 for a count below 1.
    long Get(void const* target, long count) noexcept;

    /// How many bytes were written so far. Bytes that overwrite others count again.
    [[nodiscard]] long Len() const noexcept { return length_; }

    /// These pointers hold until the block grows.
    [[nodiscard]] char* GetDatenZeiger() noexcept { return storage_.get(); }
    [[nodiscard]] char* GetGetPointer() noexcept { return storage_.get() + read_; }
    [[nodiscard]] char* GetPutPointer() noexcept { return storage_.get() + write_; }

    /// Remembered places stay in the data when the block grows. What was never remembered is the start of the
    /// data.
    void RememberReadPointer() noexcept { rememberedRead_ = read_; }
    void RestoreReadPointer() noexcept { read_ = rememberedRead_; }
    /// For patching bytes already written, not for cutting them off: the length stays, and goes on counting
    /// up.
    void RememberWritePointer() noexcept { rememberedWrite_ = write_; }
    void RestoreWritePointer() noexcept { write_ = rememberedWrite_; }

    /// Fills `target` with the next characters, up to a zero byte or the end of the storage, and zeros behind
    /// them, `count` in all, as strncpy does. Nothing moves. The write pointer is no bound.
    void PeekNextChars(char* target, short count) const noexcept;
    /// Shrinks the storage to the length. Leaves it alone when there is no memory.
    void Minimize();

    friend MyMemoryBlock& operator>>(MyMemoryBlock& block, sv::String& text);

  private:
    struct Free {
        void operator()(char* bytes) const noexcept { std::free(bytes); }
    };
    using Storage = std::unique_ptr<char[], Free>;

    /// Stores what is known to fit.
    long Store(void const* source, long count) noexcept {
        std::memmove(GetPutPointer(), source, static_cast<std::size_t>(count));
        write_ += count;
        length_ += count;
        return count;
    }
    long PutGrowing(void const* source, long count);
    /// Makes room for `count` more bytes by doubling, where a capacity of 0 doubles to 2. Leaves everything
    /// alone when there is no memory.
    void CheckSize(long count);
    /// Gives the storage this size, and what is new in it zeros. Leaves it alone when there is no memory.
    void Resize(long capacity);

    Storage storage_;
    // Places, not pointers, so that they survive a move of the storage.
    long read_ = 0;
    long write_ = 0;  // never above length_
    long rememberedRead_ = 0;
    long rememberedWrite_ = 0;
    long length_ = 0;  // never above capacity_
    long capacity_ = 0;
};

namespace detail {

/// Writes the lowest bytes of a number, the lowest first.
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
/// Two bytes as well: the low 16 bits. Only a `long` carries 32.
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, int value) {
    return detail::PutBytes<2>(block, static_cast<unsigned long>(value));
}
/// Four bytes, the low 32 bits where a long has more.
inline MyMemoryBlock& operator<<(MyMemoryBlock& block, long value) {
    return detail::PutBytes<4>(block, static_cast<unsigned long>(value));
}
/// The characters without a zero at their end, so that a reader has to know how many there are. Nothing for a
/// null pointer.
MyMemoryBlock& operator<<(MyMemoryBlock& block, char const* text);
/// The characters and a zero byte.
MyMemoryBlock& operator<<(MyMemoryBlock& block, sv::String const& text);
/// The number of bytes that the stream holds in memory as an `int`, then these bytes: the whole text of a
/// string stream, from its start and whether read or not. Of a stream on anything else, 0 and no bytes. The
/// number is right up to 65535 bytes, taken without its sign.
MyMemoryBlock& operator<<(MyMemoryBlock& block, std::iostream& stream);

/// At the end of the data the target keeps its value, here and below.
MyMemoryBlock& operator>>(MyMemoryBlock& block, char& value);
MyMemoryBlock& operator>>(MyMemoryBlock& block, unsigned char& value);
/// When fewer bytes are left than the form has, they replace the low bytes of the target.
MyMemoryBlock& operator>>(MyMemoryBlock& block, short& value);
MyMemoryBlock& operator>>(MyMemoryBlock& block, unsigned short& value);
/// Sign-extended from 16 bits. A single byte that is left is taken and leaves the target as it was.
MyMemoryBlock& operator>>(MyMemoryBlock& block, int& value);
/// Sign-extended from 32 bits; fewer bytes as for a short.
MyMemoryBlock& operator>>(MyMemoryBlock& block, long& value);
/// The characters up to the next zero byte, which is passed over, or to the end of the storage, where the
/// text is empty. The write pointer is no bound: a text whose end is missing ends with the zeros behind the
/// data.
MyMemoryBlock& operator>>(MyMemoryBlock& block, sv::String& text);

}  // namespace kv
