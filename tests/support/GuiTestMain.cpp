// The main of the test programs that need Qt's GUI classes but no windows:
// they run in a private home (HOME and the XDG folders point into a temporary
// folder before the application object exists) and draw on the offscreen
// platform. A program that defines TEST_MAIN_WIDGETS runs a widget
// application.
#include "support/PrivateHome.h"

#include <gtest/gtest.h>

#ifdef TEST_MAIN_WIDGETS
#include <QApplication>
using TestApplication = QApplication;
#else
#include <QGuiApplication>
using TestApplication = QGuiApplication;
#endif

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing_support::PrivateHome home;
    TestApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("StageWright"));
    QCoreApplication::setApplicationName(QStringLiteral("StageWright"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
