// Any sequence of operations on a byte buffer, side by side with a plain model of it.
#include "KVUtils/Source/data/FlagSet.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

void Require(bool isKept) {
    if (!isKept) std::abort();
}

/// The buffer as places in a vector.
struct Model {
    explicit Model(long capacity) : storage(static_cast<std::size_t>(capacity)) {}

    void Put(std::string_view bytes) {
        std::size_t capacity = storage.size();
        while (!bytes.empty() && length + bytes.size() > capacity)
            capacity = std::max<std::size_t>(capacity, 1) * 2;
        storage.resize(capacity);
        std::ranges::copy(bytes, storage.begin() + static_cast<std::ptrdiff_t>(write));
        write += bytes.size();
        length += bytes.size();
    }
    std::string Get(std::size_t count) {
        count = read < write ? std::min(count, write - read) : 0;
        std::string const bytes(storage.data() + read, count);
        read += count;
        return bytes;
    }
    std::string Text() {
        std::string text;
        while (read < storage.size() && storage[read] != '\0') text += storage[read++];
        if (read < storage.size()) ++read;
        return text;
    }

    std::vector<char> storage;
    std::size_t read = 0, write = 0, rememberedRead = 0, rememberedWrite = 0, length = 0;
};

class Bytes {
  public:
    explicit Bytes(std::string_view bytes) : rest_(bytes) {}
    [[nodiscard]] bool IsEmpty() const { return rest_.empty(); }
    unsigned char Next() {
        if (rest_.empty()) return 0;
        auto const byte = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    std::string_view Take(std::size_t count) {
        std::string_view const taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

  private:
    std::string_view rest_;
};

/// A target of which the low bytes are replaced by what was there.
template <class Value>
Value Patched(Value value, std::string const& bytes) {
    auto bits = static_cast<unsigned long long>(value);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bits &= ~(0xFFULL << (8 * i));
        bits |= static_cast<unsigned long long>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return static_cast<Value>(bits);
}

void Write(kv::MyMemoryBlock& block, Model& model, unsigned operation, Bytes& input) {
    switch (operation) {
        case 0: {
            std::string const bytes(input.Take(input.Next()));
            Require(block.Put(bytes.data(), static_cast<long>(bytes.size())) ==
                    static_cast<long>(bytes.size()));
            return model.Put(bytes);
        }
        case 1: {
            std::string const text(input.Take(input.Next()));
            block << sv::String(text);
            return model.Put(text + '\0');
        }
        case 2: {
            int const value = input.Next() << 12 | input.Next();
            block << value;
            return model.Put({std::string() + static_cast<char>(value) + static_cast<char>(value >> 8)});
        }
        case 3: {
            std::string const bytes(input.Take(4));
            if (bytes.size() < 4) return;
            block << Patched(0L, bytes);
            return model.Put(bytes);
        }
        default: {
            kv::FlagSet set(input.Next(), input.Next() % 32);
            block << set;
            std::string bytes{static_cast<char>(set.GetSize()), '\0'};
            for (int i = 0; i < set.GetSize(); ++i) bytes += static_cast<char>(set & i);
            return model.Put(bytes);
        }
    }
}

void Read(kv::MyMemoryBlock& block, Model& model, unsigned operation, Bytes& input) {
    switch (operation) {
        case 0: {
            char target[256];
            long const count = block.Get(target, input.Next());
            Require(std::string(target, static_cast<std::size_t>(count)) ==
                    model.Get(static_cast<std::size_t>(count)));
            return Require(count == 0 || block.GetGetPointer() <= block.GetPutPointer());
        }
        case 1: {
            sv::String text;
            block >> text;
            return Require(text.View() == model.Text());
        }
        case 2: {
            int value = 70000;
            block >> value;
            std::string const bytes = model.Get(2);
            return Require(value == (bytes.size() == 2 ? Patched<short>(0, bytes) : 70000));
        }
        case 3: {
            long value = 0x12345678;
            block >> value;
            std::string const bytes = model.Get(4);
            return Require(value == static_cast<std::int32_t>(Patched(0x12345678L, bytes)));
        }
        case 4: {
            unsigned short value = 0x8234;
            block >> value;
            return Require(value == Patched<unsigned short>(0x8234, model.Get(2)));
        }
        case 5: {
            char target[256];
            auto const count = static_cast<short>(input.Next());
            std::memset(target, 'x', sizeof target);
            block.PeekNextChars(target, count);
            Model copy = model;
            std::string text = copy.Text();
            text.resize(static_cast<std::size_t>(count), '\0');
            return Require(std::string_view(target, text.size()) == text);
        }
        default: {
            kv::FlagSet set(-1, 3);
            block >> set;
            std::string const count = model.Get(2);
            int const size = count.size() == 2 ? std::max<int>(Patched<short>(0, count), 0) : 0;
            Require(set.GetSize() == size);
            std::string const flags = model.Get(static_cast<std::size_t>(size));
            for (int i = 0; i < size; ++i) {
                Require((set & i) == (static_cast<std::size_t>(i) < flags.size() &&
                                      flags[static_cast<std::size_t>(i)] != 0));
            }
        }
    }
}

void Move(kv::MyMemoryBlock& block, Model& model, unsigned operation) {
    switch (operation) {
        case 0:
            block.RememberReadPointer();
            model.rememberedRead = model.read;
            return;
        case 1:
            block.RestoreReadPointer();
            model.read = model.rememberedRead;
            return;
        case 2:
            block.RememberWritePointer();
            model.rememberedWrite = model.write;
            return;
        case 3:
            block.RestoreWritePointer();
            model.write = model.rememberedWrite;
            return;
        case 4:
            block.Minimize();
            model.storage.resize(model.length);
            model.read = std::min(model.read, model.length);
            model.rememberedRead = std::min(model.rememberedRead, model.length);
            return;
        default:
            kv::MyMemoryBlock const copy(block);
            block = copy;
            std::fill(model.storage.begin() + static_cast<std::ptrdiff_t>(model.length), model.storage.end(),
                      '\0');
            model.read = model.rememberedRead = model.rememberedWrite = 0;
            model.write = model.length;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const bytes(data, data + size);
    Bytes input(bytes);
    long const capacity = input.Next() % 32;
    kv::MyMemoryBlock block(capacity);
    Model model(capacity);
    while (!input.IsEmpty()) {
        unsigned const operation = input.Next() % 18;
        if (operation < 5) {
            Write(block, model, operation, input);
        } else if (operation < 12) {
            Read(block, model, operation - 5, input);
        } else {
            Move(block, model, operation - 12);
        }
        Require(block.Len() == static_cast<long>(model.length));
        Require(
            std::equal(block.GetDatenZeiger(), block.GetDatenZeiger() + block.Len(), model.storage.begin()));
        Require(block.GetGetPointer() - block.GetDatenZeiger() == static_cast<std::ptrdiff_t>(model.read));
        Require(block.GetPutPointer() - block.GetDatenZeiger() == static_cast<std::ptrdiff_t>(model.write));
    }
    return 0;
}
