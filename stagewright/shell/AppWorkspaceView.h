// The "Workspace" tab of the settings: the defaults that new levels and scene
// views take, stored in the workspace's settings store. The rows show the
// defaults in force and follow every change of them, "Reset settings"
// included.
#pragma once

#include <QWidget>

class QComboBox;
class QPushButton;

namespace stagewright {

class AppPreferences;
class LabelledPointStepper;
class LabelledSizeStepper;
class CustomMultiSelectCombo;

class AppWorkspaceView : public QWidget {
    Q_OBJECT
public:
    explicit AppWorkspaceView(AppPreferences& preferences, QWidget* parent = nullptr);

    LabelledSizeStepper* sceneSize() const { return m_sceneSize; }
    QComboBox* orientation() const { return m_orientation; }
    QComboBox* scaleMode() const { return m_scaleMode; }
    LabelledPointStepper* anchorPoint() const { return m_anchorPoint; }
    QComboBox* imageScale() const { return m_imageScale; }
    QComboBox* imageType() const { return m_imageType; }
    CustomMultiSelectCombo* debugOptions() const { return m_debugOptions; }
    QPushButton* resetButton() const { return m_reset; }

private:
    /// Shows the defaults in force in every row.
    void refresh();

    AppPreferences& m_preferences;
    LabelledSizeStepper* m_sceneSize = nullptr;
    QComboBox* m_orientation = nullptr;
    QComboBox* m_scaleMode = nullptr;
    LabelledPointStepper* m_anchorPoint = nullptr;
    QComboBox* m_imageScale = nullptr;
    QComboBox* m_imageType = nullptr;
    CustomMultiSelectCombo* m_debugOptions = nullptr;
    QPushButton* m_reset = nullptr;
};

} // namespace stagewright
