#include "SceneSizeSelection.h"

#include "SceneSettingsCommand.h"

#include <stagewright/state/ProjectTab.h>

#include <QCoreApplication>

#include <optional>
#include <string>

namespace stagewright {

namespace {

QString commandText(const char* text)
{
    return QCoreApplication::translate("SceneSizeSelection", text);
}

/// Changes the values the tab's scene holds as one step; nothing without a scene.
template <class Change>
void changeScene(ProjectTab& tab, const QString& text, int mergeId, Change change)
{
    const std::shared_ptr<LevelScene>& scene = tab.currentScene();
    if (!scene)
        return;
    SceneSettingsValues values{scene->size(), scene->anchorPoint(), scene->scaleMode(), scene->orientation()};
    change(values);
    pushStep(tab.undoStack(), new SceneSettingsCommand(tab, values, text, mergeId));
}

} // namespace

tessaro::SizeValue predefinedSceneSize(tessaro::deviceName device, tessaro::sceneOrientationType orientation)
{
    const tessaro::DeviceSize size = tessaro::deviceSize(device);
    if (orientation == tessaro::sceneOrientationType::portrait)
        return {size.height, size.width};
    return {size.width, size.height};
}

std::vector<PredefinedSizeItem> predefinedSizeItems(tessaro::sceneOrientationType orientation)
{
    std::vector<PredefinedSizeItem> items{{tessaro::deviceName::none, commandText("Select...")}};
    for (tessaro::deviceName device : tessaro::allCases<tessaro::deviceName>()) {
        if (device == tessaro::deviceName::none)
            continue;
        const tessaro::SizeValue size = predefinedSceneSize(device, orientation);
        const std::string title(tessaro::deviceTitle(device));
        items.push_back({device, QString::asprintf("%s {w: %.0f, h: %.0f }", title.c_str(), size.width, size.height)});
    }
    return items;
}

void setSceneOrientation(ProjectTab& tab, tessaro::sceneOrientationType orientation)
{
    changeScene(tab, commandText("Change Orientation"), -1,
                [&](SceneSettingsValues& values) { values.orientation = orientation; });
}

void setSceneScaleMode(ProjectTab& tab, sceneScaleMode mode)
{
    changeScene(tab, commandText("Change Scale Mode"), -1,
                [&](SceneSettingsValues& values) { values.scaleMode = mode; });
}

void choosePredefinedSize(ProjectTab& tab, tessaro::deviceName device)
{
    if (device == tessaro::deviceName::none)
        return;
    const tessaro::SizeValue size = predefinedSceneSize(device, tab.selectedSceneOrientation());
    changeScene(tab, commandText("Change Scene Size"), -1, [&](SceneSettingsValues& values) { values.size = size; });
}

void setSceneSize(ProjectTab& tab, tessaro::SizeValue size)
{
    changeScene(tab, commandText("Change Scene Size"), sceneSettingsMergeId::size,
                [&](SceneSettingsValues& values) { values.size = size; });
}

void setSceneAnchorPoint(ProjectTab& tab, tessaro::PointValue anchor)
{
    changeScene(tab, commandText("Change Anchor Point"), sceneSettingsMergeId::anchorPoint,
                [&](SceneSettingsValues& values) { values.anchorPoint = anchor; });
}

} // namespace stagewright
