#include <gtest/gtest.h>

#include <QApplication>

#include "model/race_file.h"

int main(int argc, char** argv) {
    // Widget tests run without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
