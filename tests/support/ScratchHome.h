// A temporary home folder for one test: HOME points into it and the
// application's user defaults start empty; both are put back afterwards.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

namespace testing_support {

class ScratchHome {
public:
    ScratchHome() : m_previousHome(qgetenv("HOME"))
    {
        qputenv("HOME", QFile::encodeName(m_dir.path()));
        clearUserDefaults();
    }
    ~ScratchHome()
    {
        qputenv("HOME", m_previousHome);
        clearUserDefaults();
    }
    ScratchHome(const ScratchHome&) = delete;
    ScratchHome& operator=(const ScratchHome&) = delete;

    QString path() const { return m_dir.path(); }
    /// A folder below the scratch home, made.
    QString folder(const QString& relative) const
    {
        const QString path = m_dir.path() + QLatin1Char('/') + relative;
        QDir().mkpath(path);
        return path;
    }

private:
    static void clearUserDefaults() { QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright")).clear(); }

    QTemporaryDir m_dir;
    QByteArray m_previousHome;
};

} // namespace testing_support
