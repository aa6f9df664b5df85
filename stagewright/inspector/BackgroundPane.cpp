#include "BackgroundPane.h"

#include "EditRouting.h"
#include "PropertySection.h"
#include "controls/Steppers.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace stagewright {

using P = PublishedElementList;

BackgroundPropertyListView::BackgroundPropertyListView(RowBinding binding, QWidget* parent)
    : RowPane(std::move(binding), parent)
{
    setObjectName(QStringLiteral("backgroundPropertyListView"));
    m_binding.background = true;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (!m_binding.tab)
        return;

    auto* pickerLine = new QHBoxLayout;
    auto* title = new QLabel(tr("Background"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    title->setFixedWidth(150);
    m_backgrounds = new QComboBox;
    m_backgrounds->setObjectName(QStringLiteral("backgroundPicker"));
    const SceneEditor* scene = sceneEditorOf(m_binding.tab->currentScene()).get();
    for (const PickerSection& section :
         getPickerContent(PickerType::BackgroundList, *m_binding.tab, scene, m_binding.settings).sections)
        for (const PickerItem& item : section.items)
            m_backgrounds->addItem(item.text, item.tag);
    pickerLine->addWidget(title);
    pickerLine->addWidget(m_backgrounds, 1);
    layout->addLayout(pickerLine);
    connect(m_backgrounds, &QComboBox::activated, this, [this](int index) {
        if (const auto id = tessaro::Uuid::fromText(m_backgrounds->itemData(index).toString().toStdString()))
            edit(P::background, *id);
    });

    auto* section = new PropertySection(tr("Pinned Ranges"));
    for (const RowEntry& row : backgroundRows())
        section->addRow(makeRow(row, ModelType::Primary));
    auto* rangesBox = new QWidget;
    m_ranges = new QVBoxLayout(rangesBox);
    m_ranges->setContentsMargins(0, 0, 0, 0);
    section->addRow(rangesBox);
    auto* add = new QPushButton(tr("Add\nRange"));
    add->setObjectName(QStringLiteral("addRangeButton"));
    connect(add, &QPushButton::clicked, this, [this] { edit(P::addRange, true); });
    section->addRow(add);
    layout->addWidget(section);
    layout->addStretch();
    layRanges();
    refresh();
}

void BackgroundPropertyListView::edit(PublishedElementList element, const PropertyValue& value)
{
    if (m_binding.tab)
        EditRouting(*m_binding.tab).applyBackgroundProperty(element, value);
}

void BackgroundPropertyListView::layRanges()
{
    m_relayQueued = false;
    if (!m_binding.tab || !m_ranges)
        return;
    while (QLayoutItem* item = m_ranges->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const std::vector<PinnedRangeValue>& ranges = m_binding.tab->selectedObject().pinnedRanges;
    m_laidRanges = ranges;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        auto* line = new QWidget;
        auto* lineLayout = new QHBoxLayout(line);
        lineLayout->setContentsMargins(0, 0, 0, 0);
        auto* stepper = new LabelledRangeStepper({}, {}, {0, greatest}, StepperPrecision::Int);
        stepper->setBounds(ranges[i].range.lower, ranges[i].range.upper);
        auto* remove = new QPushButton(QStringLiteral("−"));
        remove->setObjectName(QStringLiteral("deleteRangeButton"));
        remove->setFixedWidth(28);
        lineLayout->addWidget(stepper, 1);
        lineLayout->addWidget(remove);
        connect(stepper, &LabelledRangeStepper::lowerChanged, this, [this, i, stepper](double lower) {
            edit(P::lowerBound, RangeBoundValue{i, lower, stepper->upper()});
        });
        connect(stepper, &LabelledRangeStepper::upperChanged, this, [this, i, stepper](double upper) {
            edit(P::upperBound, RangeBoundValue{i, stepper->lower(), upper});
        });
        connect(remove, &QPushButton::clicked, this, [this, i] { edit(P::deleteRange, std::int64_t(i)); });
        m_ranges->addWidget(line);
    }
}

void BackgroundPropertyListView::refresh()
{
    RowPane::refresh();
    if (!m_binding.tab || !m_backgrounds)
        return;
    const SelectedObjectModel& model = m_binding.tab->selectedObject();
    {
        const QSignalBlocker quiet(m_backgrounds);
        m_backgrounds->setCurrentIndex(
            m_backgrounds->findData(QString::fromStdString(model.backgroundSelectedId.text())));
    }
    if (model.pinnedRanges != m_laidRanges && !m_relayQueued) {
        m_relayQueued = true;
        QTimer::singleShot(0, this, [this] {
            if (m_relayQueued) // not laid meanwhile
                layRanges();
        });
    }
}

} // namespace stagewright
