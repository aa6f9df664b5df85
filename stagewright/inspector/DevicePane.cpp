#include "DevicePane.h"

#include "EditRouting.h"
#include "PropertyRules.h"
#include "PropertySection.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace stagewright {

using P = PublishedElementList;

namespace {

QPushButton* overrideButton(const char* text, const QColor& colour)
{
    auto* button = new QPushButton(QCoreApplication::translate("deviceSpecificPropertyView", text));
    button->setFixedSize(120, 20);
    button->setStyleSheet(
        QStringLiteral("QPushButton { background: %1; color: white; border-radius: 4px; }").arg(colour.name()));
    return button;
}

} // namespace

DeviceSpecificPropertyView::DeviceSpecificPropertyView(RowBinding binding, QWidget* parent)
    : RowPane(std::move(binding), parent)
{
    setObjectName(QStringLiteral("deviceSpecificPropertyView"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (!m_binding.tab)
        return;
    const SelectedObjectModel& object = m_binding.tab->selectedObject();
    if (object.type == tessaro::sceneObjectType::background) {
        layout->addWidget(new QLabel(tr("Background editing in Custom tab.")));
        layout->addStretch();
        return;
    }

    auto* base = new PropertySection(tr("Element base device properties"));
    const auto& defaults = m_binding.tab->selectedDeviceObject().devicesDefaultBase;
    base->addReflectionRows(defaults ? tessaro::reflectionTable(*defaults) : tessaro::ReflectionTable{});
    layout->addWidget(base);

    auto* overrides = new PropertySection(tr("Device specific override"));
    auto* pickerLine = new QWidget;
    auto* line = new QHBoxLayout(pickerLine);
    line->setContentsMargins(0, 0, 0, 0);
    auto* title = new QLabel(tr("Devices"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    title->setFixedWidth(150);
    m_devices = new QComboBox;
    m_devices->setObjectName(QStringLiteral("devicePicker"));
    for (tessaro::deviceName device : tessaro::allCases<tessaro::deviceName>())
        if (device != tessaro::deviceName::none)
            m_devices->addItem(QString::fromUtf8(tessaro::deviceTitle(device)),
                               QString::fromUtf8(tessaro::caseText(device)));
    line->addWidget(title);
    line->addWidget(m_devices, 1);
    overrides->addRow(pickerLine);
    connect(m_devices, &QComboBox::activated, this, [this](int index) {
        if (m_binding.tab)
            EditRouting(*m_binding.tab)
                .editRow(ModelType::Devices, P::deviceName, m_devices->itemData(index).toString().toStdString());
    });
    m_fields = new QWidget;
    m_fieldRows = new QVBoxLayout(m_fields);
    m_fieldRows->setContentsMargins(0, 0, 0, 0);
    overrides->addRow(m_fields);
    layout->addWidget(overrides);
    layout->addStretch();
    layFields();
}

void DeviceSpecificPropertyView::layFields()
{
    m_relayQueued = false;
    if (!m_binding.tab || !m_fieldRows)
        return;
    m_rows.clear();
    while (QLayoutItem* item = m_fieldRows->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const SelectedDeviceModel& device = m_binding.tab->selectedDeviceObject();
    const tessaro::sceneObjectType kind = m_binding.tab->selectedObject().type;
    m_laidDevice = device.nameSelected;
    m_laidDefined = device.inherited;
    {
        const QSignalBlocker quiet(m_devices);
        m_devices->setCurrentIndex(m_devices->findData(QString::fromUtf8(tessaro::caseText(device.nameSelected))));
    }
    for (const DeviceFieldRow& field : deviceFieldRows()) {
        if (!propertyApplies(field.field, kind))
            continue;
        const bool defined =
            std::find(device.inherited.begin(), device.inherited.end(), field.field) != device.inherited.end();
        auto* row = new QWidget;
        row->setObjectName(QStringLiteral("device_") + QString::fromUtf8(tessaro::caseText(field.field)));
        auto* rowLayout = new QVBoxLayout(row);
        rowLayout->setContentsMargins(0, 2, 0, 2);
        auto* head = new QHBoxLayout;
        auto* label = new QLabel(tr(field.label));
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
        label->setFixedWidth(150);
        head->addWidget(label);
        QPushButton* button = defined
            ? overrideButton(removeOverrideLabel(device.nameSelected), QColor(0xd7, 0x3a, 0x3a))
            : overrideButton(addOverrideLabel(device.nameSelected), QColor(0x2f, 0x6f, 0xde));
        button->setObjectName(defined ? QStringLiteral("removeOverrideButton") : QStringLiteral("addOverrideButton"));
        head->addWidget(button);
        head->addStretch();
        if (!defined) {
            // The value comes from the layers behind this entry.
            auto* note = new QLabel(tr("inherited"));
            note->setForegroundRole(QPalette::PlaceholderText);
            head->addWidget(note);
        }
        rowLayout->addLayout(head);
        const PublishedElementList element = field.field;
        connect(button, &QPushButton::clicked, this, [this, element, defined] {
            if (m_binding.tab)
                EditRouting(*m_binding.tab).toggleDeviceOverride(element, !defined);
        });
        if (defined) {
            PropertyRow* control = makeRow(deviceRow(field.field, field.label), ModelType::Devices);
            control->label()->hide();
            rowLayout->addWidget(control);
        }
        m_fieldRows->addWidget(row);
    }
}

void DeviceSpecificPropertyView::refresh()
{
    if (!m_binding.tab || !m_fieldRows)
        return;
    const SelectedDeviceModel& device = m_binding.tab->selectedDeviceObject();
    if (device.nameSelected == m_laidDevice && device.inherited == m_laidDefined) {
        RowPane::refresh();
        return;
    }
    // Another device or another set of defined fields: the rows are laid
    // anew once the control that caused it has returned.
    if (!m_relayQueued) {
        m_relayQueued = true;
        QTimer::singleShot(0, this, [this] {
            if (m_relayQueued) // not laid meanwhile
                layFields();
        });
    }
}

} // namespace stagewright
