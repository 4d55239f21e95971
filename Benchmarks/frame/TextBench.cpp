// Looks up a translated text by group and number, compared with the same texts in vectors.
#include "Benchmarks/Ratios.h"
#include "KVUtils/Source/frame/Text.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr unsigned Groups = 40;
constexpr unsigned Texts = 25;

/// Short and long texts in turn, as in an application.
std::string TextOf(unsigned group, unsigned index) {
    std::string const number = std::to_string(group) + "." + std::to_string(index);
    return index % 2 == 0 ? "text " + number : "a text that is as long as a sentence, number " + number;
}

std::vector<std::vector<std::string>> const& Peer() {
    static std::vector<std::vector<std::string>> const peer = [] {
        std::vector<std::vector<std::string>> made(Groups);
        for (unsigned group = 0; group < Groups; ++group) {
            for (unsigned index = 0; index < Texts; ++index) made[group].push_back(TextOf(group, index));
        }
        return made;
    }();
    return peer;
}

void LoadTexts() {
    kv::Text::FreeResources();
    std::filesystem::path const path = std::filesystem::temp_directory_path() / "TextBench.lng";
    {
        std::ofstream file(path, std::ios::binary);
        for (unsigned group = 0; group < Groups; ++group) {
            file << "{" << group << "}\n";
            for (std::string const& text : Peer()[group]) file << "[" << text << "]\n";
        }
    }
    kv::Text::LoadText(path.string());
    std::filesystem::remove(path);
}

/// Visits all texts in a scattered order.
template <class Find>
void OverTexts(benchmark::State& state, Find find) {
    unsigned group = 0;
    unsigned index = 0;
    for (auto _ : state) {
        auto text = find(group, index);
        benchmark::DoNotOptimize(text);
        group = (group + 7) % Groups;
        index = (index + 3) % Texts;
    }
}

void BM_GetText(benchmark::State& state) {
    LoadTexts();
    if (kv::Text::GetText(Groups - 1, Texts - 1) != TextOf(Groups - 1, Texts - 1)) {
        state.SkipWithError("the texts were not loaded");
    }
    OverTexts(state, [](unsigned group, unsigned index) { return kv::Text::GetText(group, index); });
}
BENCHMARK(BM_GetText);

void BM_TextOfVectors(benchmark::State& state) {
    auto const& texts = Peer();
    OverTexts(state, [&texts](unsigned group, unsigned index) { return texts[group][index]; });
}
BENCHMARK(BM_TextOfVectors);

bench::Ratio const getText("BM_GetText", "BM_TextOfVectors",
                           "a text by group and number, over a vector's copy of it");

}  // namespace
