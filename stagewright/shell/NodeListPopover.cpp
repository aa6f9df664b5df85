#include "NodeListPopover.h"

#include "Commands.h"

#include <stagewright/inspector/PickerContent.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/SceneSettings.h>

#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace stagewright {

namespace {

/// A step of the position's buttons: as far as a click on a scroll button moves.
constexpr double positionStep = 50;
constexpr tessaro::RangeValue positionRange{-1'000'000, 1'000'000};

} // namespace

NodeListPopover::NodeListPopover(SceneSettings& settings, Commands& commands, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      m_settings(settings),
      m_commands(commands)
{
    setObjectName(QStringLiteral("nodeListPopover"));
    setFrameShape(QFrame::StyledPanel);
    setFixedWidth(popoverWidth);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);

    auto* pickerRow = new QHBoxLayout;
    auto* title = new QLabel(tr("Select a Node"), this);
    title->setObjectName(QStringLiteral("nodePickerTitle"));
    m_picker = new QComboBox(this);
    m_picker->setObjectName(QStringLiteral("nodePicker"));
    m_picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_picker->setMinimumContentsLength(20);
    title->setBuddy(m_picker);
    pickerRow->addWidget(title);
    pickerRow->addWidget(m_picker, 1);
    layout->addLayout(pickerRow);

    m_position = new LabelledPointStepper(tr("Position"), QString(), positionStep, positionRange, false, {}, this);
    m_position->setObjectName(QStringLiteral("scenePositionStepper"));
    m_position->setToolTip(tr("Set the position of the x axis in the scene view."));
    layout->addWidget(m_position);

    connect(m_picker, &QComboBox::activated, this, [this](int index) {
        const QString tag = m_picker->itemData(index).toString();
        if (!tag.isEmpty())
            m_commands.selectListedNode(tag);
    });
    connect(m_position, &LabelledPointStepper::valueChanged, &m_commands, &Commands::scrollScene);
    connect(&m_settings, &SceneSettings::selectedProjectTabChanged, this, &NodeListPopover::watchFrontTab);
    watchFrontTab();
}

void NodeListPopover::watchFrontTab()
{
    if (m_tab)
        disconnect(m_tab, nullptr, this, nullptr);
    m_tab = m_settings.selectedProjectTab().get();
    if (m_tab)
        connect(m_tab, &ProjectTab::scenePositionChanged, this, &NodeListPopover::showScenePosition);
    showScenePosition();
    if (isVisible())
        rebuild();
}

void NodeListPopover::showScenePosition()
{
    m_position->setValue(m_tab ? m_tab->scenePosition() : tessaro::PointValue{});
}

void NodeListPopover::rebuild()
{
    m_picker->clear();
    if (!m_tab)
        return;
    const SceneEditorPtr scene = sceneEditorOf(m_tab->currentScene());
    const PickerContent content = getPickerContent(PickerType::NodeList, *m_tab, scene.get(), &m_settings);
    auto* model = qobject_cast<QStandardItemModel*>(m_picker->model());
    for (const PickerSection& section : content.sections) {
        if (!section.title.isEmpty()) {
            // A section's title stands above its entries and cannot be chosen.
            m_picker->addItem(section.title);
            if (QStandardItem* header = model ? model->item(m_picker->count() - 1) : nullptr) {
                header->setFlags(Qt::NoItemFlags);
                QFont bold = m_picker->font();
                bold.setBold(true);
                header->setFont(bold);
            }
        }
        for (const PickerItem& item : section.items)
            m_picker->addItem(item.text, item.tag);
    }
    const QString chosen = m_settings.nodeListItemSelected();
    m_picker->setCurrentIndex(chosen.isEmpty() ? -1 : m_picker->findData(chosen));
}

void NodeListPopover::popup(QWidget* anchor)
{
    rebuild();
    showScenePosition();
    adjustSize();
    QPoint at = anchor ? anchor->mapToGlobal(QPoint(0, anchor->height())) : QCursor::pos();
    if (const QScreen* screen = anchor ? anchor->screen() : QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        at.setX(std::clamp(at.x(), area.left(), std::max(area.left(), area.right() - width())));
    }
    move(at);
    show();
}

} // namespace stagewright
