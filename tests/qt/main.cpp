#include "adapters/qt/QtDesktop.h"

#include <QApplication>

#include <gtest/gtest.h>

// One application for all tests of the program, as in a host.
int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    kvx::adapters::qt::QtDesktop::UseDefaultLook(app);
    return RUN_ALL_TESTS();
}
