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
void changeScene(projectTab& tab, const QString& text, int mergeId, Change change)
{
    const std::shared_ptr<LevelScene>& scene = tab.currentScene();
    if (!scene)
        return;
    sceneSettingsValues values{scene->size(), scene->anchorPoint(), scene->scaleMode(), scene->orientation()};
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

std::vector<predefinedSizeItem> predefinedSizeItems(tessaro::sceneOrientationType orientation)
{
    std::vector<predefinedSizeItem> items{{tessaro::deviceName::none, commandText("Select...")}};
    for (tessaro::deviceName device : tessaro::allCases<tessaro::deviceName>()) {
        if (device == tessaro::deviceName::none)
            continue;
        const tessaro::SizeValue size = predefinedSceneSize(device, orientation);
        const std::string title(tessaro::deviceTitle(device));
        items.push_back({device, QString::asprintf("%s {w: %.0f, h: %.0f }", title.c_str(), size.width, size.height)});
    }
    return items;
}

void setSceneOrientation(projectTab& tab, tessaro::sceneOrientationType orientation)
{
    changeScene(tab, commandText("Change Orientation"), -1,
                [&](sceneSettingsValues& values) { values.orientation = orientation; });
}

void setSceneScaleMode(projectTab& tab, sceneScaleMode mode)
{
    changeScene(tab, commandText("Change Scale Mode"), -1,
                [&](sceneSettingsValues& values) { values.scaleMode = mode; });
}

void choosePredefinedSize(projectTab& tab, tessaro::deviceName device)
{
    if (device == tessaro::deviceName::none)
        return;
    const tessaro::SizeValue size = predefinedSceneSize(device, tab.selectedSceneOrientation());
    changeScene(tab, commandText("Change Scene Size"), -1, [&](sceneSettingsValues& values) { values.size = size; });
}

void setSceneSize(projectTab& tab, tessaro::SizeValue size)
{
    changeScene(tab, commandText("Change Scene Size"), sceneSettingsMergeId::size,
                [&](sceneSettingsValues& values) { values.size = size; });
}

void setSceneAnchorPoint(projectTab& tab, tessaro::PointValue anchor)
{
    changeScene(tab, commandText("Change Anchor Point"), sceneSettingsMergeId::anchorPoint,
                [&](sceneSettingsValues& values) { values.anchorPoint = anchor; });
}

} // namespace stagewright
