#include "SyntheticProject.h"

#include <tessaro/model/ValueText.h>

#include <random>

namespace tessaro::bench {

namespace {

class Generator {
public:
    explicit Generator(const SyntheticShape& shape) : shape_(shape), random_(shape.seed) {}

    std::vector<Level> project()
    {
        std::vector<Level> levels;
        levels.reserve(static_cast<std::size_t>(shape_.levels));
        for (int i = 0; i < shape_.levels; ++i)
            levels.push_back(level());
        return levels;
    }

private:
    double uniform(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
    int index(std::size_t count)
    {
        return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, count - 1)(random_));
    }
    bool chance(double p) { return uniform(0, 1) < p; }
    double rounded(double v) { return roundedValue(v, 1); }

    DeviceProperties placedAt(double x, double y)
    {
        DeviceProperties device;
        device.deviceName = "defaultDevice";
        device.position = textFromPair(rounded(x), rounded(y));
        return device;
    }

    std::vector<DeviceProperties> devicesAt(double x, double y)
    {
        std::vector<DeviceProperties> devices{placedAt(x, y)};
        if (chance(0.1)) {
            DeviceProperties iPad;
            iPad.deviceName = "iPad";
            iPad.size = textFromPair(120, 80);
            devices.push_back(iPad);
        }
        return devices;
    }

    GameSound sound(const char* type, const char* name)
    {
        GameSound s;
        s.id = Uuid::create();
        s.type = type;
        s.filename = name;
        s.fileExtension = "wav";
        s.volume = 0.8;
        return s;
    }

    ObstacleLevelItem obstacle(int i, double levelLength)
    {
        ObstacleLevelItem item;
        item.elementName = shape_.obstacleNames[static_cast<std::size_t>(index(shape_.obstacleNames.size()))];
        item.name = item.elementName + " " + std::to_string(i + 1);
        item.zPosition = 10 + index(5);
        Obstacle& overrides = item.properties.emplace();
        overrides.id = Uuid::create();
        overrides.devices = devicesAt(uniform(-400, levelLength), uniform(-150, 150));
        if (chance(0.15))
            overrides.repeatCount = 1 + index(4);
        if (chance(0.1)) {
            CollisionDetection& masks = overrides.collisionMasks.emplace();
            masks.category = "staticObjectBody";
            masks.contact = "humanPlayer";
            masks.collision = "humanPlayer,floor";
        }
        if (chance(0.2)) {
            AnimationProperty& animation = overrides.animation.emplace();
            animation.id = Uuid::create();
            animation.frequency = "foreverAutomatically";
            WaitPerAnimationFrame& wait = animation.waitPerAnimationFrame.emplace();
            wait.idle = 0.08;
            if (chance(0.3)) {
                Delays& delays = animation.delays.emplace();
                delays.idleRange = "0.5...2.0";
            }
        }
        if (chance(0.05)) {
            PhysicsProperty& physics = overrides.physics.emplace();
            RectanglePhysics rectangle;
            rectangle.size = textFromPair(40, 30);
            rectangle.center = textFromPair(0, -5);
            rectangle.action = "all";
            physics.rectangles = std::vector<RectanglePhysics>{rectangle};
        }
        return item;
    }

    CharacterLevelItem character(int i, double levelLength)
    {
        CharacterLevelItem item;
        item.elementName = shape_.characterNames[static_cast<std::size_t>(index(shape_.characterNames.size()))];
        item.name = item.elementName + " " + std::to_string(i + 1);
        item.charClassType = "enemy";
        item.sceneObjectType = "character";
        item.zPosition = 20;
        Character& overrides = item.properties.emplace();
        overrides.id = Uuid::create();
        overrides.devices = devicesAt(uniform(0, levelLength), uniform(-100, 100));
        if (chance(0.3)) {
            TargetDistances& distances = overrides.targetDistances.emplace();
            distances.near = textFromPair(200, 50);
            distances.moveSpeed = 120;
        }
        return item;
    }

    Level level()
    {
        const double levelLength = shape_.groundSectionsPerLevel * 256.0;
        Level level;
        level.id = Uuid::create();
        level.settings.id = Uuid::create();
        level.settings.scrollOrientation = "horizontal";
        level.settings.sceneOrientation = "landscape";
        level.settings.scaleMode = "aspectFill";
        level.settings.size = textFromPair(874, 402);
        level.settings.anchorPoint = textFromPair(0.5, 0.5);

        Background& background = level.background.emplace();
        background.backgrounds.emplace();
        for (int b = 0; b < shape_.backgroundsPerLevel; ++b) {
            BackgroundImage layer;
            layer.id = Uuid::create();
            layer.isVisible = true;
            layer.image = shape_.backgroundImages[static_cast<std::size_t>(b) % shape_.backgroundImages.size()];
            layer.speed = 0.2 * (b + 1);
            layer.scrollOrientation = "horizontal";
            layer.zPosition = -100 + b;
            layer.pinned = b % 2 == 1;
            if (*layer.pinned) {
                PinnedRange range;
                range.id = Uuid::create();
                range.range = textFromRange({500.0 * b, 500.0 * b + 1200});
                layer.pinnedRanges = std::vector<PinnedRange>{range};
            }
            background.backgrounds->push_back(layer);
        }
        background.soundEffects = std::vector<GameSound>{sound("background", "theme")};

        level.ground.emplace();
        for (int g = 0; g < shape_.groundSectionsPerLevel; ++g) {
            GroundSection section;
            section.id = Uuid::create();
            section.isVisible = true;
            section.image = shape_.groundImages[static_cast<std::size_t>(g) % shape_.groundImages.size()];
            section.groundType = g % 7 == 6 ? "Water" : "Ground";
            section.repeatCount = 1 + index(3);
            section.groundPhysicsAngleType = "none";
            section.stack = chance(0.2);
            section.zPosition = 50;
            section.distance = textFromPair(g % 7 == 6 ? 180 : 0, 0);
            DeviceProperties device;
            device.deviceName = "defaultDevice";
            device.size = textFromPair(256, 96);
            section.devices = std::vector<DeviceProperties>{device};
            level.ground->push_back(section);
        }

        level.obstacles.emplace();
        for (int i = 0; i < shape_.obstaclesPerLevel; ++i)
            level.obstacles->push_back(obstacle(i, levelLength));
        level.characters.emplace();
        for (int i = 0; i < shape_.charactersPerLevel; ++i)
            level.characters->push_back(character(i, levelLength));

        CheckPointData& checkpoints = level.checkpoints.emplace();
        checkpoints.image = "checkpoint_flag";
        checkpoints.locations.emplace();
        for (int i = 0; i < shape_.checkpointsPerLevel; ++i) {
            CheckPointLocation location;
            location.zPosition = 15;
            location.isVisible = true;
            location.devices =
                std::vector<DeviceProperties>{placedAt(levelLength * (i + 1) / (shape_.checkpointsPerLevel + 1), -60)};
            checkpoints.locations->push_back(location);
        }

        Coins& coins = level.coins.emplace();
        coins.image = "coin";
        coins.startCoinNumber = 0;
        coins.repeatDistance = "{10, 10}";
        coins.soundEffects = std::vector<GameSound>{sound("touch", "coin")};
        coins.coins.emplace();
        for (int i = 0; i < shape_.coinsPerLevel; ++i) {
            Coin coin;
            coin.devices = std::vector<DeviceProperties>{placedAt(uniform(0, levelLength), uniform(-50, 150))};
            coin.isVisible = true;
            coin.zPosition = 12;
            if (chance(0.3)) {
                coin.repeatCount = 3;
                coin.stack = chance(0.5);
            }
            coins.coins->push_back(coin);
        }

        Shields& shields = level.shields.emplace();
        shields.image = "shield";
        shields.shields = std::vector<Shield>{};
        Shield shield;
        shield.devices = std::vector<DeviceProperties>{placedAt(levelLength / 2, 40)};
        shield.timed = 30;
        shields.shields->push_back(shield);

        Artifacts& artifacts = level.artifacts.emplace();
        artifacts.image = "key";
        artifacts.startArtifactNumber = 0;
        Artifact artifact;
        artifact.devices = std::vector<DeviceProperties>{placedAt(levelLength * 0.8, 60)};
        artifact.objectClassType = "artifact1";
        artifacts.artifacts = std::vector<Artifact>{artifact};
        return level;
    }

    const SyntheticShape& shape_;
    std::mt19937_64 random_;
};

} // namespace

std::vector<Level> makeSyntheticProject(const SyntheticShape& shape)
{
    return Generator(shape).project();
}

} // namespace tessaro::bench
