#include "InspectorView.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QLabel>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace stagewright {

InspectorView::InspectorView(SceneSettings& settings, QWidget* parent) : QWidget(parent), m_settings(settings)
{
    setObjectName(QStringLiteral("inspectorView"));
    m_pages = new QStackedLayout(this);

    m_emptyLabel = new QLabel(noSelectionText(), this);
    m_emptyLabel->setObjectName(QStringLiteral("inspectorEmptyText"));
    m_emptyLabel->setAlignment(Qt::AlignCenter);
    m_emptyLabel->setWordWrap(true);
    m_pages->addWidget(m_emptyLabel);

    // The panes of a selection stand here; the frame shows them in a column.
    m_selectionPage = new QWidget(this);
    m_selectionPage->setObjectName(QStringLiteral("inspectorSelection"));
    new QVBoxLayout(m_selectionPage);
    m_pages->addWidget(m_selectionPage);

    connect(&m_settings, &SceneSettings::selectedProjectTabChanged, this, &InspectorView::watchFrontTab);
    watchFrontTab();
}

QString InspectorView::noSelectionText()
{
    return tr("No object is currently selected.");
}

bool InspectorView::showsSelection() const
{
    return m_pages->currentWidget() == m_selectionPage;
}

void InspectorView::watchFrontTab()
{
    if (m_tab)
        disconnect(m_tab, nullptr, this, nullptr);
    m_tab = m_settings.selectedProjectTab().get();
    if (m_tab)
        connect(m_tab, &projectTab::elementPhaseChanged, this, &InspectorView::refresh);
    refresh();
}

void InspectorView::refresh()
{
    const bool selected = m_tab && m_tab->elementPhase() == selectionPhase::Selected;
    m_pages->setCurrentWidget(selected ? m_selectionPage : static_cast<QWidget*>(m_emptyLabel));
}

} // namespace stagewright
