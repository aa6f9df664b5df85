#include "NavigationToolbar.h"

#include "Commands.h"
#include "LevelPopover.h"
#include "LevelPropertiesView.h"
#include "NodeListPopover.h"
#include "SceneSizeSelectionView.h"
#include "ShellIcons.h"
#include "StatisticsView.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <tessaro/model/ValueText.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace stagewright {

NavigationToolbar::NavigationToolbar(SceneSettings& settings, Commands& commands, QWidget* parent)
    : QToolBar(tr("Level"), parent),
      m_settings(settings),
      m_commands(commands)
{
    setObjectName(QStringLiteral("navigationToolbar"));
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize(QSize(18, 18));

    m_popover = new LevelPopover(settings, commands, this);
    m_scenes = addButton(QStringLiteral("scenesButton"), tr("Scenes"), shellIcon(Symbol::scenes));
    m_scenes->setToolTip(tr("The scenes of this level"));
    connect(m_scenes, &QToolButton::clicked, this, [this] { m_popover->popup(m_scenes); });

    m_sceneSize = addButton(QStringLiteral("sceneSizeButton"), tr("Scene Size: "), shellIcon(Symbol::sceneSize));
    m_sceneSize->setToolTip(tr("Scene size"));
    m_sceneSize->setAccessibleName(tr("Scene size"));
    connect(m_sceneSize, &QToolButton::clicked, this, [this] {
        if (const std::shared_ptr<ProjectTab> tab = m_commands.frontTab())
            SceneSizeSelectionView::present(*tab, window());
    });
    m_properties = addButton(QStringLiteral("propertiesButton"), tr("Properties"), shellIcon(Symbol::properties));
    connect(m_properties, &QToolButton::clicked, this, [this] {
        if (const std::shared_ptr<ProjectTab> tab = m_commands.frontTab())
            LevelPropertiesView::present(*tab, m_settings, window());
    });
    m_library = addButton(QStringLiteral("libraryButton"), tr("Library"), shellIcon(Symbol::library));
    m_library->setToolTip(tr("Object Library"));
    connect(m_library, &QToolButton::clicked, &m_commands, &Commands::showLibrary);
    m_nodeList = addButton(QStringLiteral("nodeListButton"), tr("Node List"), shellIcon(Symbol::nodeList));
    m_nodeListPopover = new NodeListPopover(settings, commands, this);
    connect(m_nodeList, &QToolButton::clicked, this, [this] { m_nodeListPopover->popup(m_nodeList); });

    addSeparator();
    auto* scalingBox = new QWidget(this);
    auto* scalingLayout = new QHBoxLayout(scalingBox);
    scalingLayout->setContentsMargins(6, 0, 6, 0);
    auto* scalingLabel = new QLabel(tr("Scaling"), scalingBox);
    m_scaling = new QComboBox(scalingBox);
    m_scaling->setObjectName(QStringLiteral("scalingPicker"));
    for (const ZoomStep& step : zoomSteps())
        m_scaling->addItem(step.title, step.tag);
    scalingLabel->setBuddy(m_scaling);
    scalingLayout->addWidget(scalingLabel);
    scalingLayout->addWidget(m_scaling);
    addWidget(scalingBox);
    connect(m_scaling, &QComboBox::activated, this,
            [this](int index) { m_commands.setZoom(m_scaling->itemData(index).toString()); });

    m_hideBackground = new QCheckBox(tr("Hide Background?"), this);
    m_hideBackground->setObjectName(QStringLiteral("hideBackgroundSwitch"));
    m_hideBackground->setToolTip(hideBackgroundHelp());
    addWidget(m_hideBackground);
    connect(m_hideBackground, &QCheckBox::clicked, &m_commands, &Commands::setBackgroundHidden);

    addSeparator();
    m_statistics = addButton(QStringLiteral("statisticsButton"), tr("Statistics"), shellIcon(Symbol::statistics));
    connect(m_statistics, &QToolButton::clicked, this, [this] {
        if (const std::shared_ptr<ProjectTab> tab = m_commands.frontTab())
            StatisticsView::present(*tab, window());
    });

    connect(&m_commands, &Commands::stateChanged, this, &NavigationToolbar::refresh);
    refresh();
}

QToolButton* NavigationToolbar::addButton(const QString& objectName, const QString& title, const QIcon& icon)
{
    auto* button = new QToolButton(this);
    button->setObjectName(objectName);
    button->setText(title);
    button->setIcon(icon);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    addWidget(button);
    return button;
}

QString NavigationToolbar::hideBackgroundHelp()
{
    return tr("When the background zOrder is set above other elements, the ability to select those elements is "
              "limited. Hiding the background allows you to select elements behind it.");
}

void NavigationToolbar::setLibraryOpen(bool open)
{
    m_library->setIcon(shellIcon(open ? Symbol::libraryOpen : Symbol::library));
}

void NavigationToolbar::refresh()
{
    const std::shared_ptr<ProjectTab> tab = m_commands.frontTab();
    const bool hasTab = tab != nullptr;
    m_scenes->setEnabled(hasTab);
    m_nodeList->setEnabled(hasTab);
    m_scaling->setEnabled(hasTab);
    m_hideBackground->setEnabled(hasTab);
    m_sceneSize->setEnabled(hasTab);
    m_properties->setEnabled(hasTab);
    m_statistics->setEnabled(hasTab);
    if (!tab)
        return;
    const tessaro::SizeValue size = tab->selectedSceneSize();
    // The size as the level file writes it: "Scene Size: {874.0,402.0}".
    m_sceneSize->setText(tr("Scene Size: ") + QString::fromStdString(tessaro::textFromPair(size.width, size.height)));
    const int index = m_scaling->findData(tab->scaledValue());
    m_scaling->setCurrentIndex(index >= 0 ? index : m_scaling->findData(QStringLiteral("1.00")));
    m_hideBackground->setChecked(tab->backgroundElementsHidden());
}

} // namespace stagewright
