#include "SceneSizeSelectionView.h"

#include <stagewright/inspector/SceneSizeSelection.h>
#include <stagewright/inspector/controls/Steppers.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <limits>

namespace stagewright {

namespace {

constexpr int pickerWidth = 300;

QComboBox* picker(const QString& objectName, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(objectName);
    box->setFixedWidth(pickerWidth);
    return box;
}

void selectData(QComboBox* box, int value)
{
    box->setCurrentIndex(box->findData(value));
}

} // namespace

SceneSizeSelectionView::SceneSizeSelectionView(ProjectTab& tab, QWidget* parent) : QDialog(parent), m_tab(&tab)
{
    setObjectName(QStringLiteral("sceneSizeSelectionView"));
    setWindowTitle(tr("Scene size"));
    setWindowModality(Qt::WindowModal);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(12);

    auto* heading = new QLabel(tr("Set scene properties."), this);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    layout->addWidget(heading);

    auto* rows = new QFormLayout;
    rows->setLabelAlignment(Qt::AlignLeft);
    m_orientation = picker(QStringLiteral("orientationPicker"), this);
    for (tessaro::sceneOrientationType orientation : tessaro::allCases<tessaro::sceneOrientationType>())
        m_orientation->addItem(QString::fromUtf8(tessaro::sceneOrientationTitle(orientation)), int(orientation));
    rows->addRow(tr("Orientation"), m_orientation);

    m_scaleMode = picker(QStringLiteral("scaleModePicker"), this);
    for (sceneScaleMode mode :
         {sceneScaleMode::fill, sceneScaleMode::aspectFill, sceneScaleMode::aspectFit, sceneScaleMode::resizeFill})
        m_scaleMode->addItem(QString::fromUtf8(scaleModeText(mode)), int(mode));
    rows->addRow(tr("ScaleMode"), m_scaleMode);

    m_predefined = picker(QStringLiteral("predefinedSizePicker"), this);
    rows->addRow(tr("Predefined sizes"), m_predefined);

    m_size = new LabelledSizeStepper(QString(), QString(), false, false, 1, {}, this);
    m_size->setObjectName(QStringLiteral("sceneSizeStepper"));
    rows->addRow(tr("Set scene size"), m_size);

    m_anchor =
        new LabelledPointStepper(QString(), QString(), 1, {0, std::numeric_limits<double>::max()}, false, {}, this);
    m_anchor->setObjectName(QStringLiteral("anchorPointStepper"));
    rows->addRow(tr("Set AnchorPoint"), m_anchor);
    layout->addLayout(rows);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("closeButton"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);

    connect(m_orientation, &QComboBox::activated, this, [this](int index) {
        if (m_tab)
            setSceneOrientation(*m_tab, tessaro::sceneOrientationType(m_orientation->itemData(index).toInt()));
    });
    connect(m_scaleMode, &QComboBox::activated, this, [this](int index) {
        if (m_tab)
            setSceneScaleMode(*m_tab, sceneScaleMode(m_scaleMode->itemData(index).toInt()));
    });
    connect(m_predefined, &QComboBox::activated, this, [this](int index) {
        m_selectedDevice = tessaro::deviceName(m_predefined->itemData(index).toInt());
        if (m_tab)
            choosePredefinedSize(*m_tab, m_selectedDevice);
    });
    connect(m_size, &LabelledSizeStepper::valueChanged, this, [this](tessaro::SizeValue size) {
        if (m_tab)
            setSceneSize(*m_tab, size);
    });
    connect(m_anchor, &LabelledPointStepper::valueChanged, this, [this](tessaro::PointValue anchor) {
        if (m_tab)
            setSceneAnchorPoint(*m_tab, anchor);
    });
    for (auto signal : {&ProjectTab::selectedSceneOrientationChanged, &ProjectTab::selectedScaleModeChanged,
                        &ProjectTab::selectedSceneSizeChanged, &ProjectTab::selectedAnchorPointChanged})
        connect(&tab, signal, this, &SceneSizeSelectionView::showTabValues);
    showTabValues();
}

SceneSizeSelectionView* SceneSizeSelectionView::present(ProjectTab& tab, QWidget* parent)
{
    auto* sheet = new SceneSizeSelectionView(tab, parent);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
    return sheet;
}

void SceneSizeSelectionView::showTabValues()
{
    if (!m_tab)
        return;
    selectData(m_orientation, int(m_tab->selectedSceneOrientation()));
    selectData(m_scaleMode, int(m_tab->selectedScaleMode()));
    if (m_predefined->count() == 0 || m_predefinedOrientation != m_tab->selectedSceneOrientation())
        fillPredefinedSizes();
    m_size->setValue(m_tab->selectedSceneSize());
    m_anchor->setValue(m_tab->selectedAnchorPoint());
}

void SceneSizeSelectionView::fillPredefinedSizes()
{
    // The items name the sizes in the orientation shown.
    m_predefinedOrientation = m_tab->selectedSceneOrientation();
    m_predefined->clear();
    for (const PredefinedSizeItem& item : predefinedSizeItems(m_predefinedOrientation))
        m_predefined->addItem(item.title, int(item.device));
    selectData(m_predefined, int(m_selectedDevice));
}

} // namespace stagewright
