#include "CatalogueDocument.h"

#include "CatalogueCommands.h"

#include <QVariant>

namespace stagewright {

namespace {

constexpr char catalogueEditorProperty[] = "editsCatalogues";

} // namespace

CatalogueDocument::CatalogueDocument(PermissionManager& gate, QObject* parent) : QObject(parent), m_files(gate) {}

CatalogueDocument::~CatalogueDocument() = default;

void CatalogueDocument::load(const QString& workspace)
{
    // The steps so far were made on the catalogues as they were.
    m_history.clear();
    m_files.load(workspace);
}

bool CatalogueDocument::replaceRecord(const DefaultViewRecord& after, const QString& text)
{
    const std::optional<DefaultViewRecord> before =
        findCatalogueRecord(catalogueTypeOf(after), catalogueRecordName(after));
    if (!before)
        return false;
    if (*before != after)
        m_history.push(new CatalogueRecordCommand(*this, *before, after, text));
    return true;
}

void markCatalogueEditor(QObject& window)
{
    window.setProperty(catalogueEditorProperty, true);
}

bool editsCatalogues(const QObject* window)
{
    return window && window->property(catalogueEditorProperty).toBool();
}

} // namespace stagewright
