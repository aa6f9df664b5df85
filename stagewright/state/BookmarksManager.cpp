#include "BookmarksManager.h"

#include "StateDiagnostics.h"

#include <tessaro/model/FileIO.h>
#include <tessaro/model/Uuid.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace stagewright {

namespace {

QString cleanLocation(const QString& location)
{
    if (location.isEmpty())
        return location;
    return QDir::cleanPath(QFileInfo(location).absoluteFilePath());
}

bool isSkipped(const QString& fileName)
{
    return fileName.contains(QLatin1String(".DS_Store"));
}

} // namespace

BookmarksManager::BookmarksManager(QString grantFolder, QObject* parent)
    : QObject(parent),
      m_grantFolder(std::move(grantFolder))
{
}

BookmarksManager::~BookmarksManager() = default;

BookmarksManager& BookmarksManager::shared()
{
    static BookmarksManager* instance = new BookmarksManager; // lives for the whole run
    return *instance;
}

QString BookmarksManager::grantFolder() const
{
    QString folder = m_grantFolder;
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/grants");
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    return folder;
}

bool BookmarksManager::startAccessing(const QString& location)
{
    const QFileInfo info(location);
    return info.exists() && info.isReadable();
}

std::optional<QStringList> BookmarksManager::grantFiles(QString* error) const
{
    const QString folder = grantFolder();
    QDir dir(folder);
    if (!dir.exists()) {
        // No grant has been stored yet.
        return QStringList{};
    }
    if (!QFileInfo(folder).isReadable()) {
        if (error)
            *error = QStringLiteral("The folder \"%1\" cannot be read.").arg(folder);
        return std::nullopt;
    }
    QStringList files;
    const QStringList names = dir.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString& name : names)
        if (!isSkipped(name))
            files << folder + name;
    return files;
}

std::optional<BookmarksManager::Resolved> BookmarksManager::resolve(const QString& file, QString* error) const
{
    const tessaro::FileReadResult read = tessaro::readWholeFile(file.toStdString());
    if (!read.bytes) {
        *error = QString::fromStdString(read.error);
        return std::nullopt;
    }
    const QString path = QString::fromUtf8(read.bytes->data(), qsizetype(read.bytes->size())).trimmed();
    if (path.isEmpty() || !QDir::isAbsolutePath(path) || path.contains(QLatin1Char('\n'))) {
        *error = QStringLiteral("The grant file \"%1\" holds no folder path.").arg(file);
        return std::nullopt;
    }
    Resolved resolved;
    resolved.location = cleanLocation(path);
    resolved.stale = !QFileInfo::exists(resolved.location);
    return resolved;
}

void BookmarksManager::add(const QString& rawLocation)
{
    const QString location = cleanLocation(rawLocation);
    const QString folder = grantFolder();
    if (!QDir().mkpath(folder)) {
        diagnosticLine(QStringLiteral("Error Adding Bookmark file: cannot create the folder \"%1\".").arg(folder));
        return;
    }
    QString error;
    const std::optional<QStringList> files = grantFiles(&error);
    if (!files) {
        diagnosticLine(QStringLiteral("Error Adding Bookmark file: ") + error);
        return;
    }
    for (const QString& file : *files) {
        QString resolveError;
        if (auto resolved = resolve(file, &resolveError); resolved && resolved->location == location)
            return;
    }
    if (!startAccessing(location)) {
        diagnosticLine(QStringLiteral("Failed to obtain access to the security-scoped resource."));
        return;
    }
    const QString file = folder + QString::fromStdString(tessaro::Uuid::create().text());
    if (auto writeError = tessaro::writeFileAtomically(file.toStdString(), location.toUtf8().toStdString())) {
        diagnosticLine(QStringLiteral("Error Adding Bookmark: ") + QString::fromStdString(*writeError));
        return;
    }
    diagnosticLine(QStringLiteral("added bookmark for ") + location);
    diagnosticLine(QStringLiteral("adding url variable for ") + location);
    m_secureUrls << location;
    diagnosticLine(QStringLiteral("added url variable for ") + location);
    emit secureUrlsChanged();
}

void BookmarksManager::remove(const QString& rawLocation)
{
    const QString location = cleanLocation(rawLocation);
    QString error;
    if (const std::optional<QStringList> files = grantFiles(&error)) {
        for (const QString& file : *files) {
            QString resolveError;
            const auto resolved = resolve(file, &resolveError);
            if (!resolved || resolved->location != location)
                continue;
            if (!QFile::remove(file))
                diagnosticLine(QStringLiteral("Error removing bookmark file: ") + file);
            m_secureUrls.removeAll(location);
        }
    } else {
        diagnosticLine(QStringLiteral("Error removing bookmark: ") + error);
    }
    loadAllBookmarks();
}

std::optional<QString> BookmarksManager::loadSecurityScopedURL(const QString& rawLocation)
{
    const QString location = cleanLocation(rawLocation);
    diagnosticLine(QStringLiteral(" loadSecurityScopedURL: ") + location);
    QString error;
    const std::optional<QStringList> files = grantFiles(&error);
    if (!files) {
        diagnosticLine(QStringLiteral("Error (") + grantFolder() + QStringLiteral("): ") + error);
        return std::nullopt;
    }
    for (const QString& file : *files) {
        QString resolveError;
        const auto resolved = resolve(file, &resolveError);
        if (!resolved) {
            diagnosticLine(QStringLiteral("Error (") + file + QStringLiteral("): ") + resolveError);
            return std::nullopt;
        }
        // A grant covers every path that begins with its own, as plain text.
        if (location.startsWith(resolved->location))
            return resolved->location;
        if (resolved->stale)
            return std::nullopt;
    }
    return std::nullopt;
}

void BookmarksManager::loadAllBookmarks()
{
    m_secureUrls.clear();
    diagnosticLine(QStringLiteral("loadAllBookmarks: ") + grantFolder());
    QString error;
    if (const std::optional<QStringList> files = grantFiles(&error)) {
        for (const QString& file : *files) {
            QString resolveError;
            const auto resolved = resolve(file, &resolveError);
            if (!resolved) {
                diagnosticLine(QStringLiteral("Error Loading Bookmark: ") + resolveError);
                continue;
            }
            m_secureUrls << resolved->location;
            startAccessing(resolved->location);
            diagnosticLine(QStringLiteral("loaded bookmark: ") + resolved->location);
        }
    } else {
        diagnosticLine(QStringLiteral("Error Loading Bookmark: ") + error);
    }
    emit secureUrlsChanged();
}

} // namespace stagewright
