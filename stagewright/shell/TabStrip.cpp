#include "TabStrip.h"

#include "Commands.h"
#include "ShellIcons.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

namespace stagewright {

namespace {
constexpr int stripHeight = 30;
}

// ---- One tab -------------------------------------------------------------------

TabButton::TabButton(ProjectTab& tab, Commands& commands, QWidget* parent)
    : QFrame(parent),
      m_tab(&tab),
      m_id(tab.id()),
      m_commands(commands)
{
    setObjectName(QStringLiteral("tabButton"));
    setCursor(Qt::PointingHandCursor);
    setFixedHeight(stripHeight - 4);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 0, 4, 0);
    layout->setSpacing(4);
    m_title = new QLabel(this);
    m_dirtyMark = new QLabel(QStringLiteral("\u25CF"), this);
    m_dirtyMark->setObjectName(QStringLiteral("dirtyMark"));
    m_dirtyMark->setToolTip(tr("Unsaved changes"));
    m_close = new QToolButton(this);
    m_close->setObjectName(QStringLiteral("tabCloseButton"));
    m_close->setIcon(shellIcon(Symbol::xmark));
    m_close->setIconSize(QSize(12, 12));
    m_close->setAutoRaise(true);
    m_close->setToolTip(tr("Close"));
    layout->addWidget(m_title);
    layout->addWidget(m_dirtyMark);
    layout->addWidget(m_close);

    connect(m_close, &QToolButton::clicked, this, [this] { m_commands.closeTab(m_id); });
    for (auto signal : {&ProjectTab::nameChanged, &ProjectTab::filePathChanged, &ProjectTab::isProjectDirtyChanged})
        connect(&tab, signal, this, &TabButton::refresh);
    refresh();
}

QString TabButton::helpText(const ProjectTab& tab)
{
    return tab.filePath() ? *tab.filePath() : tr("Not saved");
}

void TabButton::refresh()
{
    if (!m_tab)
        return;
    m_title->setText(m_tab->name());
    setToolTip(helpText(*m_tab));
    m_dirtyMark->setVisible(m_tab->isProjectDirty());
}

void TabButton::setSelected(bool selected)
{
    if (selected == m_selected)
        return;
    m_selected = selected;
    update();
}

void TabButton::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        m_commands.selectTab(m_id);
    QFrame::mouseReleaseEvent(event);
}

void TabButton::paintEvent(QPaintEvent* event)
{
    if (m_selected) {
        // Gray, stronger in the dark appearance.
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor gray(Qt::gray);
        const bool dark = palette().color(QPalette::Window).lightness() < 128;
        gray.setAlphaF(dark ? 0.5f : 0.3f);
        painter.setPen(Qt::NoPen);
        painter.setBrush(gray);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    }
    QFrame::paintEvent(event);
}

// ---- The strip -------------------------------------------------------------------

TabStrip::TabStrip(SceneSettings& settings, Commands& commands, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_commands(commands)
{
    setObjectName(QStringLiteral("tabStrip"));
    setFixedHeight(stripHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(2);

    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setWidgetResizable(true);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_row = new QWidget(m_scroll);
    m_row->setAutoFillBackground(false);
    m_rowLayout = new QHBoxLayout(m_row);
    m_rowLayout->setContentsMargins(0, 2, 0, 2);
    m_rowLayout->setSpacing(2);
    m_rowLayout->addStretch(1);
    m_scroll->setWidget(m_row);
    layout->addWidget(m_scroll, 1);

    m_add = new QToolButton(this);
    m_add->setObjectName(QStringLiteral("addLevelButton"));
    m_add->setIcon(shellIcon(Symbol::plus));
    m_add->setAutoRaise(true);
    m_add->setToolTip(tr("Add new level"));
    m_inspector = new QToolButton(this);
    m_inspector->setObjectName(QStringLiteral("toggleInspectorButton"));
    m_inspector->setIcon(shellIcon(Symbol::sidebarRight));
    m_inspector->setAutoRaise(true);
    m_inspector->setCheckable(true);
    m_inspector->setToolTip(tr("Toggle Object Properties"));
    layout->addWidget(m_add);
    layout->addWidget(m_inspector);

    connect(m_add, &QToolButton::clicked, &m_commands, &Commands::newLevel);
    connect(m_inspector, &QToolButton::clicked, &m_commands, &Commands::toggleInspector);
    connect(&m_settings, &SceneSettings::isInspectorPresentedChanged, this,
            [this] { m_inspector->setChecked(m_settings.isInspectorPresented()); });
    connect(&m_settings, &SceneSettings::projectTabsChanged, this, &TabStrip::rebuild);
    connect(&m_settings, &SceneSettings::tabSelectedChanged, this, &TabStrip::refreshSelection);
    connect(&m_settings, &SceneSettings::selectedProjectTabChanged, this, &TabStrip::refreshSelection);
    rebuild();
}

TabButton* TabStrip::buttonFor(const tessaro::Uuid& tabId) const
{
    for (TabButton* button : m_buttons)
        if (button->tabId() == tabId)
            return button;
    return nullptr;
}

void TabStrip::rebuild()
{
    // Buttons of tabs that stay are kept; the order follows the list.
    std::vector<TabButton*> next;
    for (const auto& tab : m_settings.projectTabs()) {
        TabButton* button = buttonFor(tab->id());
        if (!button)
            button = new TabButton(*tab, m_commands, m_row);
        next.push_back(button);
    }
    for (TabButton* button : m_buttons) {
        if (std::find(next.begin(), next.end(), button) == next.end()) {
            m_rowLayout->removeWidget(button);
            button->hide();
            button->deleteLater();
        }
    }
    for (TabButton* button : next)
        m_rowLayout->removeWidget(button);
    for (std::size_t i = 0; i < next.size(); ++i)
        m_rowLayout->insertWidget(int(i), next[i]);
    m_buttons = std::move(next);
    for (TabButton* button : m_buttons)
        button->show();
    refreshSelection();
}

void TabStrip::refreshSelection()
{
    for (TabButton* button : m_buttons) {
        const bool selected = button->tabId() == m_settings.tabSelected();
        button->setSelected(selected);
        if (selected)
            m_scroll->ensureWidgetVisible(button, 0, 0);
    }
}

void TabStrip::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window).darker(m_settings.isDark() ? 115 : 104));
    QWidget::paintEvent(event);
}

} // namespace stagewright
