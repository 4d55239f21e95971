#include "Benchmarks/Ratios.h"

#include <algorithm>
#include <cstdio>

namespace bench {

namespace {

struct Pair {
    std::string subject;
    std::string peer;
    std::string meaning;
};

std::vector<Pair>& Pairs() {
    static std::vector<Pair> pairs;
    return pairs;
}

}  // namespace

Ratio::Ratio(std::string subject, std::string peer, std::string meaning) {
    Pairs().push_back({std::move(subject), std::move(peer), std::move(meaning)});
}

void RatioReporter::ReportRuns(std::vector<Run> const& runs) {
    for (Run const& run : runs) {
        if (run.aggregate_name == "median") medians_.push_back(run);
    }
    ConsoleReporter::ReportRuns(runs);
}

void RatioReporter::Finalize() {
    ConsoleReporter::Finalize();
    auto const timeOf = [this](std::string const& name) {
        auto const run =
            std::ranges::find(medians_, name, [](Run const& r) { return r.run_name.function_name; });
        return run == medians_.end() ? 0.0 : run->GetAdjustedCPUTime();
    };
    std::printf("\nRatios of medians in this run\n");
    for (Pair const& pair : Pairs()) {
        double const subject = timeOf(pair.subject);
        double const peer = timeOf(pair.peer);
        if (subject > 0 && peer > 0) {
            std::printf("  %6.2f  %s / %s: %s\n", subject / peer, pair.subject.c_str(), pair.peer.c_str(),
                        pair.meaning.c_str());
        }
    }
}

}  // namespace bench

int main(int argc, char** argv) {
    // Medians of interleaved repetitions, so that a change of the machine's speed meets both sides of a
    // ratio.
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=9";
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::string quiet = "--benchmark_report_aggregates_only=true";
    std::string shortRuns = "--benchmark_min_time=0.05";
    arguments.insert(arguments.begin() + 1,
                     {repetitions.data(), interleave.data(), quiet.data(), shortRuns.data()});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
