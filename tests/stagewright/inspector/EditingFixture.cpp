#include "EditingFixture.h"

#include <stagewright/state/PermissionManager.h>

#include <tessaro/model/ConfigFiles.h>

namespace stagewright::test {

using tessaro::sceneObjectType;

void EditingFixture::SetUp()
{
    home = std::make_unique<testing_support::ScratchHome>();
    tessaro::globalAppConfig() = {};
    PermissionManager::shared().setChooser(
        [](const OpenPanelRequest&) -> ChooseResult { return OpenPanelError::canceled; });
    settings = std::make_unique<SceneSettings>(PermissionManager::shared());
    settings->setSceneFactory(makeSceneEditorFactory(editingHooks(settings.get())));
    // The test's own workspace replaces the one the start made.
    workspace.emplace();
    workspace->image(sceneObjectType::obstacles, "crate", 40, 40);
    workspace->image(sceneObjectType::obstacles, "barrel", 30, 60);
    workspace->image(sceneObjectType::character, "walker", 30, 40);
    workspace->image(sceneObjectType::coin, "coin", 20, 20);
    workspace->image(sceneObjectType::checkpoint, "flag", 16, 50);
    workspace->image(sceneObjectType::shield, "shield", 24, 30);
    workspace->image(sceneObjectType::artifact, "gem", 10, 12);
    workspace->image(sceneObjectType::ground, "grass", 200, 50);
    workspace->image(sceneObjectType::background, "sky", 874, 402);
    workspace->image(sceneObjectType::background, "hills", 874, 402);
    tessaro::Obstacle crate = obstacleTemplate("Crate", "crate", "{40,40}");
    crate.collisionMasks = tessaro::CollisionDetection{};
    crate.collisionMasks->category = "staticObjectBody";
    crate.objectClassType = "barrel";
    tessaro::obstacleCatalogue() = {crate};
    tessaro::characterCatalogue() = {characterTemplate("Walker", "walker", "{30,40}")};
    tessaro::objectCatalogue() = {objectTemplate("coin", "coin", sceneObjectType::coin, "{20,20}"),
                                  objectTemplate("Flag", "flag", sceneObjectType::checkpoint, "{16,50}"),
                                  objectTemplate("Grass", "grass", sceneObjectType::ground, "{200,50}")};
    settings->mainWindowAppeared();
}

void EditingFixture::TearDown()
{
    settings.reset();
    workspace.reset();
    home.reset();
}

tessaro::Level EditingFixture::everyKind()
{
    tessaro::Level level = emptyLevel();
    tessaro::ObstacleLevelItem crate;
    crate.elementName = "Crate";
    crate.name = "crate";
    crate.zPosition = 10;
    crate.properties.emplace().id = tessaro::Uuid::create();
    crate.properties->devices = at("{100,0}");
    level.obstacles = std::vector<tessaro::ObstacleLevelItem>{crate};
    tessaro::CharacterLevelItem walker;
    walker.elementName = "Walker";
    walker.name = "walker";
    walker.properties.emplace().id = tessaro::Uuid::create();
    walker.properties->devices = at("{-100,0}");
    level.characters = std::vector<tessaro::CharacterLevelItem>{walker};
    tessaro::Coin coin;
    coin.devices = at("{0,30}");
    level.coins.emplace().coins = std::vector<tessaro::Coin>{coin};
    tessaro::CheckPointLocation flag;
    flag.devices = at("{-300,0}");
    level.checkpoints.emplace().image = "Flag";
    level.checkpoints->locations = std::vector<tessaro::CheckPointLocation>{flag};
    tessaro::Shield shield;
    shield.devices = at("{300,60}");
    level.shields.emplace().image = "shield";
    level.shields->shields = std::vector<tessaro::Shield>{shield};
    tessaro::Artifact gem;
    gem.image = "gem";
    gem.devices = at("{200,80}");
    level.artifacts.emplace().artifacts = std::vector<tessaro::Artifact>{gem};
    level.ground = std::vector<tessaro::GroundSection>{tileSection("grass", "{200,50}")};
    tessaro::BackgroundImage sky;
    sky.id = tessaro::Uuid::create();
    sky.image = "sky";
    tessaro::BackgroundImage hills = sky;
    hills.id = tessaro::Uuid::create();
    hills.image = "hills";
    hills.zPosition = 2;
    level.background.emplace().backgrounds = std::vector<tessaro::BackgroundImage>{sky, hills};
    return level;
}

void EditingFixture::show(std::vector<tessaro::Level> levels)
{
    ProjectTab& tab = front();
    const tessaro::Uuid first = *levels.front().id;
    tab.setLevelConfig(std::move(levels));
    tab.refreshLevelList();
    tab.switchLevel(first);
    tab.undoStack().clear();
    tab.setProjectDirty(false);
}

SceneEditor& EditingFixture::scene() const
{
    return *sceneEditorOf(front().currentScene());
}

ElementNodePtr EditingFixture::select(sceneObjectType kind)
{
    SceneEditor& editor = scene();
    const std::vector<ElementNodePtr> nodes = kind == sceneObjectType::background
        ? SceneEditor::elementsOf(editor.backgroundNodes())
        : editor.storedOrder(kind);
    if (nodes.empty())
        return nullptr;
    scene().deselect();
    scene().clearGlow();
    scene().selectNode(nodes.front());
    return nodes.front();
}

tessaro::Level EditingFixture::saved()
{
    scene().writeBack(front().levelSelected());
    return *front().findLevel(front().levelSelected());
}

tessaro::Level comparable(tessaro::Level level)
{
    if (level.ground)
        for (tessaro::GroundSection& section : *level.ground)
            section.id.reset();
    return level;
}

} // namespace stagewright::test
