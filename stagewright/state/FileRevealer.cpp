#include "FileRevealer.h"

#include "StateDiagnostics.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace stagewright {

bool revealInFileManager(const QString& path)
{
    const QFileInfo info(path);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
            QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
        call << QStringList{QUrl::fromLocalFile(info.absoluteFilePath()).toString()} << QString();
        const QDBusMessage reply = bus.call(call, QDBus::Block, 3000);
        if (reply.type() == QDBusMessage::ReplyMessage)
            return true;
    }
    const QString folder = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    if (QProcess::startDetached(QStringLiteral("xdg-open"), {folder}))
        return true;
    diagnosticLine(QStringLiteral("Could not show ") + path + QStringLiteral(" in the file manager."));
    return false;
}

} // namespace stagewright
