// The scene tests run in a private home: HOME and the XDG folders point into a
// temporary folder before the application object exists, and drawing uses
// the offscreen platform.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
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

    QGuiApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("StageWright"));
    QCoreApplication::setApplicationName(QStringLiteral("StageWright"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
