// The main program of the Qt tests. Runs without a display, unless the environment names a Qt platform.
#include "SV/qt/QtBackend.h"

#include <gtest/gtest.h>

#include <QByteArray>

#ifdef __SANITIZE_ADDRESS__
// fontconfig keeps the fonts that were searched for a text.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" char const* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
#endif

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    sv::qt::QtBackend const windows(argc, argv);
    return RUN_ALL_TESTS();
}
