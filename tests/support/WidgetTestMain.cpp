// The main of the test programs that drive widgets: like the GUI test main,
// in a private home on the offscreen platform, but with a widget application.
#include "support/PrivateHome.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing_support::PrivateHome home;
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("StageWright"));
    QCoreApplication::setApplicationName(QStringLiteral("StageWright"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
