// Ratios: the time of a benchmark divided by that of another one in the same run. Only such ratios can be
// compared between machines, and between runs on one machine.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace bench {

/// Registers the ratio of two benchmarks, named with their arguments, and what it means to a reader. It
/// compares processor time, or whatever time the benchmarks were told to measure. Construct it in a static
/// initialiser.
struct Ratio {
    Ratio(std::string subject, std::string peer, std::string meaning);
};

/// Registers the processor time of a benchmark divided by the elapsed time, which it must measure.
struct ProcessorShare {
    ProcessorShare(std::string subject, std::string meaning);
};

/// Prints the usual table, then the registered ratios of medians.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(std::vector<Run> const& runs) override;
    void Finalize() override;

  private:
    [[nodiscard]] Run const* Median(std::string const& name) const;

    std::vector<Run> medians_;
};

}  // namespace bench
