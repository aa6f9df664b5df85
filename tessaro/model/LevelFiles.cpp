#include "LevelFiles.h"

#include "Diagnostics.h"
#include "FileIO.h"
#include "PlistCodec.h"
#include "ValueText.h"

#include <algorithm>

namespace tessaro {

namespace {

void reportConfigurationError(const std::string& where, const std::string& error)
{
    diagnostic("Configuration error (" + where + "): " + error);
}

bool groundHoldsPositions(const Level& level)
{
    if (!level.ground)
        return false;
    for (const GroundSection& section : *level.ground)
        if (section.devices)
            for (const DeviceProperties& device : *section.devices)
                if (device.position)
                    return true;
    return false;
}

void renewSoundIds(std::optional<std::vector<GameSound>>& sounds)
{
    if (!sounds)
        return;
    for (GameSound& sound : *sounds)
        sound.id = Uuid::create();
}

template <class Properties>
void fillElementIds(boxed<Properties>& properties)
{
    if (!properties)
        return;
    if (!properties->id)
        properties->id = Uuid::create();
    if (!properties->animation)
        return;
    AnimationProperty& animation = *properties->animation;
    if (!animation.id)
        animation.id = Uuid::create();
    if (animation.cycleEndProperties)
        for (CycleEndProperties& cycleEnd : *animation.cycleEndProperties)
            if (!cycleEnd.id)
                cycleEnd.id = Uuid::create();
}

} // namespace

LevelsReadResult readLevels(const std::string& path)
{
    RecordFileResult<Level> file = readRecordFile<Level>(path);
    LevelsReadResult result;
    result.levels = std::move(file.records);
    result.ok = file.ok;
    result.error = std::move(file.error);
    if (!result.ok)
        reportConfigurationError(path, result.error);
    return result;
}

std::vector<Level> loadLevels(const std::string& path)
{
    return readLevels(path).levels;
}

bool saveLevels(const std::vector<Level>& levels, const std::string& path)
{
    try {
        std::string bytes;
        if (std::none_of(levels.begin(), levels.end(), groundHoldsPositions)) {
            bytes = encodeRecordList(levels);
        } else {
            std::vector<Level> stored = levels;
            for (Level& level : stored)
                if (level.ground)
                    for (GroundSection& section : *level.ground)
                        if (section.devices)
                            for (DeviceProperties& device : *section.devices)
                                device.position.reset();
            bytes = encodeRecordList(stored);
        }
        if (auto error = writeFileAtomically(path, bytes)) {
            diagnostic(*error);
            return false;
        }
        return true;
    } catch (const CodingError& error) {
        diagnostic(error.description());
    } catch (const std::bad_alloc&) {
        diagnostic("Not enough memory to write \"" + path + "\".");
    }
    return false;
}

void normaliseOpenedLevels(std::vector<Level>& levels)
{
    for (Level& level : levels) {
        level.id = Uuid::create();
        if (level.background)
            renewSoundIds(level.background->soundEffects);
        if (level.checkpoints)
            renewSoundIds(level.checkpoints->soundEffects);
        if (level.coins)
            renewSoundIds(level.coins->soundEffects);
        if (level.artifacts)
            renewSoundIds(level.artifacts->soundEffects);
        if (level.shields)
            renewSoundIds(level.shields->soundEffects);
        if (level.levelEnd)
            renewSoundIds(level.levelEnd->soundEffects);
        if (level.phaseEnd)
            renewSoundIds(level.phaseEnd->soundEffects);
        if (level.ground)
            for (GroundSection& section : *level.ground)
                if (!section.zPosition)
                    section.zPosition = defaultGroundZPosition;
        if (level.obstacles)
            for (ObstacleLevelItem& item : *level.obstacles)
                fillElementIds(item.properties);
        if (level.characters)
            for (CharacterLevelItem& item : *level.characters)
                fillElementIds(item.properties);
    }
}

Level newLevel(const Uuid& id, const BaseConfig& config)
{
    Level level;
    level.id = id;
    level.settings.id = Uuid::create();
    level.settings.scrollOrientation = std::string(caseText(scrollOrientationType::horizontal));
    level.settings.sceneOrientation = std::string(caseText(config.defaultSceneOrientation));
    level.settings.scaleMode = config.defaultScaleMode;
    level.settings.size = textFromSize(config.defaultSceneSize);
    level.settings.anchorPoint = textFromPoint(config.defaultAnchorPoint);

    Background& background = level.background.emplace();
    background.backgrounds.emplace();
    background.soundEffects.emplace();
    level.ground.emplace();
    level.obstacles.emplace();
    level.characters.emplace();

    CheckPointData& checkpoints = level.checkpoints.emplace();
    checkpoints.image = "";
    checkpoints.locations.emplace();

    Coins& coins = level.coins.emplace();
    coins.startCoinNumber = 0;
    coins.repeatDistance = "{10, 10}"; // the historic literal, blank included
    coins.soundEffects.emplace();

    level.shields.emplace();
    level.artifacts.emplace();
    return level;
}

} // namespace tessaro
