// Switching, adding, deleting and moving levels; zoom and device sizes.
#include "StateFixture.h"

using namespace stagewright;
using namespace stagewright::test;

namespace {

std::vector<tessaro::Uuid> levelIds(const ProjectTab& tab)
{
    std::vector<tessaro::Uuid> ids;
    for (const tessaro::Level& level : tab.levelConfig())
        ids.push_back(*level.id);
    return ids;
}

} // namespace

TEST_F(StateFixture, SwitchLevelWritesBackThenShowsTheNewLevelInAFreshScene)
{
    start();
    settings->openProject(writeProject(QStringLiteral("three.plist"), 3));
    ProjectTab& tab = front();
    const auto ids = levelIds(tab);
    FakeHost host(sceneLog);
    host.presentScene(tab.currentScene());

    tab.selectedObject().name = "node-1";
    tab.selectedObject().zPosition = 7;
    tab.selectedDeviceObject().nameSelected = tessaro::deviceName::iPad;
    tab.selectedAnimationObject().End_List = {"x"};
    tab.selectedLevelExtendedProperties().filename = "jump";
    tab.setElementPhase(SelectionPhase::Selected);
    const auto oldScene = tab.currentScene();
    const QString oldTag = frontScene()->logName();
    sceneLog->clear();

    tab.switchLevel(ids[2]);
    ASSERT_EQ(sceneLog->size(), 7) << logText().toStdString();
    EXPECT_EQ((*sceneLog)[0], oldTag + QStringLiteral(" writeBack ") + shortId(ids[0]));
    EXPECT_EQ((*sceneLog)[1], oldTag + QStringLiteral(" release"));
    EXPECT_EQ((*sceneLog)[2], "present nothing");
    const QString newTag = frontScene()->logName();
    EXPECT_EQ((*sceneLog)[3], QStringLiteral("new ") + newTag);
    EXPECT_EQ((*sceneLog)[4], "present scene");
    EXPECT_EQ((*sceneLog)[5], newTag + QStringLiteral(" loadLevel ") + shortId(ids[2]));
    EXPECT_EQ((*sceneLog)[6], newTag + QStringLiteral(" overlays"));

    EXPECT_NE(tab.currentScene(), oldScene);
    EXPECT_EQ(host.shown, tab.currentScene());
    EXPECT_EQ(tab.levelSelected(), ids[2]);
    EXPECT_EQ(frontScene()->setup.name, "Scene");
    EXPECT_EQ(frontScene()->setup.backgroundColor, (SceneColor{170, 170, 170, 255}));
    // The tab takes the level's set-up from the scene.
    EXPECT_EQ(tab.selectedSceneSize(), (tessaro::SizeValue{1002, 500}));
    // The selection models are back to their empty values.
    EXPECT_EQ(tab.selectedObject().name, "");
    EXPECT_EQ(tab.selectedObject().zPosition, 0);
    EXPECT_EQ(tab.selectedObject().allowedTimesToHit, 1);
    EXPECT_EQ(tab.selectedObject().charClassType, tessaro::characterClassType::friendly);
    EXPECT_EQ(tab.selectedDeviceObject(), SelectedDeviceModel{});
    EXPECT_EQ(tab.selectedAnimationObject(), SelectedAnimationModel{});
    EXPECT_EQ(tab.selectedLevelExtendedProperties(), SelectedLevelExtendedPropertiesModel{});
    EXPECT_EQ(tab.elementPhase(), SelectionPhase::NotSelected);
    // The old level received the scene's write-back.
    EXPECT_TRUE(tab.levelConfig()[0].settings.fontColor);
}

TEST_F(StateFixture, SwitchLevelWithoutASceneUsesTheApplicationSettings)
{
    start(false);
    tessaro::globalAppConfig().base.defaultSceneSize = {640, 320};
    tessaro::globalAppConfig().base.defaultSceneOrientation = tessaro::sceneOrientationType::portrait;
    ProjectTab& tab = front();
    tab.addLevel();
    const auto ids = levelIds(tab);
    tab.switchLevel(ids[1]);
    EXPECT_EQ(tab.levelSelected(), ids[1]);
    EXPECT_EQ(tab.currentScene(), nullptr);
    EXPECT_EQ(tab.selectedSceneSize(), (tessaro::SizeValue{640, 320}));
    EXPECT_EQ(tab.selectedSceneOrientation(), tessaro::sceneOrientationType::portrait);
    EXPECT_EQ(tab.selectedScaleMode(), sceneScaleMode::aspectFill);
}

TEST_F(StateFixture, DeletingLevelsKeepsAtLeastOne)
{
    start();
    ProjectTab& tab = front();
    const tessaro::Uuid only = levelIds(tab)[0];
    tab.deleteLevel(only);
    ASSERT_EQ(tab.levelConfig().size(), 1u);
    EXPECT_NE(*tab.levelConfig()[0].id, only);
    EXPECT_EQ(tab.levelSelected(), *tab.levelConfig()[0].id);
    EXPECT_EQ(frontScene()->loaded, tab.levelSelected());
    EXPECT_TRUE(tab.isProjectDirty());

    tab.addLevel();
    tab.addLevel();
    const auto ids = levelIds(tab);
    tab.switchLevel(ids[2]);
    tab.deleteLevel(ids[2]);
    EXPECT_EQ(levelIds(tab), (std::vector{ids[0], ids[1]}));
    EXPECT_EQ(tab.levelSelected(), ids[0]);
    EXPECT_EQ(tab.levelListDropdownValues().size(), 2u);

    tab.setProjectDirty(false);
    tab.deleteLevel(tessaro::Uuid::create()); // no such level
    EXPECT_EQ(tab.levelConfig().size(), 2u);
    EXPECT_FALSE(tab.isProjectDirty());
}

TEST_F(StateFixture, MovingLevelsSwapsNeighboursAndKeepsTheSelection)
{
    start(false);
    settings->addLevel();
    settings->addLevel();
    ProjectTab& tab = front();
    const auto ids = levelIds(tab);
    ASSERT_EQ(ids.size(), 3u);
    const tessaro::Uuid selected = tab.levelSelected();

    settings->moveLevelUp(ids[0]);
    settings->moveLevelDown(ids[2]);
    EXPECT_EQ(levelIds(tab), ids);

    settings->moveLevelDown(ids[0]);
    EXPECT_EQ(levelIds(tab), (std::vector{ids[1], ids[0], ids[2]}));
    settings->moveLevelUp(ids[2]);
    EXPECT_EQ(levelIds(tab), (std::vector{ids[1], ids[2], ids[0]}));
    EXPECT_EQ(tab.levelSelected(), selected);

    const auto& entries = tab.levelListDropdownValues();
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].name, QStringLiteral("Scene: ") + QString::fromStdString(ids[1].text()));
    EXPECT_EQ(entries[0].tag, ids[1]);

    // A level without id gets a fresh tag in the picker only.
    auto levels = tab.levelConfig();
    levels[1].id.reset();
    tab.setLevelConfig(levels);
    tab.refreshLevelList();
    EXPECT_FALSE(tab.levelConfig()[1].id);
    EXPECT_FALSE(tab.levelListDropdownValues()[1].tag.isNull());
}

TEST_F(StateFixture, ZoomAndDeviceSizes)
{
    start(false);
    DiagnosticCapture capture;
    settings->setZoom(QStringLiteral("abc"));
    EXPECT_EQ(settings->scrollerViewSize(), (tessaro::SizeValue{800, 400}));
    EXPECT_TRUE(capture.contains("new value: abc  scrollerViewSize: (800.0, 400.0)"));

    settings->setSceneFactory(fakeSceneFactory(sceneLog));
    settings->newProject();
    settings->setZoom(QStringLiteral("1.50"));
    EXPECT_EQ(settings->scrollerViewSize(), (tessaro::SizeValue{874 * 1.5, 402 * 1.5}));

    settings->setDeviceSize(tessaro::deviceName::iPad, {1, 2}); // no entries: nothing happens
    EXPECT_TRUE(settings->sceneSizesList().empty());
    settings->setSceneSizesList({{tessaro::deviceName::iPhone15, {852, 393}},
                                 {tessaro::deviceName::iPad, {1956, 940}},
                                 {tessaro::deviceName::iPad, {1, 1}}});
    settings->setDeviceSize(tessaro::deviceName::iPad, {2000, 1000});
    EXPECT_EQ(settings->sceneSizesList()[1].size, (tessaro::SizeValue{2000, 1000}));
    EXPECT_EQ(settings->sceneSizesList()[2].size, (tessaro::SizeValue{1, 1}));
    EXPECT_EQ(settings->sceneSizesList()[0].size, (tessaro::SizeValue{852, 393}));
}

TEST_F(StateFixture, FieldsReportTheirChanges)
{
    start(false);
    ProjectTab& tab = front();
    int dirty = 0, phase = 0, levels = 0, picker = 0, tabs = 0, front = 0;
    QObject::connect(&tab, &ProjectTab::isProjectDirtyChanged, [&] { ++dirty; });
    QObject::connect(&tab, &ProjectTab::elementPhaseChanged, [&] { ++phase; });
    QObject::connect(&tab, &ProjectTab::levelConfigChanged, [&] { ++levels; });
    QObject::connect(&tab, &ProjectTab::levelListDropdownValuesChanged, [&] { ++picker; });
    QObject::connect(settings.get(), &SceneSettings::projectTabsChanged, [&] { ++tabs; });
    QObject::connect(settings.get(), &SceneSettings::selectedProjectTabChanged, [&] { ++front; });

    tab.setProjectDirty(true);
    tab.setProjectDirty(true); // no change, no signal
    tab.setElementPhase(SelectionPhase::Selected);
    tab.addLevel();
    settings->newProject();
    EXPECT_EQ(dirty, 1);
    EXPECT_EQ(phase, 1);
    EXPECT_EQ(levels, 1);
    EXPECT_EQ(picker, 1);
    EXPECT_EQ(tabs, 1);
    EXPECT_EQ(front, 1);
}
