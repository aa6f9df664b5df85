// The sheet of the toolbar's "Scene Size: " button: orientation, scale mode,
// a predefined size per device, the size and the anchor point of the shown
// level's scene. The controls follow the tab's values, so an undo shows too.
#pragma once

#include <stagewright/state/ProjectTab.h>

#include <QDialog>
#include <QPointer>

class QComboBox;

namespace stagewright {

class LabelledPointStepper;
class LabelledSizeStepper;

class SceneSizeSelectionView : public QDialog {
    Q_OBJECT
public:
    explicit SceneSizeSelectionView(ProjectTab& tab, QWidget* parent = nullptr);
    /// Opens the sheet over `parent`; it deletes itself when closed.
    static SceneSizeSelectionView* present(ProjectTab& tab, QWidget* parent);

    QComboBox* orientationPicker() const { return m_orientation; }
    QComboBox* scaleModePicker() const { return m_scaleMode; }
    QComboBox* predefinedSizePicker() const { return m_predefined; }
    LabelledSizeStepper* sizeStepper() const { return m_size; }
    LabelledPointStepper* anchorStepper() const { return m_anchor; }

private:
    void showTabValues();
    void fillPredefinedSizes();

    QPointer<ProjectTab> m_tab;
    QComboBox* m_orientation = nullptr;
    QComboBox* m_scaleMode = nullptr;
    QComboBox* m_predefined = nullptr;
    LabelledSizeStepper* m_size = nullptr;
    LabelledPointStepper* m_anchor = nullptr;
    /// The device last chosen; "Select..." at first.
    tessaro::deviceName m_selectedDevice = tessaro::deviceName::none;
    tessaro::sceneOrientationType m_predefinedOrientation = tessaro::sceneOrientationType::landscape;
};

} // namespace stagewright
