// Recovery files: copies of projects with unsaved changes, kept in the
// application's data folder so that a crash loses no work.
//
// Each run writes into a folder of its own, held by a lock file for as long
// as the run lives. A folder whose lock no living run holds was left by a run
// that ended without closing cleanly; its projects are offered at the next
// start. A project is two files named by its tab: the levels exactly as a
// save writes them (".plist") and what is needed to restore the tab (".json",
// written last, so a listed project always has its levels).
#pragma once

#include <tessaro/model/LevelRecords.h>
#include <tessaro/model/Uuid.h>

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QLockFile;

namespace stagewright {

/// A project's state at one moment, as it goes into a recovery file.
struct RecoverySnapshot {
    QString name;
    /// The file the project belongs to; none for a project never saved.
    std::optional<QString> originalPath;
    /// The original file could not be read when it was opened, so a plain
    /// save does not write over it.
    bool originalUnreadable = false;
    /// The level that was shown.
    std::optional<tessaro::Uuid> shownLevel;
    QDateTime savedAt;
    std::vector<tessaro::Level> levels;
};

/// A project found in the recovery folder.
struct RecoveryEntry {
    QString name;
    std::optional<QString> originalPath;
    bool originalUnreadable = false;
    std::optional<tessaro::Uuid> shownLevel;
    QDateTime savedAt;
    /// The levels file and the description file.
    QString levelsFile;
    QString infoFile;
};

class RecoveryStore {
public:
    /// Starts this run's folder below `root`.
    explicit RecoveryStore(const QString& root = defaultRoot());
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;

    /// "recovery" in the application's data folder.
    static QString defaultRoot();
    const QString& root() const { return m_root; }
    /// This run's folder.
    const QString& sessionFolder() const { return m_sessionFolder; }

    // ---- This run's projects. Safe to call from one worker thread while the
    // main thread reads what other runs left.

    /// Writes the project of tab `tabId`, replacing its earlier copy; each
    /// file is replaced in one step. False when a file could not be written.
    bool write(const tessaro::Uuid& tabId, const RecoverySnapshot& snapshot);
    /// Removes the copy of tab `tabId`.
    void remove(const tessaro::Uuid& tabId);
    /// The project of tab `tabId` as it was last written, if any.
    std::optional<RecoveryEntry> entry(const tessaro::Uuid& tabId) const;
    /// The end of a clean run: removes this run's folder with all its copies.
    void closeCleanly();

    // ---- What other runs left ----------------------------------------------------

    /// The projects of runs that ended without closing cleanly, oldest
    /// first. Their folders stay claimed by this run until it ends, so that
    /// another run started meanwhile does not offer them as well. Folders
    /// that hold nothing are removed.
    std::vector<RecoveryEntry> orphans();
    /// The levels of a found project; none when its file cannot be read.
    static std::optional<std::vector<tessaro::Level>> readLevels(const RecoveryEntry& entry);
    /// Removes a found project, and its run's folder once that is empty.
    void discard(const RecoveryEntry& entry);

private:
    QString levelsPath(const tessaro::Uuid& tabId) const;
    QString infoPath(const tessaro::Uuid& tabId) const;
    void removeFolderIfEmpty(const QString& folder);

    QString m_root;
    QString m_sessionFolder;
    std::unique_ptr<QLockFile> m_sessionLock;
    struct Claim {
        QString folder;
        std::unique_ptr<QLockFile> lock;
    };
    std::vector<Claim> m_claims;
};

} // namespace stagewright
