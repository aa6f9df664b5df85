// Writes the sample project that a new default workspace receives: three
// levels built from the seed catalogues and images (ground with hazards,
// backgrounds, obstacles, characters, coins, a checkpoint, a shield and a
// key). Run from the repository root after changing the seed or this file:
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
        level.id = Uuid::create();
        level.settings.id = Uuid::create();
        level.settings.scrollOrientation = "horizontal";
        level.settings.sceneOrientation = "landscape";
        level.settings.scaleMode = "aspectFill";
        level.settings.size = textFromPair(sceneWidth, sceneHeight);
        level.settings.anchorPoint = textFromPair(0.5, 0.5);
        level.background.emplace().backgrounds.emplace();
        level.background->soundEffects.emplace();
        level.ground.emplace();
        level.obstacles.emplace();
        level.characters.emplace();
        CheckPointData& checkpoints = level.checkpoints.emplace();
        checkpoints.image = "Flag";
        checkpoints.locations.emplace();
        Coins& coins = level.coins.emplace();
        coins.image = "coin";
        coins.startCoinNumber = 0;
        coins.repeatDistance = "{10, 10}";
        coins.soundEffects.emplace();
        coins.coins.emplace();
        Shields& shields = level.shields.emplace();
        shields.image = "shield";
        shields.shields.emplace();
        Artifacts& artifacts = level.artifacts.emplace();
        artifacts.image = "key";
        artifacts.startArtifactNumber = 0;
        artifacts.artifacts.emplace();
        background(backgroundSky, 1, false, {});
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

/// Green hills with a pond, a raised meadow and a spike pit.
Level meadow()
{
    LevelBuilder b("sky");
    b.background("hills_far", 2, true, {})
        .background("hills_near", 3, true, {{0, 1200}, {1800, 3000}})
        // x: -437 .. 75 grass, 75 .. 267 water, 267 .. 651 grass,
        // 651 .. 907 raised grass on dirt, 907 .. 1419 grass,
        // 1419 .. 1547 spikes, 1547 .. 2187 grass.
        .ground("ground_grass", 8)
        .hazard("BrightWater", 192)
        .ground("ground_grass", 6)
        .ground("ground_grass", 4, "ground_dirt")
        .ground("ground_grass", 8)
        .hazard("Spike", 128)
        .ground("ground_grass", 10);
    b.character("Hero", "friendly", -330)
        .obstacle("Crate", -160)
        .obstacle("Crate", -96)
        .coin(-250, 0, 3)
        .obstacle("Platform", 171, -90)
        .coin(140, -40, 3)
        .obstacle("Barrel", 400)
        .character("Slime", "enemy", 480)
        .obstacle("Spikes", 580, floorTop + 16)
        .coin(779, 0, 4)
        .obstacle("Crate", 1000, 0, 3)
        .checkpoint(1180)
        .shield(1300, -20)
        .character("Slime", "enemy", 1250)
        .obstacle("Platform", 1483, -60)
        .coin(1483, -10, 3)
        .obstacle("Barrel", 1700)
        .obstacle("Spikes", 1850, floorTop + 16)
        .character("Slime", "enemy", 1950)
        .key(2080);
    return b.level;
}

/// Dirt and lava, crossed on platforms.
Level lavaCaves()
{
    LevelBuilder b("sky");
    b.background("hills_far", 2, true, {})
        // x: -437 .. -53 dirt, -53 .. 139 lava, 139 .. 523 dirt,
        // 523 .. 779 lava, 779 .. 1419 dirt, 1419 .. 1611 lava, 1611 .. 2123 dirt.
        .ground("ground_dirt", 6)
        .hazard("Lava", 192)
        .ground("ground_dirt", 6)
        .hazard("Lava", 256)
        .ground("ground_dirt", 10)
        .hazard("Lava", 192)
        .ground("ground_dirt", 8);
    b.character("Hero", "friendly", -360)
        .obstacle("Barrel", -200)
        .obstacle("Platform", 43, -80)
        .coin(43, -30, 3)
        .obstacle("Crate", 260)
        .obstacle("Crate", 324)
        .character("Slime", "enemy", 430)
        .obstacle("Platform", 600, -70)
        .obstacle("Platform", 720, -20)
        .coin(720, 30, 3, true)
        .checkpoint(860)
        .obstacle("Spikes", 1000, floorTop + 16, 2)
        .obstacle("Barrel", 1200)
        .shield(1300, 0)
        .obstacle("Platform", 1515, -60)
        .character("Slime", "enemy", 1800)
        .coin(1700, 0, 4)
        .key(2000);
    return b.level;
}

/// A marsh of toxic and muddy water between grass.
Level toxicMarsh()
{
    LevelBuilder b("sky");
    b.background("hills_near", 2, true, {{0, 2600}})
        // x: -437 .. -117 grass, -117 .. 43 toxic, 43 .. 363 grass on dirt,
        // 363 .. 555 muddy, 555 .. 1195 grass, 1195 .. 1323 toxic, 1323 .. 1835 grass.
        .ground("ground_grass", 5)
        .hazard("ToxicGreen", 160)
        .ground("ground_grass", 5, "ground_dirt")
        .hazard("MuddyWater", 192)
        .ground("ground_grass", 10)
        .hazard("ToxicGreen", 128)
        .ground("ground_grass", 8);
    b.character("Hero", "friendly", -380)
        .coin(-260, 0, 3)
        .obstacle("Platform", -37, -90)
        .obstacle("Crate", 150)
        .obstacle("Barrel", 250)
        .obstacle("Platform", 459, -80)
        .coin(459, -30, 4)
        .character("Slime", "enemy", 700)
        .character("Slime", "enemy", 900)
        .checkpoint(1000)
        .obstacle("Spikes", 1100, floorTop + 16)
        .obstacle("Platform", 1259, -60)
        .shield(1259, 0)
        .obstacle("Crate", 1500, 0, 2)
        .key(1700);
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
