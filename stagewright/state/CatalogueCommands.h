// The step of a project's history that changes a template of the workspace's
// catalogues. A catalogue is shared by every project of the workspace and is
// kept on disk as it is edited: the step writes the catalogues that changed
// at once, into the workspace they were read from, and so does its undo.
#pragma once

#include "SelectionModels.h"

#include <tessaro/model/Enumerations.h>

#include <QString>
#include <QUndoCommand>

#include <optional>
#include <string>

namespace stagewright {

class WorkspaceCatalogues;

/// The catalogue that holds the templates of elements of `kind`: obstacles,
/// characters, or the generic objects for every other kind.
tessaro::configType catalogueTypeFor(tessaro::sceneObjectType kind);
/// A copy of the template named `elementName` in the catalogue of `kind`.
std::optional<defaultViewRecord> findCatalogueRecord(tessaro::sceneObjectType kind, const std::string& elementName);

/// One template replaced by an edited copy, found by its element name. A
/// template that is no longer there is left alone; after a change of
/// workspace the step does nothing, so it never writes into another
/// workspace's files.
class CatalogueRecordCommand : public QUndoCommand {
public:
    CatalogueRecordCommand(WorkspaceCatalogues& catalogues, defaultViewRecord before, defaultViewRecord after,
                           const QString& text);
    void redo() override;
    void undo() override;

private:
    void put(const defaultViewRecord& record);

    WorkspaceCatalogues& m_catalogues;
    QString m_workspace;
    defaultViewRecord m_before;
    defaultViewRecord m_after;
};

} // namespace stagewright
