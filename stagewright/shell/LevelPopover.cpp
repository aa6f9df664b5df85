#include "LevelPopover.h"

#include "Commands.h"
#include "ShellIcons.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

namespace stagewright {

LevelPopover::LevelPopover(SceneSettings& settings, Commands& commands, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      m_settings(settings),
      m_commands(commands)
{
    setObjectName(QStringLiteral("levelPopover"));
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);

    m_add = new QPushButton(shellIcon(Symbol::sceneSize), tr("Add a Scene"), this);
    m_add->setObjectName(QStringLiteral("addSceneButton"));
    m_add->setFixedWidth(390);
    layout->addWidget(m_add);
    connect(m_add, &QPushButton::clicked, &m_commands, &Commands::addScene);

    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list = new QWidget(scroll);
    m_listLayout = new QVBoxLayout(m_list);
    m_listLayout->setContentsMargins(0, 0, 0, 0);
    m_listLayout->setSpacing(2);
    scroll->setWidget(m_list);
    scroll->setFixedWidth(400);
    layout->addWidget(scroll);

    connect(&m_settings, &SceneSettings::selectedProjectTabChanged, this, &LevelPopover::watchFrontTab);
    watchFrontTab();
}

void LevelPopover::watchFrontTab()
{
    if (m_tab)
        disconnect(m_tab, nullptr, this, nullptr);
    m_tab = m_settings.selectedProjectTab().get();
    if (m_tab) {
        connect(m_tab, &ProjectTab::levelListDropdownValuesChanged, this, &LevelPopover::rebuild);
        connect(m_tab, &ProjectTab::levelSelectedChanged, this, &LevelPopover::rebuild);
    }
    rebuild();
}

void LevelPopover::rebuild()
{
    // A row's own button may be what changed the list: rows go later.
    for (const Row& row : m_rows) {
        QWidget* line = row.name->parentWidget();
        m_listLayout->removeWidget(line);
        line->hide();
        line->deleteLater();
    }
    m_rows.clear();
    if (!m_tab)
        return;
    const std::vector<LevelPickerModel> entries = m_tab->levelListDropdownValues();
    for (const LevelPickerModel& entry : entries) {
        auto* line = new QWidget(m_list);
        line->setFixedWidth(380);
        auto* layout = new QHBoxLayout(line);
        layout->setContentsMargins(2, 0, 2, 0);
        layout->setSpacing(4);
        Row row;
        row.tag = entry.tag;
        row.selectedMark = new QLabel(line);
        row.selectedMark->setFixedSize(18, 18);
        if (entry.tag == m_tab->levelSelected()) {
            row.selectedMark->setPixmap(shellIcon(Symbol::checkmark).pixmap(16, 16));
            row.selectedMark->setToolTip(tr("Shown on the canvas"));
        }
        row.name = new QPushButton(entry.name, line);
        row.name->setFlat(true);
        row.name->setStyleSheet(QStringLiteral("text-align: left;"));
        row.name->setToolTip(tr("Show this scene"));
        const auto tool = [&](Symbol symbol, const QString& help) {
            auto* button = new QToolButton(line);
            button->setIcon(shellIcon(symbol));
            button->setAutoRaise(true);
            button->setToolTip(help);
            return button;
        };
        row.down = tool(Symbol::moveDown, tr("Move down"));
        row.up = tool(Symbol::moveUp, tr("Move up"));
        row.trash = tool(Symbol::trash, tr("Delete"));
        layout->addWidget(row.selectedMark);
        layout->addWidget(row.name, 1);
        layout->addWidget(row.down);
        layout->addWidget(row.up);
        layout->addWidget(row.trash);
        m_listLayout->addWidget(line);

        const tessaro::Uuid tag = entry.tag;
        connect(row.name, &QPushButton::clicked, this, [this, tag] {
            hide();
            m_commands.showScene(tag);
        });
        connect(row.down, &QToolButton::clicked, this, [this, tag] { m_commands.moveSceneDown(tag); });
        connect(row.up, &QToolButton::clicked, this, [this, tag] { m_commands.moveSceneUp(tag); });
        connect(row.trash, &QToolButton::clicked, this, [this, tag] {
            // The question takes the focus; the popover gives way to it.
            hide();
            m_commands.deleteScene(tag);
        });
        m_rows.push_back(row);
    }
    const int rowHeight = m_rows.empty() ? 0 : m_rows.front().name->sizeHint().height() + 2;
    if (auto* scroll = qobject_cast<QScrollArea*>(m_list->parentWidget()->parentWidget()))
        scroll->setFixedHeight(std::min(360, std::max(rowHeight, int(m_rows.size()) * rowHeight + 4)));
    adjustSize();
}

void LevelPopover::popup(QWidget* anchor)
{
    rebuild();
    QPoint at = anchor ? anchor->mapToGlobal(QPoint(0, anchor->height())) : QCursor::pos();
    if (const QScreen* screen = anchor ? anchor->screen() : QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        at.setX(std::clamp(at.x(), area.left(), std::max(area.left(), area.right() - width())));
    }
    move(at);
    show();
}

} // namespace stagewright
