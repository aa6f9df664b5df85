// The shell tests drive the real windows on the offscreen platform, in a
// private home: HOME and the XDG folders point into a temporary folder before
// the application object exists.
#include <stagewright/shell/StageWrightApp.h>

#include <tessaro/model/Diagnostics.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    QTemporaryDir scratch;
    const QByteArray root = scratch.path().toLocal8Bit();
    qputenv("HOME", root + "/home");
    qputenv("XDG_DATA_HOME", root + "/data");
    qputenv("XDG_CONFIG_HOME", root + "/config");
    qputenv("XDG_CACHE_HOME", root + "/cache");
    qputenv("XDG_RUNTIME_DIR", root + "/runtime");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + root + "/no-bus");
    for (const char* folder : {"/home", "/data", "/config", "/cache", "/runtime"})
        QDir().mkpath(QString::fromLocal8Bit(root + folder));
    QFile::setPermissions(QString::fromLocal8Bit(root + "/runtime"),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    stagewright::setApplicationIdentity();
    // The state's lines are many and say nothing to a test run that passes.
    if (qEnvironmentVariableIsEmpty("STAGEWRIGHT_TEST_VERBOSE"))
        tessaro::setDiagnosticSink([](std::string_view) {});
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
