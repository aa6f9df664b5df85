// The verbs that run the editor's canvas without a window: a load and save of
// every level through the scene, and a picture of one level.
#include "SceneCommands.h"

#include <stagewright/scene/LevelPicture.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/DBHelper.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <cstdio>
#include <memory>
#include <optional>

namespace stagewright::cli {

namespace {

/// The canvas draws text and pictures: it needs an application object, on
/// the offscreen platform when there is no display.
void ensureGuiApplication()
{
    if (QCoreApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "stagewright-cli";
    static char* argv[] = {name, nullptr};
    static QGuiApplication application(argc, argv);
}

int fail(const std::string& line)
{
    tessaro::diagnostic(line);
    return 1;
}

/// Makes `path` the workspace of this run, with its stored settings when it
/// has a store (none is created) and its three catalogues.
bool openWorkspace(const std::string& path)
{
    const QFileInfo folder(QString::fromStdString(path));
    if (!folder.isDir()) {
        tessaro::diagnostic("Workspace not found: " + path);
        return false;
    }
    const QString workspace = withTrailingSlash(folder.absoluteFilePath());
    tessaro::globalAppConfig() = {};
    if (QFileInfo::exists(workspace + QStringLiteral("editor.xspace")))
        tessaro::globalAppConfig() = readWorkspaceStore(workspace).settings;
    setWorkingSpacePathValue(workspace);
    tessaro::loadCatalogues(assetsFolder(workspace).toStdString());
    return true;
}

/// The project's levels as the editor holds them after opening it.
std::optional<std::vector<tessaro::Level>> openProject(const std::string& path)
{
    tessaro::LevelsReadResult read = tessaro::readLevels(path);
    if (!read.ok)
        return std::nullopt;
    tessaro::normaliseOpenedLevels(read.levels);
    return std::move(read.levels);
}

/// A scene for `level` of `tab`, loaded, with the level's settings applied
/// as a tab applies them when it changes level.
std::shared_ptr<SceneEditor> loadScene(ProjectTab& tab, const tessaro::Uuid& level)
{
    tab.setLevelSelected(level);
    auto scene = sceneEditorOf(makeSceneEditorFactory()(tab, sceneSetupFromConfig()));
    scene->loadLevel(level);
    scene->updateOverlays();
    return scene;
}

std::optional<std::string> option(std::vector<std::string>& args, const std::string& name)
{
    for (std::size_t i = 0; i + 1 < args.size(); ++i)
        if (args[i] == name) {
            std::string value = args[i + 1];
            args.erase(args.begin() + std::ptrdiff_t(i), args.begin() + std::ptrdiff_t(i) + 2);
            return value;
        }
    return std::nullopt;
}

std::optional<int> positiveNumber(const std::string& text)
{
    try {
        std::size_t used = 0;
        const int value = std::stoi(text, &used);
        if (used == text.size() && value > 0)
            return value;
    } catch (const std::exception&) {
    }
    return std::nullopt;
}

} // namespace

int roundtripCommand(const std::vector<std::string>& args)
{
    if (args.size() != 3)
        return fail("usage: stagewright-cli roundtrip WORKSPACE PROJECT OUT");
    ensureGuiApplication();
    if (!openWorkspace(args[0]))
        return 1;
    std::optional<std::vector<tessaro::Level>> levels = openProject(args[1]);
    if (!levels)
        return fail("Could not read the project " + args[1]);

    ProjectTab tab(tessaro::Uuid::create(), QFileInfo(QString::fromStdString(args[1])).completeBaseName());
    tab.setLevelConfig(std::move(*levels));
    std::vector<tessaro::Uuid> ids;
    for (const tessaro::Level& level : tab.levelConfig())
        ids.push_back(level.id.value_or(tessaro::Uuid()));
    for (const tessaro::Uuid& id : ids) {
        const auto scene = loadScene(tab, id);
        scene->writeBack(id);
        scene->releaseContent();
    }
    if (!tessaro::saveLevels(tab.levelConfig(), args[2]))
        return fail("Could not save the project to " + args[2]);
    std::printf("%zu levels written back to %s\n", ids.size(), args[2].c_str());
    return 0;
}

int renderCommand(const std::vector<std::string>& given)
{
    std::vector<std::string> args = given;
    const std::optional<std::string> levelText = option(args, "--level");
    const std::optional<std::string> out = option(args, "--out");
    const std::optional<std::string> widthText = option(args, "--width");
    if (args.size() != 2 || !levelText || !out)
        return fail("usage: stagewright-cli render WORKSPACE PROJECT --level N --out FILE.png [--width W]");
    const std::optional<int> levelNumber = positiveNumber(*levelText);
    if (!levelNumber)
        return fail("The level number must be a whole number from 1: " + *levelText);
    std::optional<int> width;
    if (widthText && !(width = positiveNumber(*widthText)))
        return fail("The width must be a whole number of pixels from 1: " + *widthText);

    ensureGuiApplication();
    if (!openWorkspace(args[0]))
        return 1;
    std::optional<std::vector<tessaro::Level>> levels = openProject(args[1]);
    if (!levels)
        return fail("Could not read the project " + args[1]);
    if (std::size_t(*levelNumber) > levels->size())
        return fail("The project has " + std::to_string(levels->size()) + " levels; there is no level " +
                    std::to_string(*levelNumber));

    ProjectTab tab(tessaro::Uuid::create(), QStringLiteral("render"));
    const tessaro::Uuid id = (*levels)[std::size_t(*levelNumber - 1)].id.value_or(tessaro::Uuid());
    tab.setLevelConfig(std::move(*levels));
    const auto scene = loadScene(tab, id);
    const QImage picture = renderWholeLevel(*scene, width.value_or(0));
    scene->releaseContent();
    if (picture.isNull() || !picture.save(QString::fromStdString(*out), "PNG"))
        return fail("Could not write the picture " + *out);
    std::printf("Level %d drawn to %s (%d by %d pixels)\n", *levelNumber, out->c_str(), picture.width(),
                picture.height());
    return 0;
}

} // namespace stagewright::cli
