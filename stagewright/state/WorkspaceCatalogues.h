// The three element catalogues belong to the workspace they were read from.
// They are read again whenever another workspace becomes current, and a save
// writes a catalogue back into that same workspace only, so one workspace's
// templates can never end up in another's files.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <QString>

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

private:
    PermissionManager& m_gate;
    QString m_workspace;
};

} // namespace stagewright
