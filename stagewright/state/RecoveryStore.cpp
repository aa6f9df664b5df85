#include "RecoveryStore.h"

#include "StateDiagnostics.h"

#include <tessaro/model/LevelFiles.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace stagewright {

namespace {

const QString lockName = QStringLiteral("run.lock");
const QString levelsSuffix = QStringLiteral(".plist");
const QString infoSuffix = QStringLiteral(".json");

QString uuidText(const tessaro::Uuid& id)
{
    return QString::fromStdString(id.text());
}

std::optional<tessaro::Uuid> uuidFromText(const QString& text)
{
    return tessaro::Uuid::fromText(text.toStdString());
}

QByteArray infoBytes(const RecoverySnapshot& snapshot)
{
    QJsonObject info;
    info.insert(QStringLiteral("name"), snapshot.name);
    if (snapshot.originalPath)
        info.insert(QStringLiteral("originalPath"), *snapshot.originalPath);
    info.insert(QStringLiteral("originalUnreadable"), snapshot.originalUnreadable);
    if (snapshot.shownLevel)
        info.insert(QStringLiteral("shownLevel"), uuidText(*snapshot.shownLevel));
    info.insert(QStringLiteral("savedAt"), snapshot.savedAt.toUTC().toString(Qt::ISODateWithMs));
    return QJsonDocument(info).toJson();
}

/// The entry described by an info file; none when the file or its levels
/// are missing or the text is no description.
std::optional<RecoveryEntry> readEntry(const QString& infoFile)
{
    QFile file(infoFile);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isObject())
        return std::nullopt;
    const QJsonObject info = document.object();
    RecoveryEntry entry;
    entry.infoFile = infoFile;
    entry.levelsFile = infoFile.chopped(infoSuffix.size()) + levelsSuffix;
    if (!QFileInfo::exists(entry.levelsFile))
        return std::nullopt;
    entry.name = info.value(QStringLiteral("name")).toString();
    if (info.contains(QStringLiteral("originalPath")))
        entry.originalPath = info.value(QStringLiteral("originalPath")).toString();
    entry.originalUnreadable = info.value(QStringLiteral("originalUnreadable")).toBool();
    entry.shownLevel = uuidFromText(info.value(QStringLiteral("shownLevel")).toString());
    entry.savedAt = QDateTime::fromString(info.value(QStringLiteral("savedAt")).toString(), Qt::ISODateWithMs);
    if (!entry.savedAt.isValid())
        entry.savedAt = QFileInfo(infoFile).lastModified();
    return entry;
}

std::vector<RecoveryEntry> entriesIn(const QString& folder)
{
    std::vector<RecoveryEntry> entries;
    const QStringList infos = QDir(folder).entryList({QStringLiteral("*") + infoSuffix}, QDir::Files, QDir::Name);
    for (const QString& name : infos)
        if (std::optional<RecoveryEntry> entry = readEntry(folder + QLatin1Char('/') + name))
            entries.push_back(std::move(*entry));
    return entries;
}

} // namespace

RecoveryStore::RecoveryStore(const QString& root)
    : m_root(QDir::cleanPath(root)),
      m_sessionFolder(m_root + QLatin1Char('/') + uuidText(tessaro::Uuid::create()))
{
    QDir().mkpath(m_sessionFolder);
    m_sessionLock = std::make_unique<QLockFile>(m_sessionFolder + QLatin1Char('/') + lockName);
    // The lock says this run is alive for as long as it runs, however long.
    m_sessionLock->setStaleLockTime(0);
    if (!m_sessionLock->tryLock(0))
        diagnosticLine(QStringLiteral("Recovery folder could not be locked: ") + m_sessionFolder);
}

RecoveryStore::~RecoveryStore() = default;

QString RecoveryStore::defaultRoot()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery");
}

QString RecoveryStore::levelsPath(const tessaro::Uuid& tabId) const
{
    return m_sessionFolder + QLatin1Char('/') + uuidText(tabId) + levelsSuffix;
}

QString RecoveryStore::infoPath(const tessaro::Uuid& tabId) const
{
    return m_sessionFolder + QLatin1Char('/') + uuidText(tabId) + infoSuffix;
}

bool RecoveryStore::write(const tessaro::Uuid& tabId, const RecoverySnapshot& snapshot)
{
    QDir().mkpath(m_sessionFolder);
    // The levels go first: a description always has its levels beside it.
    if (!tessaro::saveLevels(snapshot.levels, levelsPath(tabId).toStdString())) {
        diagnosticLine(QStringLiteral("Recovery file could not be written: ") + levelsPath(tabId));
        return false;
    }
    QSaveFile info(infoPath(tabId));
    if (!info.open(QIODevice::WriteOnly) || info.write(infoBytes(snapshot)) < 0 || !info.commit()) {
        diagnosticLine(QStringLiteral("Recovery file could not be written: ") + infoPath(tabId));
        return false;
    }
    return true;
}

void RecoveryStore::remove(const tessaro::Uuid& tabId)
{
    QFile::remove(infoPath(tabId));
    QFile::remove(levelsPath(tabId));
}

std::optional<RecoveryEntry> RecoveryStore::entry(const tessaro::Uuid& tabId) const
{
    return readEntry(infoPath(tabId));
}

void RecoveryStore::closeCleanly()
{
    m_sessionLock->unlock();
    QDir(m_sessionFolder).removeRecursively();
}

std::vector<RecoveryEntry> RecoveryStore::orphans()
{
    const QStringList folders = QDir(m_root).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& name : folders) {
        const QString folder = m_root + QLatin1Char('/') + name;
        if (folder == m_sessionFolder)
            continue;
        if (std::any_of(m_claims.begin(), m_claims.end(), [&](const Claim& c) { return c.folder == folder; }))
            continue;
        // A living run holds its lock; the lock of a run that died is taken over.
        auto lock = std::make_unique<QLockFile>(folder + QLatin1Char('/') + lockName);
        lock->setStaleLockTime(0);
        if (lock->tryLock(0))
            m_claims.push_back({folder, std::move(lock)});
    }

    std::vector<RecoveryEntry> found;
    for (std::size_t i = m_claims.size(); i-- > 0;) {
        std::vector<RecoveryEntry> entries = entriesIn(m_claims[i].folder);
        if (entries.empty()) {
            removeFolderIfEmpty(m_claims[i].folder);
            continue;
        }
        std::move(entries.begin(), entries.end(), std::back_inserter(found));
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const RecoveryEntry& a, const RecoveryEntry& b) { return a.savedAt < b.savedAt; });
    return found;
}

std::optional<std::vector<tessaro::Level>> RecoveryStore::readLevels(const RecoveryEntry& entry)
{
    // As written: the ids and everything else stay as they were in the tab.
    tessaro::LevelsReadResult read = tessaro::readLevels(entry.levelsFile.toStdString());
    if (!read.ok)
        return std::nullopt;
    return std::move(read.levels);
}

void RecoveryStore::discard(const RecoveryEntry& entry)
{
    QFile::remove(entry.infoFile);
    QFile::remove(entry.levelsFile);
    removeFolderIfEmpty(QFileInfo(entry.infoFile).absolutePath());
}

void RecoveryStore::removeFolderIfEmpty(const QString& folder)
{
    const auto claimed =
        std::find_if(m_claims.begin(), m_claims.end(), [&](const Claim& c) { return c.folder == folder; });
    if (claimed == m_claims.end() || !entriesIn(folder).empty())
        return;
    claimed->lock->unlock();
    QDir(folder).removeRecursively();
    m_claims.erase(claimed);
}

} // namespace stagewright
