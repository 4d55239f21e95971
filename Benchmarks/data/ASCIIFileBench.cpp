// Reads a keyed data file of 50 MB, compared with std::getline, with GLib's key files on the same bytes, and
// with the CGATS reader of Little CMS on the same numbers.
#include "Benchmarks/Ratios.h"
#include "KVUtils/Source/data/ASCIIFile.h"

#include <lcms2.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <glib.h>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr int SampleCount = 72000;
constexpr int NumbersPerSample = 39;
constexpr double Numbers = double{SampleCount} * NumbersPerSample;

/// The keys of a sample: L, a, b and 36 reflectances.
std::array<sv::String, NumbersPerSample> const& Keys() {
    static std::array<sv::String, NumbersPerSample> const keys = [] {
        std::array<sv::String, NumbersPerSample> made{"L", "a", "b"};
        for (std::size_t i = 3; i < made.size(); ++i) made.at(i) = std::to_string(380 + 10 * (i - 3)) + "nm";
        return made;
    }();
    return keys;
}

std::string TitleOf(int sample) {
    std::string title = "Sample ";
    return title += std::to_string(sample);
}

/// The file, deleted when the program exits.
class DataFile {
  public:
    DataFile() {
        std::mt19937 random(3);
        std::uniform_real_distribution<double> reflectance(0.02, 0.95);
        kv::ASCIIFile file(path_.string(), 0, 0);
        for (int sample = 0; sample < SampleCount; ++sample) {
            file.PutTitel(TitleOf(sample));
            for (sv::String const& key : Keys()) file.PutReal(key, reflectance(random));
        }
    }
    DataFile(DataFile const&) = delete;
    DataFile& operator=(DataFile const&) = delete;
    ~DataFile() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }

    [[nodiscard]] std::string Path() const { return path_.string(); }
    [[nodiscard]] std::int64_t Size() const {
        return static_cast<std::int64_t>(std::filesystem::file_size(path_));
    }

  private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                  std::to_string(std::random_device()()).append(".ASCIIFileBench");
};

DataFile const& TheFile() {
    static DataFile const file;
    return file;
}

/// Counts bytes, so that the table shows the throughput; fails if numbers are missing.
void Account(benchmark::State& state, double found, double expected) {
    state.SetBytesProcessed(state.iterations() * TheFile().Size());
    if (found != expected) state.SkipWithError("not all of the file was read");
}

void BM_ASCIIFileRead(benchmark::State& state) {
    std::string const path = TheFile().Path();
    double found = 0;
    for (auto _ : state) {
        kv::ASCIIFile file(path, 1, 0);
        found = 0;
        double value = 0;
        for (int sample = 0; sample < SampleCount; ++sample) {
            file.SkipLines(1);
            for (sv::String const& key : Keys()) found += file.GetReal(key, value);
        }
        benchmark::DoNotOptimize(value);
    }
    Account(state, found, Numbers);
}
BENCHMARK(BM_ASCIIFileRead)->Unit(benchmark::kMillisecond);

void BM_GetlinePass(benchmark::State& state) {
    std::string const path = TheFile().Path();
    double found = 0;
    for (auto _ : state) {
        std::ifstream file(path);
        found = 0;
        std::string line;
        while (std::getline(file, line)) ++found;
    }
    Account(state, found, Numbers + SampleCount);
}
BENCHMARK(BM_GetlinePass)->Unit(benchmark::kMillisecond);

void BM_GKeyFileRead(benchmark::State& state) {
    std::string const path = TheFile().Path();
    double found = 0;
    for (auto _ : state) {
        std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> const file(g_key_file_new(), &g_key_file_free);
        g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_NONE, nullptr);
        found = 0;
        for (int sample = 0; sample < SampleCount; ++sample) {
            std::string const title = TitleOf(sample);
            for (sv::String const& key : Keys()) {
                found += g_key_file_get_double(file.get(), title.c_str(), key.GetStr(), nullptr) > 0 ? 1 : 0;
            }
        }
    }
    Account(state, found, Numbers);
}
BENCHMARK(BM_GKeyFileRead)->Unit(benchmark::kMillisecond);

constexpr int RowsPerTable = 24000;

std::string It8Head() {
    std::ostringstream head;
    head << "CGATS.17\nNUMBER_OF_FIELDS " << NumbersPerSample << "\nBEGIN_DATA_FORMAT\n";
    for (sv::String const& key : Keys()) head << key.View() << ' ';
    head << "\nEND_DATA_FORMAT\nNUMBER_OF_SETS " << RowsPerTable << "\nBEGIN_DATA\n";
    return head.str();
}

/// The same numbers as tables for Little CMS, which limits the rows of a table.
std::vector<std::string> const& It8Tables() {
    static std::vector<std::string> const tables = [] {
        kv::ASCIIFile file(TheFile().Path(), 1, 0);
        std::vector<std::string> made(SampleCount / RowsPerTable, It8Head());
        for (std::string& table : made) {
            for (int row = 0; row < RowsPerTable; ++row) {
                file.SkipLines(1);
                for (int i = 0; i < NumbersPerSample; ++i) {
                    sv::String line;
                    file.GetKeyString(line);
                    table += line.View().substr(line.Search('=') + 1);
                }
                table += '\n';
            }
            table += "END_DATA\n";
        }
        return made;
    }();
    return tables;
}

void BM_LittleCmsIt8Read(benchmark::State& state) {
    auto const& tables = It8Tables();
    double found = 0;
    for (auto _ : state) {
        found = 0;
        for (std::string const& table : tables) {
            cmsHANDLE const handle =
                cmsIT8LoadFromMem(nullptr, table.data(), static_cast<cmsUInt32Number>(table.size()));
            if (handle == nullptr) break;
            int const rows = static_cast<int>(cmsIT8GetPropertyDbl(handle, "NUMBER_OF_SETS"));
            for (int row = 0; row < rows; ++row) {
                for (int column = 0; column < NumbersPerSample; ++column) {
                    found += cmsIT8GetDataRowColDbl(handle, row, column) > 0 ? 1 : 0;
                }
            }
            cmsIT8Free(handle);
        }
    }
    Account(state, found, Numbers);
}
BENCHMARK(BM_LittleCmsIt8Read)->Unit(benchmark::kMillisecond);

bench::Ratio const getline("BM_ASCIIFileRead", "BM_GetlinePass", "keys and numbers over std::getline");
bench::Ratio const glib("BM_ASCIIFileRead", "BM_GKeyFileRead", "a data file over GLib's key file");
bench::Ratio const it8("BM_ASCIIFileRead", "BM_LittleCmsIt8Read", "the same numbers over Little CMS's table");

}  // namespace
