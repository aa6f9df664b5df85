// The three element catalogues belong to the workspace they were read from.
// They are read again whenever another workspace becomes current, and a save
// writes a catalogue back into that same workspace only, so one workspace's
// templates can never end up in another's files. Each catalogue is compared
// with its state as last read or written, so a save writes only the files
// whose records changed.
#pragma once

#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/Enumerations.h>

#include <QString>

#include <vector>

namespace stagewright {

class PermissionManager;

class WorkspaceCatalogues {
public:
    explicit WorkspaceCatalogues(PermissionManager& gate);

    /// Reads the catalogues of `workspace` into the library's catalogues,
    /// replacing those of the workspace before.
    void load(const QString& workspace);
    /// The workspace the catalogues were read from; empty before the first load.
    const QString& workspace() const { return m_workspace; }
    /// Writes one catalogue (objects, characters or obstacles) into the
    /// workspace it was read from, atomically. False, with a diagnostic line,
    /// when nothing was loaded or the file cannot be written.
    bool save(tessaro::configType type);
    /// Whether a catalogue differs from what was last read or written.
    bool isChanged(tessaro::configType type) const;
    /// Writes each of the three catalogues that changed; true when every
    /// write that was needed succeeded.
    bool saveChanged();
    /// Whether any catalogue has edits that are not written yet.
    bool hasUnsavedChanges() const;
    /// Whether the workspace's files now hold other catalogues than were
    /// last read or written: another program changed them.
    bool differsOnDisk() const;

private:
    void remember(tessaro::configType type);

    PermissionManager& m_gate;
    QString m_workspace;
    // The catalogues as they are in the workspace's files.
    std::vector<tessaro::GenericObject> m_storedObjects;
    std::vector<tessaro::Character> m_storedCharacters;
    std::vector<tessaro::Obstacle> m_storedObstacles;
};

} // namespace stagewright
