// The workspace's three catalogues as a document of their own. A template is
// shared by every project of the workspace, so its edits are steps of the
// catalogues' history, never of a project's: undoing in a level leaves the
// catalogues alone. Each step writes the catalogues it changed at once, into
// the workspace they were read from. Reading catalogues again (another
// workspace, or the same one changed by another program) starts the history
// afresh, so no step of one workspace can reach another's files.
#pragma once

#include "SelectionModels.h"
#include "WorkspaceCatalogues.h"

#include <tessaro/model/Enumerations.h>

#include <QObject>
#include <QString>
#include <QUndoStack>

namespace stagewright {

class PermissionManager;

class CatalogueDocument : public QObject {
    Q_OBJECT
public:
    explicit CatalogueDocument(PermissionManager& gate, QObject* parent = nullptr);
    ~CatalogueDocument() override;

    /// Reads the catalogues of `workspace` and empties the history.
    void load(const QString& workspace);
    /// The workspace the catalogues were read from; empty before the first load.
    const QString& workspace() const { return m_files.workspace(); }

    /// Replaces the template of the same catalogue and element name with
    /// `after` as one step named `text`, which writes the catalogue. False
    /// when there is no such template; a replacement that changes nothing
    /// is no step.
    bool replaceRecord(const DefaultViewRecord& after, const QString& text);

    /// The catalogues' history, one step per edit of a template.
    QUndoStack& history() { return m_history; }

    /// Whether any catalogue has edits that are not written yet (a write failed).
    bool hasUnsavedChanges() const { return m_files.hasUnsavedChanges(); }
    /// Whether another program changed the catalogues' files.
    bool differsOnDisk() const { return m_files.differsOnDisk(); }
    /// Writes each catalogue that changed; true when every write needed succeeded.
    bool saveChanged() { return m_files.saveChanged(); }

signals:
    /// A step, its undo or its redo changed a template.
    void recordChanged(tessaro::configType type, const QString& elementName);

private:
    WorkspaceCatalogues m_files;
    QUndoStack m_history;
};

/// Marks a window as one that edits the catalogues: while it is the active
/// window, the application's Undo and Redo take the catalogues' steps.
void markCatalogueEditor(QObject& window);
bool editsCatalogues(const QObject* window);

} // namespace stagewright
