// The example game played without a window on the seed workspace: the
// autopilot finishes a level of ground, gaps, coins, a checkpoint and an
// enemy; an enemy hurts the player, who starts again at the checkpoint; a
// player landing on an enemy defeats it; knocks wear a crate down until it
// breaks; sounds play as the level's parts and elements say, a missing file
// being named once; a watched game is built again when its project changes.
#include "PlayScene.h"
#include "PlaySession.h"

#include <tessaro/kit/AudioNode.h>
#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/ValueText.h>
#include <tessaro/runtime/GameResources.h>

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

using namespace tessaro;

GameSound touchSound(const char* file)
{
    GameSound sound;
    sound.type = "touch";
    sound.filename = file;
    sound.fileExtension = "wav";
    return sound;
}

DeviceProperties at(double x, double y = 0)
{
    DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.position = textFromPair(x, y);
    return device;
}

/// A level of the seed workspace, laid left to right from x = -437 on a
/// scene of 874 by 402 points.
struct Course {
    Level level;

    Course()
    {
        BaseConfig config = BaseConfig::editorDefaults();
        config.defaultSceneSize = {874, 402};
        level = newLevel(Uuid::create(), config);
        level.coins->image = "coin";
        level.coins->coins.emplace();
        level.checkpoints->image = "Flag";
    }
    Course& ground(int tiles)
    {
        GroundSection section = newSection("Ground");
        section.image = "ground_grass";
        section.repeatCount = tiles;
        level.ground->push_back(section);
        return *this;
    }
    Course& gap(double length)
    {
        GroundSection section = newSection("BrightWater");
        section.distance = textFromPair(length, 0);
        level.ground->push_back(section);
        return *this;
    }
    Course& coin(double x, double y = 0)
    {
        Coin coin;
        coin.devices = std::vector<DeviceProperties>{at(x, y)};
        level.coins->coins->push_back(coin);
        return *this;
    }
    Course& checkpoint(double x)
    {
        CheckPointLocation location;
        location.zPosition = 12;
        location.devices = std::vector<DeviceProperties>{at(x)};
        level.checkpoints->locations->push_back(location);
        return *this;
    }
    Course& character(const char* element, const char* classType, double x, double y = 0)
    {
        CharacterLevelItem item;
        item.elementName = element;
        item.name = element + std::to_string(level.characters->size() + 1);
        item.charClassType = classType;
        item.zPosition = 20;
        Character& properties = item.properties.emplace();
        properties.devices = std::vector<DeviceProperties>{at(x, y)};
        if (y != 0)
            properties.useGravity = false; // placed in the air, not on the ground
        level.characters->push_back(item);
        return *this;
    }
    Course& obstacle(const char* element, double x)
    {
        ObstacleLevelItem item;
        item.elementName = element;
        item.name = element + std::to_string(level.obstacles->size() + 1);
        item.zPosition = 10;
        item.properties.emplace().devices = std::vector<DeviceProperties>{at(x)};
        level.obstacles->push_back(item);
        return *this;
    }

private:
    static GroundSection newSection(const char* type)
    {
        GroundSection section;
        section.groundType = type;
        DeviceProperties device;
        device.deviceName = "defaultDevice";
        device.size = "{64,64}";
        section.devices = std::vector<DeviceProperties>{device};
        return section;
    }
};

/// The game on a level, stepped at 60 frames a second.
struct Game {
    std::shared_ptr<play::PlayScene> scene;
    double time = 0;

    explicit Game(const Level& level) : scene(std::make_shared<play::PlayScene>(level))
    {
        scene->didMoveToView(nullptr);
        scene->processFrame(0);
    }
    play::PlayRules& rules() { return scene->rules(); }
    const play::PlayStats& stats() { return rules().stats(); }
    QPointF player() { return rules().playerPosition().value_or(QPointF()); }
    /// Runs until `done` holds or `seconds` have passed; whether it held.
    template <class Done>
    bool runUntil(double seconds, Done done)
    {
        for (const double end = time + seconds; time < end;) {
            time += 1.0 / 60;
            scene->processFrame(time);
            if (done())
                return true;
        }
        return false;
    }
    void run(double seconds)
    {
        runUntil(seconds, [] { return false; });
    }
    int hitsOf(const std::string& element)
    {
        for (const auto& [name, count] : stats().hits)
            if (name == element)
                return count;
        return 0;
    }
    int started(const std::string& file)
    {
        for (const auto& [name, count] : rules().sounds().started())
            if (name == file)
                return count;
        return 0;
    }
};

class PlayTest : public ::testing::Test {
protected:
    static QString seed()
    {
        return qEnvironmentVariable("STAGEWRIGHT_SOURCE_DIR", QStringLiteral(".")) + QStringLiteral("/resources/seed/");
    }
    static void SetUpTestSuite()
    {
        kit::AudioNode::setAudioEnabled(false);
        ASSERT_TRUE(loadWorkspace(seed()));
    }
};

TEST_F(PlayTest, TheAutopilotFinishesALevelOfGroundGapsCoinsACheckpointAndAnEnemy)
{
    // Ground from -437 to 203, a gap to 299, ground to 1067, a gap to 1163, ground to 1931.
    Course course;
    course.ground(10).gap(96).ground(12).gap(96).ground(12);
    course.character("Hero", "friendly", -300)
        .coin(-100)
        .coin(-40)
        .checkpoint(500)
        .character("Slime", "enemy", 800)
        .coin(1300)
        .coin(1500, 40);
    Game game(course.level);
    game.rules().setAutopilot(true);

    ASSERT_TRUE(game.runUntil(60, [&] { return game.rules().isFinished(); }))
        << "the player stopped at " << game.player().x();
    EXPECT_GE(game.player().x(), 1931 - 1);
    EXPECT_GE(game.stats().coinsCollected, 2);
}

TEST_F(PlayTest, AnEnemyHurtsThePlayerWhoStartsAgainAtTheCheckpointAfterAFall)
{
    // The slime waits beside the checkpoint; past it the ground ends in a gap.
    Course course;
    course.ground(12).gap(300).ground(4);
    course.character("Hero", "friendly", -300).checkpoint(-100).character("Slime", "enemy", 100);
    course.level.checkpoints->soundEffects = std::vector<GameSound>{touchSound("checkpoint")};
    Game game(course.level);
    const auto hero = std::dynamic_pointer_cast<SKSpriteNodeEnemy2dBase>(
        game.scene->childNodeWithName(QStringLiteral("//ENEMY_HUMAN_Hero1")));
    ASSERT_TRUE(hero);
    game.run(0.5); // standing on the ground

    game.rules().controls().right = true;
    ASSERT_TRUE(game.runUntil(4, [&] { return hero->hitsRemaining() == 2; })) << "the slime never touched the player";
    ASSERT_TRUE(game.runUntil(6, [&] { return game.stats().livesLost > 0; })) << "never fell";
    EXPECT_EQ(hero->hitsRemaining(), 3) << "a new life";
    game.rules().controls().right = false;
    EXPECT_EQ(game.started("checkpoint.wav"), 1) << "reaching the checkpoint sounds once";
    EXPECT_EQ(game.stats().enemiesDefeated, 0);
    EXPECT_NEAR(game.player().x(), -100, 1) << "back at the checkpoint";
    game.run(0.5);
    EXPECT_NEAR(game.player().x(), -100, 2);
    EXPECT_GT(game.player().y(), -201 + 64) << "standing on the ground, not in it";
}

TEST_F(PlayTest, LandingOnAnEnemyThreeTimesDefeatsIt)
{
    Course course;
    course.ground(16);
    course.character("Slime", "enemy", 0).character("Hero", "friendly", 0, 150);
    Game game(course.level);
    ASSERT_TRUE(game.runUntil(8, [&] { return game.stats().enemiesDefeated == 1; }))
        << "hits counted: " << game.stats().hits.size();
    ASSERT_EQ(game.stats().hits.size(), 1u);
    EXPECT_EQ(game.stats().hits.front().second, 3) << "the slime takes three hits";
    EXPECT_EQ(game.started("break.wav"), 1) << "its sound of dying";
    EXPECT_EQ(game.stats().livesLost, 0) << "landing on it hurts nobody";
    game.run(3);
    EXPECT_FALSE(game.scene->childNodeWithName(QStringLiteral("//ENEMY_ANIMAL_*"))) << "the defeated slime leaves";
}

TEST_F(PlayTest, KnocksWearACrateDownUntilItBreaksAndAMissingSoundIsNamedOnce)
{
    Course course;
    course.ground(16);
    course.character("Hero", "friendly", -300).obstacle("Crate", 0);
    course.coin(-250).coin(-200).coin(-150);
    course.level.coins->soundEffects = std::vector<GameSound>{touchSound("coin"), touchSound("nowhere")};
    std::vector<std::string> lines;
    const DiagnosticSink previous = setDiagnosticSink([&](std::string_view line) { lines.emplace_back(line); });
    Game game(course.level);
    const kit::NodePtr crate = game.scene->childNodeWithName(QStringLiteral("//OBJECT_Crate1*"));
    ASSERT_TRUE(crate);
    ASSERT_TRUE(crate->childNodeWithName(QStringLiteral("healthBox"))) << "a crate takes three hits";
    const auto slot = [&](int n) {
        const auto health =
            std::dynamic_pointer_cast<kit::SpriteNode>(crate->childNodeWithName(QStringLiteral("healthBox"))
                                                           ->childNodeWithName(QStringLiteral("health%1").arg(n)));
        return health ? health->texture() : nullptr;
    };
    const kit::TexturePtr full = slot(3);

    // Run into it, back off, run into it again.
    for (int knock = 1; knock <= 2; ++knock) {
        game.rules().controls().right = true;
        ASSERT_TRUE(game.runUntil(4, [&] { return game.hitsOf("Crate1") == knock; })) << "knock " << knock;
        game.rules().controls().right = false;
        game.rules().controls().left = true;
        game.run(0.4);
        game.rules().controls().left = false;
    }
    EXPECT_NE(slot(3), full) << "the bar goes down";
    EXPECT_NE(slot(2), full);
    EXPECT_EQ(game.started("knock.wav"), 2);
    game.rules().controls().right = true;
    ASSERT_TRUE(game.runUntil(4, [&] { return game.hitsOf("Crate1") == 3; }));
    game.run(0.5);
    EXPECT_EQ(crate->parent(), nullptr) << "the broken crate leaves the level";
    EXPECT_EQ(game.stats().destroyed.count("Crate1"), 1u);
    EXPECT_EQ(game.started("break.wav"), 1);
    game.run(2);
    EXPECT_GT(game.player().x(), 100) << "the way is free";

    EXPECT_EQ(game.stats().coinsCollected, 3);
    EXPECT_EQ(game.started("coin.wav"), 3);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Sound file not found: nowhere.wav"), 1);
    setDiagnosticSink(previous);
}

TEST_F(PlayTest, AWatchedGameIsBuiltAgainWhenItsProjectChangesWithThePlayerWhereItWas)
{
    QTemporaryDir folder;
    const QString project = folder.filePath(QStringLiteral("Watched.plist"));
    Course course;
    course.ground(16);
    course.character("Hero", "friendly", -300);
    ASSERT_TRUE(saveLevels({course.level}, project.toStdString()));
    play::PlayOptions options;
    options.workspace = seed();
    options.project = project;
    options.watch = true;
    play::PlaySession session(options);
    ASSERT_TRUE(session.start());
    QSignalSpy reloaded(&session, &play::PlaySession::reloaded);
    session.scene()->rules().placePlayer({100, -100});
    const double standing = session.scene()->rules().playerPosition()->y();

    // The designer puts a crate where the player stands.
    course.obstacle("Crate", 100);
    ASSERT_TRUE(saveLevels({course.level}, project.toStdString()));
    QFile file(project);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray written = file.readAll();
    file.close();
    ASSERT_TRUE(reloaded.wait(2000));
    const kit::NodePtr crate = session.scene()->childNodeWithName(QStringLiteral("//OBJECT_Crate1*"));
    ASSERT_TRUE(crate) << "the new scene has the crate";
    const QPointF player = *session.scene()->rules().playerPosition();
    EXPECT_NEAR(player.x(), 100, 1) << "the player stays where it was";
    EXPECT_GE(player.y(), crate->frame().bottom() + 28) << "on top of the crate, not inside it";
    EXPECT_GT(player.y(), standing + 50);

    // A project caught half written leaves the game as it is.
    const play::PlayScene* before = session.scene();
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<?xml version=\"1.0\"?><plist><array><dict><key>settings");
    file.close();
    EXPECT_FALSE(reloaded.wait(500));
    EXPECT_EQ(session.scene(), before);

    // Started over, the player is back at the start; the game wrote no file.
    ASSERT_TRUE(saveLevels({course.level}, project.toStdString()));
    ASSERT_TRUE(reloaded.wait(2000));
    ASSERT_TRUE(session.restart());
    EXPECT_NEAR(session.scene()->rules().playerPosition()->x(), -300, 1);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), written);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("Watched.plist")});
}

} // namespace
