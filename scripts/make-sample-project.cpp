// Writes the sample project that a new default workspace receives: three
// levels built from the seed catalogues and images (ground with hazards,
// backgrounds, obstacles, characters, coins, a checkpoint, a shield, a key
// and the window shown at the level's end). Run from the repository root after changing the seed or this file:
//
//   cmake --build <build> --target stagewright-make-sample
//   <build>/stagewright/shell/stagewright-make-sample resources/sample
//
// The file is "Levels/Sample.plist" below the folder given; resources/sample.qrc
// lists it.
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/ValueText.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace tessaro;

// The scene of every level: 874 by 402 points, origin in the middle. Ground
// is laid from the left edge, x = -437, on the bottom edge, y = -201.
constexpr double sceneWidth = 874;
constexpr double sceneHeight = 402;
constexpr double tile = 64;
constexpr double floorTop = -sceneHeight / 2 + tile; // top of a one-tile floor

/// A sound of the seed workspace, played when the player reaches the part.
std::vector<GameSound> touchSound(const char* file)
{
    GameSound sound;
    sound.id = Uuid::create();
    sound.type = "touch";
    sound.filename = file;
    sound.fileExtension = "wav";
    sound.volume = 0.8;
    sound.waitForCompletion = false;
    return {sound};
}

DeviceProperties at(double x, double y)
{
    DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.position = textFromPair(x, y);
    return device;
}

class LevelBuilder {
public:
    explicit LevelBuilder(const char* backgroundSky)
    {
        BaseConfig config = BaseConfig::editorDefaults();
        config.defaultSceneSize = {sceneWidth, sceneHeight};
        level = newLevel(Uuid::create(), config);
        level.checkpoints->image = "Flag";
        level.checkpoints->soundEffects = touchSound("checkpoint");
        if (level.levelEnd)
            level.levelEnd->soundEffects = touchSound("levelEnd");
        level.coins->image = "coin";
        level.coins->soundEffects = touchSound("coin");
        level.coins->coins.emplace();
        level.shields->image = "shield";
        level.shields->shields.emplace();
        level.artifacts->image = "key";
        level.artifacts->startArtifactNumber = 0;
        level.artifacts->artifacts.emplace();
        background(backgroundSky, 1, false, {});
        levelEnd();
    }

    /// A layer that fills the view, or one laid along the level in ranges.
    LevelBuilder& background(const char* image, double z, bool pinned, std::vector<RangeValue> ranges)
    {
        BackgroundImage layer;
        layer.id = Uuid::create();
        layer.isVisible = true;
        layer.image = image;
        layer.speed = pinned ? 0.5 : 0;
        layer.scrollOrientation = "horizontal";
        layer.pinned = pinned;
        layer.zPosition = z;
        std::vector<PinnedRange> pinnedRanges;
        for (const RangeValue& range : ranges) {
            PinnedRange entry;
            entry.id = Uuid::create();
            entry.range = textFromRange(range);
            pinnedRanges.push_back(entry);
        }
        layer.pinnedRanges = pinnedRanges;
        level.background->backgrounds->push_back(layer);
        return *this;
    }

    /// `count` tiles of `image` side by side; with a second image below,
    /// `count` + 1 columns of both.
    LevelBuilder& ground(const char* image, int count, const char* below = nullptr)
    {
        GroundSection section = newSection("Ground");
        section.image = below ? std::string(image) + "," + below : std::string(image);
        section.repeatCount = below ? count - 1 : count;
        section.stack = below != nullptr;
        level.ground->push_back(section);
        return *this;
    }

    /// A hazard strip `length` points long.
    LevelBuilder& hazard(const char* type, double length)
    {
        GroundSection section = newSection(type);
        section.distance = textFromPair(length, 0);
        level.ground->push_back(section);
        return *this;
    }

    /// An obstacle; those with gravity stand on the floor under x.
    LevelBuilder& obstacle(const char* element, double x, double y = 0, int repeat = 0)
    {
        ObstacleLevelItem item;
        item.elementName = element;
        item.name = element + std::string(" ") + std::to_string(++serial);
        item.zPosition = 10;
        item.isVisible = true;
        Obstacle& properties = item.properties.emplace();
        properties.id = Uuid::create();
        properties.devices = std::vector<DeviceProperties>{at(x, y)};
        if (repeat > 1)
            properties.repeatCount = repeat;
        level.obstacles->push_back(item);
        return *this;
    }

    LevelBuilder& character(const char* element, const char* classType, double x)
    {
        CharacterLevelItem item;
        item.elementName = element;
        item.name = element + std::string(" ") + std::to_string(++serial);
        item.sceneObjectType = "character";
        item.charClassType = classType;
        item.zPosition = 20;
        item.isVisible = true;
        Character& properties = item.properties.emplace();
        properties.id = Uuid::create();
        properties.devices = std::vector<DeviceProperties>{at(x, 0)};
        level.characters->push_back(item);
        return *this;
    }

    /// A coin, on the floor when y is 0; `count` pictures in a row or column.
    LevelBuilder& coin(double x, double y, int count = 1, bool stacked = false)
    {
        Coin coin;
        coin.devices = std::vector<DeviceProperties>{at(x, y)};
        coin.isVisible = true;
        coin.zPosition = 15;
        if (count > 1) {
            coin.repeatCount = count;
            coin.stack = stacked;
        }
        level.coins->coins->push_back(coin);
        return *this;
    }

    LevelBuilder& checkpoint(double x)
    {
        CheckPointLocation location;
        location.isVisible = true;
        location.zPosition = 12;
        location.devices = std::vector<DeviceProperties>{at(x, 0)};
        level.checkpoints->locations->push_back(location);
        return *this;
    }

    LevelBuilder& shield(double x, double y)
    {
        Shield shield;
        shield.devices = std::vector<DeviceProperties>{at(x, y)};
        shield.isVisible = true;
        shield.timed = 30;
        shield.zPosition = 15;
        level.shields->shields->push_back(shield);
        return *this;
    }

    LevelBuilder& key(double x)
    {
        Artifact artifact;
        artifact.devices = std::vector<DeviceProperties>{at(x, 0)};
        artifact.image = "key";
        artifact.isVisible = true;
        artifact.alpha = 1;
        artifact.objectClassType = "artifact1";
        artifact.zPosition = 15;
        level.artifacts->artifacts->push_back(artifact);
        return *this;
    }

    Level level;

private:
    /// The window at the end: the panel, a title, and the coins and time
    /// the player took, each count beside its name.
    void levelEnd()
    {
        const auto item = [](windowItemType type, double x, double y, double z) {
            WindowItem entry;
            entry.type = caseText(type);
            entry.zPosition = z;
            entry.devices = std::vector<DeviceProperties>{at(x, y)};
            return entry;
        };
        const auto text = [&](windowItemType type, const char* words, double x, double y, double fontSize) {
            WindowItem entry = item(type, x, y, 1);
            if (words)
                entry.text = words;
            FontInfo font;
            font.fontSize = fontSize;
            entry.fontInfo = font;
            return entry;
        };
        WindowItem panel = item(windowItemType::window, 0, 0, 0);
        panel.image = "window_panel";
        (*panel.devices)[0].size = textFromPair(420, 240);
        LevelEndData end;
        end.windowOffset = textFromPair(0, 0);
        end.zPosition = 1000;
        end.windowItems = std::vector<WindowItem>{
            panel,
            text(windowItemType::title, "Level complete", 0, 70, 36),
            text(windowItemType::other, "Coins", -60, 10, 24),
            text(windowItemType::coinCount, nullptr, 60, 10, 24),
            text(windowItemType::other, "Time", -60, -40, 24),
            text(windowItemType::timeCount, nullptr, 60, -40, 24),
        };
        level.levelEnd = end;
    }

    GroundSection newSection(const char* type)
    {
        GroundSection section;
        section.id = Uuid::create();
        section.isVisible = true;
        section.groundType = type;
        section.groundPhysicsAngleType = "none";
        section.zPosition = 50;
        DeviceProperties device;
        device.deviceName = "defaultDevice";
        device.size = textFromPair(tile, tile);
        device.offset = textFromPair(0, 0);
        section.devices = std::vector<DeviceProperties>{device};
        return section;
    }

    int serial = 0;
};

// The navigation buttons and the read-out of the canvas take the lower left
// corner of the view (x below -250 at the start): the levels begin after it.

/// Green hills with a pond, a raised meadow and a spike pit.
Level meadow()
{
    LevelBuilder b("sky");
    b.background("hills_far", 2, true, {})
        .background("hills_near", 3, true, {{0, 1200}, {1800, 3000}})
        // x: -437 .. 203 grass, 203 .. 395 water, 395 .. 779 grass,
        // 779 .. 1035 raised grass on dirt, 1035 .. 1547 grass,
        // 1547 .. 1675 spikes, 1675 .. 2315 grass.
        .ground("ground_grass", 10)
        .hazard("BrightWater", 192)
        .ground("ground_grass", 6)
        .ground("ground_grass", 4, "ground_dirt")
        .ground("ground_grass", 8)
        .hazard("Spike", 128)
        .ground("ground_grass", 10);
    b.character("Hero", "friendly", -190)
        .coin(-70, 0, 3)
        .obstacle("Crate", 80)
        .obstacle("Crate", 144)
        .obstacle("Platform", 299, -90)
        .coin(270, -40, 3)
        .obstacle("Barrel", 520)
        .character("Slime", "enemy", 620)
        .obstacle("Spikes", 700, floorTop + 16)
        .coin(870, 0, 4)
        .obstacle("Crate", 1120, 0, 3)
        .checkpoint(1320)
        .character("Slime", "enemy", 1400)
        .shield(1480, -20)
        .obstacle("Platform", 1611, -60)
        .coin(1585, -10, 3)
        .obstacle("Barrel", 1800)
        .obstacle("Spikes", 1950, floorTop + 16)
        .character("Slime", "enemy", 2050)
        .key(2200);
    return b.level;
}

/// Dirt and lava, crossed on platforms.
Level lavaCaves()
{
    LevelBuilder b("sky");
    b.background("hills_far", 2, true, {})
        // x: -437 .. 75 dirt, 75 .. 267 lava, 267 .. 651 dirt, 651 .. 907 lava,
        // 907 .. 1547 dirt, 1547 .. 1739 lava, 1739 .. 2251 dirt.
        .ground("ground_dirt", 8)
        .hazard("Lava", 192)
        .ground("ground_dirt", 6)
        .hazard("Lava", 256)
        .ground("ground_dirt", 10)
        .hazard("Lava", 192)
        .ground("ground_dirt", 8);
    b.character("Hero", "friendly", -200)
        .obstacle("Barrel", -20)
        .obstacle("Platform", 171, -80)
        .coin(145, -30, 3)
        .obstacle("Crate", 390)
        .obstacle("Crate", 454)
        .character("Slime", "enemy", 560)
        .obstacle("Platform", 720, -70)
        .obstacle("Platform", 840, -20)
        .coin(840, 30, 3, true)
        .checkpoint(1000)
        .obstacle("Spikes", 1120, floorTop + 16, 2)
        .obstacle("Barrel", 1330)
        .shield(1430, 0)
        .obstacle("Platform", 1643, -60)
        .coin(1850, 0, 4)
        .character("Slime", "enemy", 1990)
        .key(2150);
    return b.level;
}

/// A marsh of toxic and muddy water between grass.
Level toxicMarsh()
{
    LevelBuilder b("sky");
    b.background("hills_near", 2, true, {{0, 2600}})
        // x: -437 .. 11 grass, 11 .. 171 toxic, 171 .. 491 grass on dirt,
        // 491 .. 683 muddy, 683 .. 1323 grass, 1323 .. 1451 toxic, 1451 .. 1963 grass.
        .ground("ground_grass", 7)
        .hazard("ToxicGreen", 160)
        .ground("ground_grass", 5, "ground_dirt")
        .hazard("MuddyWater", 192)
        .ground("ground_grass", 10)
        .hazard("ToxicGreen", 128)
        .ground("ground_grass", 8);
    b.character("Hero", "friendly", -200)
        .coin(-70, 0, 3)
        .obstacle("Platform", 91, -90)
        .obstacle("Crate", 260)
        .obstacle("Barrel", 380)
        .obstacle("Platform", 587, -80)
        .coin(548, -30, 4)
        .character("Slime", "enemy", 800)
        .character("Slime", "enemy", 1000)
        .checkpoint(1120)
        .obstacle("Spikes", 1220, floorTop + 16)
        .obstacle("Platform", 1387, -60)
        .shield(1387, 0)
        .obstacle("Crate", 1600, 0, 2)
        .key(1850);
    return b.level;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <sample folder>\n", argv[0]);
        return 2;
    }
    const std::filesystem::path folder = std::filesystem::path(argv[1]) / "Levels";
    std::filesystem::create_directories(folder);
    const std::string path = (folder / "Sample.plist").string();
    if (!tessaro::saveLevels({meadow(), lavaCaves(), toxicMarsh()}, path)) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        return 1;
    }
    std::printf("wrote %s\n", path.c_str());
    return 0;
}
