// The scene base: configuration read from a workspace and from the game's
// resources, the delegates called in order, the texture cache and the floor.
#include "RuntimeTestSupport.h"

#include <bench/common/SyntheticProject.h>
#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/ConfigRecords.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/PlistCodec.h>
#include <tessaro/runtime/GameResources.h>

#include <QFile>

#include <gtest/gtest.h>

using namespace tessaro;
using namespace runtime_test;

namespace {

struct Recorder : SceneBaseCustomDelegate, SceneBaseContactDelegate {
    std::vector<std::string> calls;
    void didMove(kit::SceneView*) override { calls.push_back("didMove"); }
    void update(double t) override { calls.push_back("update " + std::to_string(int(t * 60))); }
    void didFinishUpdate() override { calls.push_back("didFinishUpdate"); }
    void didBegin(const kit::PhysicsContact&) override { calls.push_back("didBegin"); }
    void didEnd(const kit::PhysicsContact&) override { calls.push_back("didEnd"); }
};

void writeFile(const QString& path, const std::string& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes.data(), qint64(bytes.size()));
}

/// A workspace of generated catalogues and a generated project.
struct GeneratedWorkspace {
    QTemporaryDir dir;
    QString root() const { return dir.path() + QLatin1Char('/'); }
    GeneratedWorkspace()
    {
        Obstacle crate;
        crate.elementName = "Crate";
        crate.image = "crate";
        Character walker;
        walker.elementName = "Walker";
        walker.image = "walker";
        GenericObject coin;
        coin.elementName = "coin";
        coin.sceneObjectType = "coin";
        writeFile(root() + "Assets/ObstacleList.plist", encodeRecordList(std::vector<Obstacle>{crate}));
        writeFile(root() + "Assets/CharacterList.plist", encodeRecordList(std::vector<Character>{walker}));
        writeFile(root() + "Assets/ObjectList.plist", encodeRecordList(std::vector<GenericObject>{coin}));
        QDir().mkpath(root() + "Assets/Images/Obstacles");
        QImage picture(30, 20, QImage::Format_ARGB32);
        picture.fill(Qt::green);
        picture.save(root() + "Assets/Images/Obstacles/crate.png");
        bench::SyntheticShape shape;
        shape.levels = 2;
        shape.obstaclesPerLevel = 5;
        saveLevels(bench::makeSyntheticProject(shape), (root() + "Assets/Game.plist").toStdString());
    }
};

} // namespace

TEST(SceneBase, LoadsAGeneratedWorkspaceAndCallsItsDelegatesInOrder)
{
    GeneratedWorkspace workspace;
    ASSERT_TRUE(loadWorkspace(workspace.root()));
    ASSERT_EQ(obstacleCatalogue().size(), 1u);
    EXPECT_EQ(characterCatalogue().front().elementName, "Walker");
    EXPECT_TRUE(obstacleCatalogue().front().id.has_value()) << "records without an id get one";
    // The workspace's image folders are the game's resources now.
    EXPECT_EQ(kit::Texture::textureWithImageNamed("crate")->size(), QSizeF(30, 20));
    // Configuration from the game's resources: a project among them.
    const auto levels = loadBundledConfig<configType::level>("Game");
    ASSERT_EQ(levels.size(), 2u);
    EXPECT_EQ(levels[0].obstacles->size(), 5u);
    EXPECT_TRUE(loadBundledConfig<configType::level>("Missing").empty());

    auto scene = std::make_shared<AppSharedSceneBase>(QSizeF(400, 300));
    Recorder recorder;
    scene->setCustomDelegate(&recorder);
    scene->setContactDelegate(&recorder);
    scene->didMoveToView(nullptr);
    // Two boxes that meet: the contact reaches the delegate after the step,
    // between the frame's update and its end.
    auto makeBox = [&](double y, bool dynamic) {
        auto node = kit::SpriteNode::create(Qt::red, {20, 20});
        node->setPosition(0, y);
        auto body = kit::PhysicsBody::bodyWithRectangleOfSize({20, 20});
        body->setDynamic(dynamic);
        body->setCategoryBitMask(1);
        body->setContactTestBitMask(1);
        body->setCollisionBitMask(1);
        node->setPhysicsBody(body);
        scene->addChild(node);
        return node;
    };
    makeBox(-50, false);
    makeBox(-45, true);
    scene->processFrame(0);
    scene->processFrame(1.0 / 60);
    const std::vector<std::string> expected = {"didMove",         "update 0", "didBegin",
                                               "didFinishUpdate", "update 1", "didFinishUpdate"};
    EXPECT_EQ(recorder.calls, expected);
    scene->setCustomDelegate(nullptr);
    scene->setContactDelegate(nullptr);

    // Without delegates every callback does nothing.
    auto quiet = std::make_shared<AppSharedSceneBase>();
    quiet->didMoveToView(nullptr);
    quiet->processFrame(0);
    quiet->processFrame(1);
}

TEST(SceneBase, ConfigurationThatCannotBeReadGivesNothingAndOneLine)
{
    QTemporaryDir empty;
    Diagnostics log;
    EXPECT_FALSE(loadWorkspace(empty.path() + "/"));
    ASSERT_FALSE(log.lines.empty());
    EXPECT_EQ(log.lines.front().rfind("Configuration error (ObjectList): ", 0), 0u) << log.lines.front();
    EXPECT_TRUE(objectCatalogue().empty());

    kit::resources::setSearchPaths({empty.path()});
    writeFile(empty.path() + "/Broken.plist", "<plist><array><dict>");
    log.lines.clear();
    EXPECT_TRUE(loadBundledConfig<configType::obstacles>("Broken").empty());
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines.front().rfind("Configuration error (Broken): ", 0), 0u);

    // A game's application file: the first entry gives the defaults.
    writeFile(empty.path() + "/App.config", encodeRecordList(std::vector<LoadedConfig>{{true, "jpg", {}, "x9"}}));
    const auto app = loadBundledConfig<configType::app>("App", "config");
    ASSERT_EQ(app.size(), 1u);
    EXPECT_TRUE(app[0].darkMode);
    EXPECT_EQ(app[0].defaultImageType, imageType::jpg);
    EXPECT_EQ(app[0].defaultSoundType, soundType::mp4);
    EXPECT_EQ(app[0].defaultImageScale, imageScaling::x2);
    kit::resources::setSearchPaths({});
}

TEST(SceneBase, TextureCacheFindsAtlasesInNameOrderFallsBackToImagesAndCanBeTurnedOff)
{
    Pictures pictures;
    pictures.atlas("run", 3);
    pictures.image("rock", 40, 30);
    auto scene = std::make_shared<AppSharedSceneBase>();

    const auto frames = scene->cachedTextures("run");
    ASSERT_EQ(frames.size(), 3u);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(frameNumber(frames[size_t(i)]), i);
    EXPECT_EQ(scene->cachedTexture("run"), frames.front());
    EXPECT_EQ(scene->cachedTextures("rock").size(), 1u);
    EXPECT_EQ(scene->cachedTexture("rock")->size(), QSizeF(40, 30));
    EXPECT_TRUE(scene->cachedTexture("nothing")->isPlaceholder());
    EXPECT_EQ(scene->cachedNodes()->size(), 3u);

    // Preloading takes atlases only.
    scene->preloadTextures("rock");
    scene->preloadTextures("walk");
    pictures.atlas("jump", 2);
    scene->preloadTextures("jump");
    EXPECT_EQ(scene->cachedNodes()->count("walk"), 0u);
    EXPECT_EQ(scene->cachedNodes()->count("jump"), 1u);

    // After clearing, look-ups work but nothing is kept.
    scene->clearCachedTextures();
    EXPECT_FALSE(scene->cachedNodes().has_value());
    EXPECT_EQ(scene->cachedTextures("run").size(), 3u);
    scene->preloadTextures("jump");
    EXPECT_FALSE(scene->cachedNodes().has_value());
    scene->setCachedNodes(AppSharedSceneBase::TextureCache{});
    scene->cachedTextures("run");
    EXPECT_EQ(scene->cachedNodes()->size(), 1u);
}

TEST(SceneBase, GroundHeightIsTheLastFloorPieceHoldingX)
{
    AppSharedSceneBase scene;
    EXPECT_EQ(scene.groundHeight(10), 0);
    scene.setGroundBaseVariants({QRectF(0, -100, 200, 0)});
    struct Case {
        double x, height;
    };
    for (Case c : {Case{-50, -100}, Case{0, -100}, Case{199, -100}, Case{200, -100}, Case{500, -100}})
        EXPECT_EQ(scene.groundHeight(c.x), c.height) << c.x;
    // Overlaps: the later piece decides; a right end is not inside.
    scene.setGroundBaseVariants({QRectF(0, -100, 200, 0), QRectF(100, -60, 200, 0), QRectF(300, -150, 50, 0)});
    for (Case c : {Case{50, -100}, Case{150, -60}, Case{299, -60}, Case{300, -150}, Case{350, -150}, Case{-10, -150}})
        EXPECT_EQ(scene.groundHeight(c.x), c.height) << c.x;
}
