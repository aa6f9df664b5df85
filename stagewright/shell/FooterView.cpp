#include "FooterView.h"

#include "Commands.h"
#include "ShellIcons.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

namespace stagewright {

FooterView::FooterView(SceneSettings& settings, Commands& commands, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_commands(commands)
{
    setObjectName(QStringLiteral("footerView"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 2, 8, 2);
    layout->setSpacing(10);
    const auto link = [this](const QString& name, Symbol symbol) {
        auto* button = new QToolButton(this);
        button->setObjectName(name);
        button->setIcon(shellIcon(symbol));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        button->setCursor(Qt::PointingHandCursor);
        QFont font = button->font();
        font.setPixelSize(14);
        button->setFont(font);
        return button;
    };
    m_level = link(QStringLiteral("levelLink"), Symbol::level);
    m_level->setToolTip(tr("Open the level's folder"));
    m_workspace = link(QStringLiteral("workspaceLink"), Symbol::workspace);
    m_workspace->setToolTip(tr("Open the workspace folder"));
    layout->addWidget(m_level);
    layout->addWidget(m_workspace);
    layout->addStretch(1);

    connect(m_level, &QToolButton::clicked, &m_commands, &Commands::openLevelFolder);
    connect(m_workspace, &QToolButton::clicked, &m_commands, &Commands::openWorkspaceFolder);
    connect(&m_commands, &Commands::stateChanged, this, &FooterView::refresh);
    refresh();
}

void FooterView::addStatusWidget(QWidget* widget)
{
    widget->setParent(this);
    layout()->addWidget(widget);
}

void FooterView::refresh()
{
    const std::shared_ptr<ProjectTab> tab = m_commands.frontTab();
    m_level->setText(tr("Level: ") + (tab ? tab->name() : QString()));
    m_workspace->setText(tr("Workspace: ") + workingSpacePath());
}

void FooterView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window).darker(m_settings.isDark() ? 115 : 104));
    QWidget::paintEvent(event);
}

} // namespace stagewright
