// The Qt tests' main program: without a display, unless the environment names a platform of Qt's.
#include "SV/qt/QtBackend.h"

#include <gtest/gtest.h>

#include <QByteArray>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    sv::qt::QtBackend const windows(argc, argv);
    return RUN_ALL_TESTS();
}
