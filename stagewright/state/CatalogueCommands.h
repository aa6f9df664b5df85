// Finding the templates of the workspace's catalogues, and the step of the
// catalogues' history that replaces one of them.
#pragma once

#include "SelectionModels.h"

#include <tessaro/model/Enumerations.h>

#include <QString>
#include <QUndoCommand>

#include <optional>
#include <string>

namespace stagewright {

class CatalogueDocument;

/// The catalogue that holds the templates of elements of `kind`: obstacles,
/// characters, or the generic objects for every other kind.
tessaro::configType catalogueTypeFor(tessaro::sceneObjectType kind);
/// The catalogue a template belongs to, by its kind of record.
tessaro::configType catalogueTypeOf(const DefaultViewRecord& record);
/// The element name a template is found by.
std::string catalogueRecordName(const DefaultViewRecord& record);
/// A copy of the template named `elementName` in the catalogue of `type`,
/// or in the catalogue of elements of `kind`.
std::optional<DefaultViewRecord> findCatalogueRecord(tessaro::configType type, const std::string& elementName);
std::optional<DefaultViewRecord> findCatalogueRecord(tessaro::sceneObjectType kind, const std::string& elementName);

/// One template replaced by an edited copy. Its target is the catalogue and
/// the element name, by which it finds the template each time; a template
/// that is no longer there is left alone. A step made in another workspace
/// than the document's does nothing, so it never writes into that
/// workspace's files.
class CatalogueRecordCommand : public QUndoCommand {
public:
    CatalogueRecordCommand(CatalogueDocument& document, DefaultViewRecord before, DefaultViewRecord after,
                           const QString& text);
    void redo() override;
    void undo() override;

private:
    void put(const DefaultViewRecord& record);

    CatalogueDocument& m_document;
    QString m_workspace;
    std::string m_elementName;
    DefaultViewRecord m_before;
    DefaultViewRecord m_after;
};

} // namespace stagewright
