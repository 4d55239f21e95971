#include "Benchmarks/Ratios.h"

#include <algorithm>
#include <cstdio>

namespace bench {

namespace {

struct Pair {
    std::string subject;
    std::string peer;  // empty: the subject's own elapsed time
    std::string meaning;
};

std::vector<Pair>& Pairs() {
    static std::vector<Pair> pairs;
    return pairs;
}

double TimeOf(benchmark::BenchmarkReporter::Run const& run) {
    return run.run_name.time_type.empty() ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime();
}

}  // namespace

Ratio::Ratio(std::string subject, std::string peer, std::string meaning) {
    Pairs().push_back({std::move(subject), std::move(peer), std::move(meaning)});
}

ProcessorShare::ProcessorShare(std::string subject, std::string meaning) {
    Pairs().push_back({std::move(subject), {}, std::move(meaning)});
}

void RatioReporter::ReportRuns(std::vector<Run> const& runs) {
    for (Run const& run : runs) {
        if (!run.error_occurred && (run.aggregate_name == "median" || run.repetitions == 1))
            medians_.push_back(run);
    }
    ConsoleReporter::ReportRuns(runs);
}

RatioReporter::Run const* RatioReporter::Median(std::string const& name) const {
    auto const run = std::ranges::find_if(medians_, [&](Run const& r) {
        auto const& parts = r.run_name;
        return name == (parts.args.empty() ? parts.function_name : parts.function_name + '/' + parts.args);
    });
    return run == medians_.end() ? nullptr : &*run;
}

void RatioReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::printf("\nRatios of medians in this run\n");
    for (auto const& [subjectName, peerName, meaning] : Pairs()) {
        Run const* const subject = Median(subjectName);
        if (subject == nullptr) continue;
        if (peerName.empty()) {
            double const share = subject->GetAdjustedCPUTime() / subject->GetAdjustedRealTime();
            std::printf("  %5.2f%%  %s: %s\n", 100 * share, subjectName.c_str(), meaning.c_str());
        } else if (Run const* const peer = Median(peerName)) {
            std::printf("  %6.2f  %s / %s: %s\n", TimeOf(*subject) / TimeOf(*peer), subjectName.c_str(),
                        peerName.c_str(), meaning.c_str());
        }
    }
}

}  // namespace bench

int main(int argc, char** argv) {
    // Interleaves repetitions and takes medians, so that a change of the machine's speed affects both sides
    // of a ratio.
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
