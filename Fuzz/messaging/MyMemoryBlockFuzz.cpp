// Runs any sequence of operations on a byte buffer and on a simple model of it.
#include "KVUtils/Source/messaging/MYMEMBLO.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

void Require(bool isKept) {
    if (!isKept) std::abort();
}

/// The buffer as a vector with positions.
struct Model {
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
        read += count;
        return {storage.data() + read - count, count};
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

std::string Target(std::size_t size) { return std::string(size, 'x'); }

void Apply(kv::MyMemoryBlock& block, Model& model, unsigned operation, std::string const& bytes) {
    auto const count = static_cast<long>(bytes.size());
    switch (operation) {
        case 0:
            Require(block.Put(bytes.data(), count) == count);
            return model.Put(bytes);
        case 1:
            block << sv::String(bytes);
            return model.Put(bytes + '\0');
        case 2:
            block << static_cast<long>(count);
            return model.Put(std::string(1, static_cast<char>(count)) + std::string(3, '\0'));
        case 3: {
            std::string target = Target(bytes.size());
            target.resize(static_cast<std::size_t>(block.Get(target.data(), count)));
            return Require(target == model.Get(bytes.size()));
        }
        case 4: {
            sv::String text;
            block >> text;
            return Require(text.View() == model.Text());
        }
        case 5: {
            std::string target = Target(bytes.size());
            block.PeekNextChars(target.data(), static_cast<short>(count));
            std::string expected = Model(model).Text();
            expected.resize(bytes.size(), '\0');
            return Require(target == expected);
        }
        case 6:
            block.RememberReadPointer();
            model.rememberedRead = model.read;
            return;
        case 7:
            block.RestoreReadPointer();
            model.read = model.rememberedRead;
            return;
        case 8:
            block.RememberWritePointer();
            model.rememberedWrite = model.write;
            return;
        case 9:
            block.RestoreWritePointer();
            model.write = model.rememberedWrite;
            return;
        case 10:
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

/// Input: the capacity, then operations, each an opcode, a count and that many bytes.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string_view input(reinterpret_cast<char const*>(data), size);
    if (input.empty()) return 0;
    long const capacity = input[0] & 31;
    kv::MyMemoryBlock block(capacity);
    Model model{std::vector<char>(static_cast<std::size_t>(capacity))};
    for (input.remove_prefix(1); input.size() >= 2;) {
        unsigned const operation = static_cast<unsigned char>(input[0]) % 12;
        std::string const bytes(input.substr(2, input[1] & 127));
        input.remove_prefix(2 + bytes.size());
        Apply(block, model, operation, bytes);
        Require(block.Len() == static_cast<long>(model.length));
        Require(
            std::equal(block.GetDatenZeiger(), block.GetDatenZeiger() + block.Len(), model.storage.begin()));
        Require(block.GetGetPointer() - block.GetDatenZeiger() == static_cast<std::ptrdiff_t>(model.read));
        Require(block.GetPutPointer() - block.GetDatenZeiger() == static_cast<std::ptrdiff_t>(model.write));
    }
    return 0;
}
