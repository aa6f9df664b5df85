#include "InspectorView.h"

#include "AnimationPane.h"
#include "BackgroundPane.h"
#include "DevicePane.h"
#include "InspectorHead.h"
#include "PrimaryPane.h"
#include "SoundEditors.h"

#include <stagewright/state/SceneSettings.h>

#include <QLabel>
#include <QScrollArea>
#include <QStackedLayout>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace stagewright {

using K = tessaro::sceneObjectType;

namespace {

/// A pane in its scroll area. The pane takes the inspector's width, never
/// more: its rows shrink and long values elide instead of scrolling sideways.
QWidget* scrolled(QWidget* pane)
{
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(pane);
    return scroll;
}

} // namespace

InspectorView::InspectorView(SceneSettings& settings, QWidget* parent) : QWidget(parent), m_settings(settings)
{
    setObjectName(QStringLiteral("inspectorView"));
    m_pages = new QStackedLayout(this);

    m_emptyLabel = new QLabel(noSelectionText(), this);
    m_emptyLabel->setObjectName(QStringLiteral("inspectorEmptyText"));
    m_emptyLabel->setAlignment(Qt::AlignCenter);
    m_emptyLabel->setWordWrap(true);
    m_pages->addWidget(m_emptyLabel);

    m_selectionPage = new QWidget(this);
    m_selectionPage->setObjectName(QStringLiteral("inspectorSelection"));
    auto* column = new QVBoxLayout(m_selectionPage);
    column->setContentsMargins(0, 0, 0, 0);
    m_pages->addWidget(m_selectionPage);

    connect(&m_settings, &SceneSettings::selectedProjectTabChanged, this, &InspectorView::watchFrontTab);
    connect(&m_settings, &SceneSettings::imageListChanged, this, [this] { m_laidFor.clear(), modelsChanged(); });
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

QStringList InspectorView::tabTitles() const
{
    QStringList titles;
    for (int i = 0; m_tabs && i < m_tabs->count(); ++i)
        titles << m_tabs->tabText(i);
    return titles;
}

void InspectorView::watchFrontTab()
{
    if (m_tab)
        disconnect(m_tab, nullptr, this, nullptr);
    m_tab = m_settings.selectedProjectTab().get();
    m_laidFor.clear();
    if (m_tab) {
        for (auto signal : {&ProjectTab::elementPhaseChanged, &ProjectTab::selectedObjectChanged,
                            &ProjectTab::selectedDeviceObjectChanged, &ProjectTab::selectedAnimationObjectChanged})
            connect(m_tab, signal, this, &InspectorView::modelsChanged);
    }
    modelsChanged();
}

void InspectorView::modelsChanged()
{
    const bool selected = m_tab && m_tab->elementPhase() == SelectionPhase::Selected;
    m_pages->setCurrentWidget(selected ? m_selectionPage : static_cast<QWidget*>(m_emptyLabel));
    if (!selected)
        return;
    const QString element = QString::fromStdString(m_tab->selectedObject().name);
    if (element == m_laidFor) {
        for (RowPane* pane : m_panes)
            pane->refresh();
        if (m_head)
            m_head->refresh();
        return;
    }
    // Another element: the panes are laid anew once the control that caused
    // the change has returned, so no widget is deleted under its own signal.
    if (!m_layQueued) {
        m_layQueued = true;
        QTimer::singleShot(0, this, [this] {
            if (m_layQueued) // not laid meanwhile
                layPanes();
        });
    }
}

void InspectorView::layNow()
{
    if (m_layQueued)
        layPanes();
}

void InspectorView::layPanes()
{
    m_layQueued = false;
    if (!m_tab || m_tab->elementPhase() != SelectionPhase::Selected)
        return;
    const QString keptTab = m_tabs && m_tabs->currentIndex() >= 0 ? m_tabs->tabText(m_tabs->currentIndex()) : QString();
    delete m_content;
    m_panes.clear();

    m_laidFor = QString::fromStdString(m_tab->selectedObject().name);
    const K kind = m_tab->selectedObject().type;
    const RowBinding binding{m_tab, &m_settings, ModelType::Primary, false};

    m_content = new QWidget;
    auto* column = new QVBoxLayout(m_content);
    column->setContentsMargins(0, 0, 0, 0);
    m_head = new InspectorHead(binding);
    column->addWidget(m_head);
    m_tabs = new QTabWidget;
    m_tabs->setObjectName(QStringLiteral("inspectorTabs"));
    column->addWidget(m_tabs, 1);
    const auto addPane = [&](RowPane* pane, const QString& title) {
        m_panes.push_back(pane);
        m_tabs->addTab(scrolled(pane), title);
    };
    if (kind != K::background)
        addPane(new PrimaryPropertyListView(binding), tr("Primary"));
    else
        addPane(new BackgroundPropertyListView(binding), tr("Background"));
    if (kind != K::background)
        addPane(new DeviceSpecificPropertyView(binding), tr("Device"));
    if (kind == K::character || kind == K::obstacles)
        addPane(new AnimationPropertyView(binding), tr("Animation"));
    if (kind != K::ground)
        m_tabs->addTab(scrolled(new GameSoundObjectEditorView(m_settings)), tr("Sounds"));
    for (int i = 0; i < m_tabs->count(); ++i)
        if (m_tabs->tabText(i) == keptTab)
            m_tabs->setCurrentIndex(i);
    m_selectionPage->layout()->addWidget(m_content);
}

} // namespace stagewright
