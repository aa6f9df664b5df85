// One tab of the level properties sheet: the "Properties" section with the
// rows of its kind (image, numbers, repeat distance) and the level's sound
// list of that kind. It reads the shown level each time it is shown and
// sends every change as a step of the tab's history.
#pragma once

#include <stagewright/inspector/LevelProperties.h>
#include <stagewright/state/ProjectTab.h>

#include <QPointer>
#include <QWidget>

#include <vector>

namespace stagewright {

class CustomImagePickerView;
class GameSoundStageWrightView;
class ImagePreview;
class LabelledIntStepper;
class LabelledPointStepper;
class SceneSettings;
class SectionHeader;

class LevelPropertiesTabView : public QWidget {
    Q_OBJECT
public:
    LevelPropertiesTabView(ProjectTab& tab, SceneSettings& settings, const LevelPropertiesTab& info,
                           QWidget* parent = nullptr);

    tessaro::sceneObjectType kind() const { return m_kind; }
    /// The tab's copy of the level's values, as shown.
    const LevelTabValues& values() const { return m_values; }
    /// Reads the shown level (the first level when none has the selected id).
    void readLevel();

    // The controls, null where the tab has no such row.
    SectionHeader* propertiesHeader() const { return m_header; }
    QWidget* propertiesRows() const { return m_rows; }
    CustomImagePickerView* imagePicker() const { return m_imagePicker; }
    ImagePreview* imagePreview() const { return m_preview; }
    /// The integer row's stepper ("Animate at image", "Start coin number", ...).
    LabelledIntStepper* numberStepper() const { return m_number; }
    LabelledPointStepper* repeatDistanceStepper() const { return m_repeatDistance; }
    GameSoundStageWrightView* soundEditor() const { return m_sounds; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeRow(const LevelPropertyRow& row, const SceneSettings& settings);
    void showImage(const QString& name);
    /// The value of the tab's integer row.
    std::int64_t& numberValue();
    void change(int selector, LevelPropertyValue value);

    QPointer<ProjectTab> m_tab;
    tessaro::sceneObjectType m_kind;
    LevelTabValues m_values;
    int m_numberSelector = -1;
    SectionHeader* m_header = nullptr;
    QWidget* m_rows = nullptr;
    CustomImagePickerView* m_imagePicker = nullptr;
    std::vector<LevelImageChoice> m_imageChoices;
    ImagePreview* m_preview = nullptr;
    LabelledIntStepper* m_number = nullptr;
    LabelledPointStepper* m_repeatDistance = nullptr;
    GameSoundStageWrightView* m_sounds = nullptr;
};

} // namespace stagewright
