// Filling a message's byte buffer, compared to inserting the same bytes at the end of a std::vector.
#include "Benchmarks/Ratios.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace {

constexpr long Fields = 4096;

void BM_BlockInts(benchmark::State& state) {
    for (auto _ : state) {
        kv::MyMemoryBlock block;
        for (long i = 0; i < Fields; ++i) block << i;
        benchmark::DoNotOptimize(block.GetDatenZeiger());
    }
}
BENCHMARK(BM_BlockInts);

void BM_VectorInsertInts(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<char> bytes;
        bytes.reserve(kv::MyMemoryBlock::DefaultCapacity);
        for (long i = 0; i < Fields; ++i) {
            auto const value = static_cast<std::int32_t>(i);
            char field[sizeof value];
            std::memcpy(field, &value, sizeof value);
            bytes.insert(bytes.end(), field, field + sizeof field);
        }
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(BM_VectorInsertInts);

/// The length of a spectrum's line.
constexpr std::size_t PieceSize = 200;

void BM_BlockPieces(benchmark::State& state) {
    std::vector<char> const piece(PieceSize, 'x');
    for (auto _ : state) {
        kv::MyMemoryBlock block;
        for (long i = 0; i < Fields; ++i) block.Put(piece.data(), PieceSize);
        benchmark::DoNotOptimize(block.GetDatenZeiger());
    }
}
BENCHMARK(BM_BlockPieces);

void BM_VectorInsertPieces(benchmark::State& state) {
    std::vector<char> const piece(PieceSize, 'x');
    for (auto _ : state) {
        std::vector<char> bytes;
        bytes.reserve(kv::MyMemoryBlock::DefaultCapacity);
        for (long i = 0; i < Fields; ++i) bytes.insert(bytes.end(), piece.begin(), piece.end());
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(BM_VectorInsertPieces);

bench::Ratio const ints("BM_BlockInts", "BM_VectorInsertInts",
                        "fields of four bytes, ours over a vector's insert");
bench::Ratio const pieces("BM_BlockPieces", "BM_VectorInsertPieces",
                          "pieces of 200 bytes, ours over a vector's insert");

}  // namespace
