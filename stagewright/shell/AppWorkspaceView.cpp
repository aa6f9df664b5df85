#include "AppWorkspaceView.h"

#include "ShellIcons.h"

#include <stagewright/inspector/controls/MultiSelectCombo.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/StateTypes.h>

#include <QComboBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

constexpr int pickerWidth = 220;

QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), qsizetype(view.size()));
}

/// A picker over every case of `E`, each shown by its raw text.
template <class E>
QComboBox* casePicker(const QString& objectName, QWidget* parent)
{
    auto* picker = new QComboBox(parent);
    picker->setObjectName(objectName);
    picker->setFixedWidth(pickerWidth);
    for (E value : tessaro::allCases<E>())
        picker->addItem(text(tessaro::caseText(value)), int(value));
    return picker;
}

/// Calls `take` with the case the user picks.
template <class E, class Take>
void onPicked(QComboBox* picker, QObject* context, Take take)
{
    QObject::connect(picker, &QComboBox::activated, context,
                     [picker, take](int index) { take(E(picker->itemData(index).toInt())); });
}

void showCase(QComboBox* picker, int value)
{
    picker->setCurrentIndex(picker->findData(value));
}

QStringList optionNames(const std::vector<tessaro::DebugOption>& options)
{
    QStringList names;
    for (tessaro::DebugOption option : options)
        names.append(text(tessaro::caseText(option)));
    return names;
}

} // namespace

AppWorkspaceView::AppWorkspaceView(AppPreferences& preferences, QWidget* parent)
    : QWidget(parent),
      m_preferences(preferences)
{
    auto* column = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);

    m_sceneSize = new LabelledSizeStepper(QString(), QString(), false, false, 1, {}, this);
    m_sceneSize->setObjectName(QStringLiteral("defaultSceneSize"));
    form->addRow(tr("Default scene size:"), m_sceneSize);
    connect(m_sceneSize, &LabelledSizeStepper::valueChanged, &preferences, &AppPreferences::setDefaultSceneSize);

    m_orientation = casePicker<tessaro::sceneOrientationType>(QStringLiteral("defaultSceneOrientation"), this);
    form->addRow(tr("Default scene orientation:"), m_orientation);
    onPicked<tessaro::sceneOrientationType>(
        m_orientation, this, [&preferences](auto orientation) { preferences.setDefaultSceneOrientation(orientation); });

    m_scaleMode = new QComboBox(this);
    m_scaleMode->setObjectName(QStringLiteral("defaultScaleMode"));
    m_scaleMode->setFixedWidth(pickerWidth);
    for (sceneScaleMode mode :
         {sceneScaleMode::fill, sceneScaleMode::aspectFill, sceneScaleMode::aspectFit, sceneScaleMode::resizeFill})
        m_scaleMode->addItem(text(scaleModeText(mode)));
    form->addRow(tr("Default ScaleMode:"), m_scaleMode);
    connect(m_scaleMode, &QComboBox::textActivated, &preferences, &AppPreferences::setDefaultScaleMode);

    m_anchorPoint = new LabelledPointStepper(QString(), QString(), 0.5, {0, 1}, false, {}, this);
    m_anchorPoint->setObjectName(QStringLiteral("defaultAnchorPoint"));
    form->addRow(tr("Default AnchorPoint:"), m_anchorPoint);
    connect(m_anchorPoint, &LabelledPointStepper::valueChanged, &preferences, &AppPreferences::setDefaultAnchorPoint);

    m_imageScale = casePicker<tessaro::imageScaling>(QStringLiteral("defaultImageScale"), this);
    form->addRow(tr("Default image scale:"), m_imageScale);
    onPicked<tessaro::imageScaling>(m_imageScale, this,
                                    [&preferences](auto scale) { preferences.setDefaultImageScale(scale); });

    m_imageType = casePicker<tessaro::imageType>(QStringLiteral("defaultImageType"), this);
    form->addRow(tr("Default image type:"), m_imageType);
    onPicked<tessaro::imageType>(m_imageType, this,
                                 [&preferences](auto type) { preferences.setDefaultImageType(type); });

    QStringList options;
    for (tessaro::DebugOption option : tessaro::allCases<tessaro::DebugOption>())
        if (option != tessaro::DebugOption::none)
            options.append(text(tessaro::caseText(option)));
    m_debugOptions = new CustomMultiSelectCombo(QString(), options, this);
    m_debugOptions->setObjectName(QStringLiteral("debugOptions"));
    m_debugOptions->setSeparator(QStringLiteral(","));
    form->addRow(tr("Debug options:"), m_debugOptions);
    connect(m_debugOptions, &CustomMultiSelectCombo::itemClicked, &preferences, [&preferences](const QString& item) {
        if (const auto option = tessaro::caseFromText<tessaro::DebugOption>(item.toStdString()))
            preferences.toggleDebugOption(*option);
    });
    column->addLayout(form);

    m_reset = new QPushButton(shellIcon(Symbol::clear), tr("Reset settings"), this);
    m_reset->setObjectName(QStringLiteral("resetSettings"));
    column->addWidget(m_reset, 0, Qt::AlignLeft);
    column->addStretch(1);
    connect(m_reset, &QPushButton::clicked, &preferences, &AppPreferences::resetWorkspaceDefaults);

    connect(&preferences, &AppPreferences::workspaceDefaultsChanged, this, &AppWorkspaceView::refresh);
    connect(&preferences, &AppPreferences::debugOptionsChanged, this, &AppWorkspaceView::refresh);
    refresh();
}

void AppWorkspaceView::refresh()
{
    const tessaro::BaseConfig& defaults = m_preferences.workspaceDefaults();
    m_sceneSize->setValue(defaults.defaultSceneSize);
    showCase(m_orientation, int(defaults.defaultSceneOrientation));
    m_scaleMode->setCurrentText(QString::fromStdString(defaults.defaultScaleMode));
    m_anchorPoint->setValue(defaults.defaultAnchorPoint);
    showCase(m_imageScale, int(defaults.defaultImageScale));
    showCase(m_imageType, int(defaults.defaultImageType));
    m_debugOptions->setValues(optionNames(m_preferences.debugOptions()));
}

} // namespace stagewright
