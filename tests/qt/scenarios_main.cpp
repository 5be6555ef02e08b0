#include "adapters/qt/QtDesktop.h"
#include "qt/ScriptedDesktop.h"
#include "support/NewDesktop.h"

#include <QApplication>

#include <gtest/gtest.h>

// The dialogs' own tests once more, in real windows: every script works through widgets, mouse and keys, and expects
// the same statements, messages and results.
int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    kvx::adapters::qt::QtDesktop::UseDefaultLook(app);
    kvx::test::desktopMaker = [] { return std::make_unique<kvx::test::ScriptedDesktop>(); };
    return RUN_ALL_TESTS();
}
