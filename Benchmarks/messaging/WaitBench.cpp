// The processor time that a program takes while it waits for an answer: an instrument measures for ten
// seconds while the window of the asking program stays alive.
#include "Benchmarks/Ratios.h"
#include "Benchmarks/messaging/Asker.h"
#include "KVUtils/Source/messaging/MessageTable.h"

namespace {

void BM_WaitTenSeconds(benchmark::State& state) {
    bench::Place const place;
    bool const isThere = bench::RunInOffice(place, [&] {
        for (auto _ : state) bench::Ask(kv::EXEC_MEASUREMENT, {});
    });
    if (!isThere) state.SkipWithError("no server");
}
BENCHMARK(BM_WaitTenSeconds)->MeasureProcessCPUTime()->UseRealTime()->Iterations(1)->Repetitions(1);

bench::ProcessorShare const share("BM_WaitTenSeconds", "of a processor's time while it waits for an answer");

}  // namespace
