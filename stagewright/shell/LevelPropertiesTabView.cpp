#include "LevelPropertiesTabView.h"

#include <stagewright/inspector/SoundEditors.h>
#include <stagewright/inspector/SoundList.h>
#include <stagewright/inspector/controls/ImagePicker.h>
#include <stagewright/inspector/controls/SectionHeader.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/state/SceneSettings.h>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace stagewright {

namespace {

constexpr QSize previewBox(60, 60);

} // namespace

LevelPropertiesTabView::LevelPropertiesTabView(ProjectTab& tab, SceneSettings& settings, const LevelPropertiesTab& info,
                                               QWidget* parent)
    : QWidget(parent),
      m_tab(&tab),
      m_kind(info.kind)
{
    setObjectName(QString::fromUtf8(tessaro::caseText(m_kind)) + QStringLiteral("Tab"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(8);

    const std::vector<LevelPropertyRow> rows = levelPropertyRows(m_kind);
    if (!rows.empty()) {
        m_header = new SectionHeader(tr("Properties"), true, tr("Hide"), tr("Show"), false, this);
        layout->addWidget(m_header);
        m_rows = new QWidget(this);
        auto* form = new QFormLayout(m_rows);
        form->setContentsMargins(0, 0, 0, 0);
        form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        for (const LevelPropertyRow& row : rows) {
            auto* label = new QLabel(tr(row.title), m_rows);
            QFont bold = label->font();
            bold.setBold(true);
            label->setFont(bold);
            label->setFixedWidth(150);
            form->addRow(label, makeRow(row, settings));
        }
        layout->addWidget(m_rows);
        connect(m_header, &SectionHeader::toggled, m_rows, &QWidget::setVisible);
    }
    m_sounds = new GameSoundStageWrightView(settings, soundPropertyTypeOf(m_kind), this);
    layout->addWidget(m_sounds, 1);
    connect(m_sounds, &GameSoundStageWrightView::soundsChanged, this,
            [this](const std::vector<tessaro::GameSound>& sounds) {
                m_values.sounds = sounds;
                change(levelField::soundEffects, sounds);
            });
    readLevel();
}

QWidget* LevelPropertiesTabView::makeRow(const LevelPropertyRow& row, const SceneSettings& settings)
{
    switch (row.control) {
    case LevelPropertyControl::image: {
        auto* box = new QWidget(m_rows);
        auto* line = new QHBoxLayout(box);
        line->setContentsMargins(0, 0, 0, 0);
        m_preview = new ImagePreview(previewBox, box);
        m_preview->setFixedSize(previewBox);
        m_imagePicker = new CustomImagePickerView(box);
        m_imageChoices = levelImageChoices(m_kind, settings.imageList());
        std::vector<ImagePickerChoice> cells;
        for (const LevelImageChoice& choice : m_imageChoices)
            cells.push_back({choice.name, choice.picturePath});
        m_imagePicker->setChoices(std::move(cells));
        line->addWidget(m_preview);
        line->addWidget(m_imagePicker, 1);
        connect(m_imagePicker, &CustomImagePickerView::imageChosen, this, [this](const QString& name) {
            m_values.imageName = name.toStdString();
            showImage(name);
            change(levelField::image, m_values.imageName);
        });
        return box;
    }
    case LevelPropertyControl::integer:
        m_number = new LabelledIntStepper(QString(), QString(), row.lower, row.upper, 1, {}, m_rows);
        m_numberSelector = row.selector;
        connect(m_number, &LabelledIntStepper::valueChanged, this, [this](std::int64_t value) {
            numberValue() = value;
            change(m_numberSelector, value);
        });
        return m_number;
    case LevelPropertyControl::point:
        m_repeatDistance = new LabelledPointStepper(
            QString(), QString(), 1, {double(row.lower), std::numeric_limits<double>::max()}, false, {}, m_rows);
        connect(m_repeatDistance, &LabelledPointStepper::valueChanged, this, [this](tessaro::PointValue value) {
            m_values.repeatDistance = value;
            change(levelField::repeatDistance, value);
        });
        return m_repeatDistance;
    }
    return nullptr;
}

void LevelPropertiesTabView::readLevel()
{
    m_values = {};
    if (m_tab && !m_tab->levelConfig().empty()) {
        const tessaro::Level* level = m_tab->findLevel(m_tab->levelSelected());
        m_values = levelTabValuesOf(level ? *level : m_tab->levelConfig().front(), m_kind);
    }
    if (m_imagePicker) {
        m_imagePicker->setValue(QString::fromStdString(m_values.imageName));
        showImage(QString::fromStdString(m_values.imageName));
    }
    if (m_number)
        m_number->setValue(numberValue());
    if (m_repeatDistance)
        m_repeatDistance->setValue(m_values.repeatDistance);
    m_sounds->setSounds(m_values.sounds);
}

std::int64_t& LevelPropertiesTabView::numberValue()
{
    switch (m_numberSelector) {
    case levelField::animateFromImage: return m_values.animateFromImage;
    case levelField::startCoinNumber: return m_values.startCoinNumber;
    default: return m_values.startArtifactNumber;
    }
}

void LevelPropertiesTabView::showEvent(QShowEvent* event)
{
    readLevel();
    QWidget::showEvent(event);
}

void LevelPropertiesTabView::showImage(const QString& name)
{
    const auto chosen = std::find_if(m_imageChoices.begin(), m_imageChoices.end(),
                                     [&name](const LevelImageChoice& choice) { return choice.name == name; });
    m_preview->setPath(chosen != m_imageChoices.end() ? chosen->picturePath : QString());
}

void LevelPropertiesTabView::change(int selector, LevelPropertyValue value)
{
    if (m_tab)
        updateLevelProperty(*m_tab, m_kind, selector, std::move(value));
}

} // namespace stagewright
