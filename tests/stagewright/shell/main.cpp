// The shell tests drive the real windows on the offscreen platform, in a
// private home: HOME and the XDG folders point into a temporary folder before
// the application object exists.
#include <stagewright/shell/StageWrightApp.h>

#include <tessaro/model/Diagnostics.h>

#include "support/PrivateHome.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing_support::PrivateHome home;
    QApplication app(argc, argv);
    stagewright::setApplicationIdentity();
    // The state's lines are many and say nothing to a test run that passes.
    if (qEnvironmentVariableIsEmpty("STAGEWRIGHT_TEST_VERBOSE"))
        tessaro::setDiagnosticSink([](std::string_view) {});
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
