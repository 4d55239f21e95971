#include "Platform/Tests/TestSystem.h"

#include <ctime>
#include <fstream>
#include <unistd.h>

namespace tests {

double ProcessorMs() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

long ResidentKiB() {
    std::ifstream status("/proc/self/statm");
    long total = 0;
    long resident = 0;
    status >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

bool IsUnderWine() { return false; }

}  // namespace tests
