// Points HOME and the XDG folders into a temporary folder, so that a test or
// benchmark run never reaches the user's own settings, grants or workspace.
// Make it before the application object exists; drawing uses the offscreen
// platform unless another one is asked for.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace testing_support {

class PrivateHome {
public:
    PrivateHome()
    {
        const QByteArray root = QFile::encodeName(scratch_.path());
        qputenv("HOME", root + "/home");
        qputenv("XDG_DATA_HOME", root + "/data");
        qputenv("XDG_CONFIG_HOME", root + "/config");
        qputenv("XDG_CACHE_HOME", root + "/cache");
        qputenv("XDG_RUNTIME_DIR", root + "/runtime");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + root + "/no-bus");
        for (const char* folder : {"/home", "/data", "/config", "/cache", "/runtime"})
            QDir().mkpath(QFile::decodeName(root + folder));
        QFile::setPermissions(QFile::decodeName(root + "/runtime"),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }

private:
    QTemporaryDir scratch_;
};

} // namespace testing_support
