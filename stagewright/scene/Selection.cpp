// Selecting an element: publishing it as the selection, and choosing it from
// the element lists. Clicks reach here through the canvas's tools.
#include "SceneEditor.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <QDateTime>

#include <cmath>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

void trace(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

QString now()
{
    return QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
}

} // namespace

void SceneEditor::selectNode(const ElementNodePtr& node)
{
    // An element kept only because its catalogue entry is missing is saved
    // as read and never edited.
    if (!node || node->keptOnly)
        return;
    trace(now() + QStringLiteral(": Start"));
    publishSelection(*node);
    trace(now() + QStringLiteral(": END"));
}

void SceneEditor::selectNodeNamed(const QString& text)
{
    if (m_tab && m_tab->elementPhase() == SelectionPhase::BeingSelected)
        return;
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() != 2)
        return;
    const std::optional<sceneObjectType> kind = tessaro::caseFromText<sceneObjectType>(parts[0].toStdString());

    ElementNodePtr node;
    if (kind != sceneObjectType::background) {
        node = elementNamed(parts[1]);
    } else {
        const std::optional<tessaro::Uuid> id = tessaro::Uuid::fromText(parts[1].toStdString());
        if (!id)
            return;
        node = backgroundNode(*id);
    }
    if (!node || node->keptOnly)
        return;

    if (m_tab)
        m_tab->setSelectedObject({});
    if (node->parent() && node->parent()->parent() == this) {
        deselect();
        clearGlow();
    }
    if (!intersectsNode(*node))
        moveScene(PublishedElementList::scenePosition,
                  tessaro::PointValue{tessaro::roundedValue(node->position().x(), 1),
                                      tessaro::roundedValue(node->position().y(), 1)});
    node->selectFromList();
}

} // namespace stagewright
