#include "Apps/kvcolor/output/Progress.h"
#include "gtest/gtest.h"

#include <sstream>

namespace kvcolor::test {

namespace {

using namespace std::chrono_literals;

/// Returns what four steps of this length draw.
std::string DrawnBy(std::chrono::milliseconds step, bool isTerminal) {
    std::ostringstream out;
    std::ostringstream err;
    Environment::Clock::time_point now;
    Environment const environment{
        .out = out, .err = err, .errIsTerminal = isTerminal, .now = [&] { return now; }};
    {
        Progress progress(environment, "comparing", 4);
        for (int i = 0; i < 4; ++i) {
            now += step;
            progress.Step();
        }
    }
    EXPECT_EQ(out.str(), "");
    return err.str();
}

}  // namespace

TEST(ProgressTest, IsDrawnAfterASecondOnATerminalAlone) {
    EXPECT_EQ(DrawnBy(400ms, true),
              "\r\x1B[Kcomparing: 3 of 4 (75 %)\r\x1B[Kcomparing: 4 of 4 (100 %)\r\x1B[K");
    EXPECT_EQ(DrawnBy(200ms, true), "");
    EXPECT_EQ(DrawnBy(400ms, false), "");
}

}  // namespace kvcolor::test
