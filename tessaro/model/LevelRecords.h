// The records of a project file: a list of levels and what they hold.
#pragma once

#include "ElementRecords.h"

namespace tessaro {

/// Scene set-up of a level.
struct LevelSettings {
    std::optional<Uuid> id;
    std::string scrollOrientation; // case of scrollOrientationType
    std::optional<std::string> fontColor;
    std::string sceneOrientation; // case of sceneOrientationType
    std::string scaleMode; // read with scaleModeFromText
    std::optional<std::string> size;
    std::optional<std::string> anchorPoint;

    bool operator==(const LevelSettings&) const = default;
    static constexpr auto fields()
    {
        using S = LevelSettings;
        return ::tessaro::FieldList{TESSARO_FIELD(id),         TESSARO_FIELD(scrollOrientation),
                                    TESSARO_FIELD(fontColor),  TESSARO_FIELD(sceneOrientation),
                                    TESSARO_FIELD(scaleMode),  TESSARO_FIELD(size),
                                    TESSARO_FIELD(anchorPoint)};
    }
};

/// Where a pinned background stands, "lower...upper" along the level.
struct PinnedRange {
    std::optional<Uuid> id;
    std::optional<std::string> range;

    bool operator==(const PinnedRange&) const = default;
    static constexpr auto fields()
    {
        using S = PinnedRange;
        return ::tessaro::FieldList{TESSARO_FIELD(id), TESSARO_FIELD(range)};
    }
};

struct BackgroundImage {
    std::optional<Uuid> id;
    std::optional<bool> isVisible;
    std::optional<std::string> image;
    std::optional<double> speed;
    std::optional<std::string> scrollOrientation;
    std::optional<bool> pinned;
    std::optional<std::vector<PinnedRange>> pinnedRanges;
    std::optional<double> zPosition;

    TESSARO_RECORD_MEMBERS(BackgroundImage);
    static constexpr auto fields()
    {
        using S = BackgroundImage;
        return ::tessaro::FieldList{
            TESSARO_FIELD(id),           TESSARO_FIELD(isVisible),         TESSARO_FIELD(image),
            TESSARO_FIELD(speed),        TESSARO_FIELD(scrollOrientation), TESSARO_FIELD(pinned),
            TESSARO_FIELD(pinnedRanges), TESSARO_FIELD(zPosition)};
    }
};

struct Background {
    std::optional<std::vector<BackgroundImage>> backgrounds;
    std::optional<std::vector<GameSound>> soundEffects;

    TESSARO_RECORD_MEMBERS(Background);
    static constexpr auto fields()
    {
        using S = Background;
        return ::tessaro::FieldList{TESSARO_FIELD(backgrounds), TESSARO_FIELD(soundEffects)};
    }
};

/// One run of ground.
struct GroundSection {
    std::optional<Uuid> id;
    std::optional<bool> isVisible;
    std::optional<std::string> distance;
    std::optional<std::string> image;
    std::optional<std::string> groundType; // case of groundBaseType
    std::optional<std::string> imageBottomLayer;
    std::optional<std::int64_t> repeatCount;
    std::optional<std::string> groundPhysicsAngleType; // case list
    std::optional<bool> stack;
    std::optional<std::string> anchorPoint;
    std::optional<double> zPosition;
    std::optional<std::vector<DeviceProperties>> devices;
    std::optional<std::vector<ExtraProperties>> extraProperties;

    TESSARO_RECORD_MEMBERS(GroundSection);
    static constexpr auto fields()
    {
        using S = GroundSection;
        return ::tessaro::FieldList{TESSARO_FIELD(id),
                                    TESSARO_FIELD(isVisible),
                                    TESSARO_FIELD(distance),
                                    TESSARO_FIELD(image),
                                    TESSARO_FIELD(groundType),
                                    TESSARO_FIELD(imageBottomLayer),
                                    TESSARO_FIELD(repeatCount),
                                    TESSARO_FIELD(groundPhysicsAngleType),
                                    TESSARO_FIELD(stack),
                                    TESSARO_FIELD(anchorPoint),
                                    TESSARO_FIELD(zPosition),
                                    TESSARO_FIELD(devices),
                                    TESSARO_FIELD(extraProperties)};
    }
};

/// An obstacle placed in a level: its template's name and what differs.
struct ObstacleLevelItem {
    std::string elementName;
    std::string name;
    double zPosition = 0;
    std::optional<bool> isVisible;
    boxed<Obstacle> properties;

    TESSARO_RECORD_MEMBERS(ObstacleLevelItem);
    static constexpr auto fields()
    {
        using S = ObstacleLevelItem;
        return ::tessaro::FieldList{TESSARO_FIELD(elementName), TESSARO_FIELD(name), TESSARO_FIELD(zPosition),
                                    TESSARO_FIELD(isVisible), TESSARO_FIELD(properties)};
    }
};

struct CharacterLevelItem {
    std::string elementName;
    std::string name;
    std::optional<std::string> sceneObjectType;
    std::optional<std::string> charClassType; // case of characterClassType
    double zPosition = 0;
    std::optional<bool> isVisible;
    std::optional<std::string> hidesBehindObject;
    boxed<Character> properties;

    TESSARO_RECORD_MEMBERS(CharacterLevelItem);
    static constexpr auto fields()
    {
        using S = CharacterLevelItem;
        return ::tessaro::FieldList{TESSARO_FIELD(elementName),       TESSARO_FIELD(name),
                                    TESSARO_FIELD(sceneObjectType),   TESSARO_FIELD(charClassType),
                                    TESSARO_FIELD(zPosition),         TESSARO_FIELD(isVisible),
                                    TESSARO_FIELD(hidesBehindObject), TESSARO_FIELD(properties)};
    }
};

struct CheckPointLocation {
    std::optional<bool> isVisible;
    double zPosition = 0;
    std::optional<std::vector<DeviceProperties>> devices;

    TESSARO_RECORD_MEMBERS(CheckPointLocation);
    static constexpr auto fields()
    {
        using S = CheckPointLocation;
        return ::tessaro::FieldList{TESSARO_FIELD(isVisible), TESSARO_FIELD(zPosition), TESSARO_FIELD(devices)};
    }
};

struct CheckPointData {
    std::string image;
    std::optional<std::int64_t> animateFromImage;
    std::optional<std::vector<GameSound>> soundEffects;
    std::optional<std::vector<CheckPointLocation>> locations;

    TESSARO_RECORD_MEMBERS(CheckPointData);
    static constexpr auto fields()
    {
        using S = CheckPointData;
        return ::tessaro::FieldList{TESSARO_FIELD(image), TESSARO_FIELD(animateFromImage), TESSARO_FIELD(soundEffects),
                                    TESSARO_FIELD(locations)};
    }
};

struct FontInfo {
    std::optional<std::string> fontName;
    std::optional<double> fontSize;
    std::optional<std::string> fontColor;

    bool operator==(const FontInfo&) const = default;
    static constexpr auto fields()
    {
        using S = FontInfo;
        return ::tessaro::FieldList{TESSARO_FIELD(fontName), TESSARO_FIELD(fontSize), TESSARO_FIELD(fontColor)};
    }
};

struct WindowItem {
    std::string type; // case of windowItemType
    std::optional<std::string> image;
    std::optional<std::string> text;
    boxed<FontInfo> fontInfo;
    double zPosition = 0;
    std::optional<std::vector<DeviceProperties>> devices;

    TESSARO_RECORD_MEMBERS(WindowItem);
    static constexpr auto fields()
    {
        using S = WindowItem;
        return ::tessaro::FieldList{TESSARO_FIELD(type),     TESSARO_FIELD(image),     TESSARO_FIELD(text),
                                    TESSARO_FIELD(fontInfo), TESSARO_FIELD(zPosition), TESSARO_FIELD(devices)};
    }
};

/// The window shown at the end of a level or of a phase.
struct LevelEndData {
    std::optional<std::string> windowOffset;
    std::optional<double> zPosition;
    std::optional<std::vector<WindowItem>> windowItems;
    std::optional<std::vector<CharacterLevelItem>> characters;
    std::optional<std::vector<ObstacleLevelItem>> obstacles;
    std::optional<std::vector<GameSound>> soundEffects;

    TESSARO_RECORD_MEMBERS(LevelEndData);
    static constexpr auto fields()
    {
        using S = LevelEndData;
        return ::tessaro::FieldList{TESSARO_FIELD(windowOffset), TESSARO_FIELD(zPosition), TESSARO_FIELD(windowItems),
                                    TESSARO_FIELD(characters),   TESSARO_FIELD(obstacles), TESSARO_FIELD(soundEffects)};
    }
};

struct Coin {
    std::optional<std::vector<DeviceProperties>> devices;
    std::optional<std::string> image;
    std::optional<bool> isVisible;
    std::optional<std::int64_t> repeatCount;
    std::optional<bool> stack;
    std::optional<bool> useGravity;
    std::optional<double> zPosition;

    TESSARO_RECORD_MEMBERS(Coin);
    static constexpr auto fields()
    {
        using S = Coin;
        return ::tessaro::FieldList{TESSARO_FIELD(devices),     TESSARO_FIELD(image), TESSARO_FIELD(isVisible),
                                    TESSARO_FIELD(repeatCount), TESSARO_FIELD(stack), TESSARO_FIELD(useGravity),
                                    TESSARO_FIELD(zPosition)};
    }
};

struct Coins {
    std::optional<std::vector<Coin>> coins;
    std::optional<std::string> image;
    std::optional<std::int64_t> startCoinNumber;
    std::optional<std::string> repeatDistance;
    std::optional<std::vector<GameSound>> soundEffects;

    TESSARO_RECORD_MEMBERS(Coins);
    static constexpr auto fields()
    {
        using S = Coins;
        return ::tessaro::FieldList{TESSARO_FIELD(coins), TESSARO_FIELD(image), TESSARO_FIELD(startCoinNumber),
                                    TESSARO_FIELD(repeatDistance), TESSARO_FIELD(soundEffects)};
    }
};

struct Shield {
    std::optional<std::string> image;
    std::optional<std::vector<DeviceProperties>> devices;
    std::optional<bool> isVisible;
    std::optional<double> timed;
    std::optional<double> zPosition;

    TESSARO_RECORD_MEMBERS(Shield);
    static constexpr auto fields()
    {
        using S = Shield;
        return ::tessaro::FieldList{TESSARO_FIELD(image), TESSARO_FIELD(devices), TESSARO_FIELD(isVisible),
                                    TESSARO_FIELD(timed), TESSARO_FIELD(zPosition)};
    }
};

struct Shields {
    std::optional<std::string> image;
    std::optional<std::vector<Shield>> shields;
    std::optional<std::vector<GameSound>> soundEffects;

    TESSARO_RECORD_MEMBERS(Shields);
    static constexpr auto fields()
    {
        using S = Shields;
        return ::tessaro::FieldList{TESSARO_FIELD(image), TESSARO_FIELD(shields), TESSARO_FIELD(soundEffects)};
    }
};

struct Artifact {
    std::optional<double> alpha;
    std::optional<std::vector<DeviceProperties>> devices;
    std::optional<std::string> image;
    std::optional<bool> isVisible;
    std::optional<std::string> objectClassType;
    std::optional<double> zPosition;

    TESSARO_RECORD_MEMBERS(Artifact);
    static constexpr auto fields()
    {
        using S = Artifact;
        return ::tessaro::FieldList{TESSARO_FIELD(alpha),     TESSARO_FIELD(devices),         TESSARO_FIELD(image),
                                    TESSARO_FIELD(isVisible), TESSARO_FIELD(objectClassType), TESSARO_FIELD(zPosition)};
    }
};

struct Artifacts {
    std::optional<std::vector<Artifact>> artifacts;
    std::optional<std::string> image;
    std::optional<std::vector<GameSound>> soundEffects;
    std::optional<std::int64_t> startArtifactNumber;

    TESSARO_RECORD_MEMBERS(Artifacts);
    static constexpr auto fields()
    {
        using S = Artifacts;
        return ::tessaro::FieldList{TESSARO_FIELD(artifacts), TESSARO_FIELD(image), TESSARO_FIELD(soundEffects),
                                    TESSARO_FIELD(startArtifactNumber)};
    }
};

struct Level {
    std::optional<Uuid> id;
    LevelSettings settings;
    boxed<Background> background;
    std::optional<std::vector<GroundSection>> ground;
    std::optional<std::vector<ObstacleLevelItem>> obstacles;
    boxed<CheckPointData> checkpoints;
    boxed<LevelEndData> levelEnd;
    boxed<LevelEndData> phaseEnd;
    std::optional<std::vector<CharacterLevelItem>> characters;
    boxed<Coins> coins;
    boxed<Shields> shields;
    boxed<Artifacts> artifacts;

    TESSARO_RECORD_MEMBERS(Level);
    static constexpr auto fields()
    {
        using S = Level;
        return ::tessaro::FieldList{TESSARO_FIELD(id),       TESSARO_FIELD(settings),  TESSARO_FIELD(background),
                                    TESSARO_FIELD(ground),   TESSARO_FIELD(obstacles), TESSARO_FIELD(checkpoints),
                                    TESSARO_FIELD(levelEnd), TESSARO_FIELD(phaseEnd),  TESSARO_FIELD(characters),
                                    TESSARO_FIELD(coins),    TESSARO_FIELD(shields),   TESSARO_FIELD(artifacts)};
    }
};

} // namespace tessaro
