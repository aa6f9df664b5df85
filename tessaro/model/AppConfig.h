// Application-level configuration: the defaults of the editor and of a game.
#pragma once

#include "Enumerations.h"
#include "Geometry.h"
#include "LevelRecords.h"

namespace tessaro {

/// Application defaults. A plain value starts as a game's defaults;
/// `BaseConfig::editorDefaults()` gives the editor's.
struct BaseConfig {
    bool darkMode = false;
    imageType defaultImageType = imageType::png;
    soundType defaultSoundType = soundType::wav;
    imageScaling defaultImageScale = imageScaling::x2;
    sceneOrientationType defaultSceneOrientation = sceneOrientationType::landscape;
    std::string defaultScaleMode = "aspectFit";
    PointValue defaultAnchorPoint{0.5, 0.5};
    SizeValue defaultSceneSize{1024, 768};

    static BaseConfig editorDefaults()
    {
        BaseConfig config;
        config.defaultScaleMode = "aspectFill";
        config.defaultSceneSize = {874, 402};
        return config;
    }
    bool operator==(const BaseConfig&) const = default;
};

/// The editor's configuration.
struct appConfig {
    BaseConfig base = BaseConfig::editorDefaults();
    std::vector<DebugOption> debugOptions;
    bool operator==(const appConfig&) const = default;
};

/// A game's application configuration file; every field optional.
struct LoadedConfig {
    std::optional<bool> darkMode;
    std::optional<std::string> defaultImageType;
    std::optional<std::string> defaultSoundType;
    std::optional<std::string> defaultImageScale;

    bool operator==(const LoadedConfig&) const = default;
    static constexpr auto fields()
    {
        using S = LoadedConfig;
        return ::tessaro::FieldList{TESSARO_FIELD(darkMode), TESSARO_FIELD(defaultImageType),
                                    TESSARO_FIELD(defaultSoundType), TESSARO_FIELD(defaultImageScale)};
    }
};

/// The title scene of a game; the editor neither reads nor writes it.
struct TitleSceneConfig {
    std::optional<std::vector<GameSound>> backgroundSounds;
    std::optional<std::vector<CharacterLevelItem>> titleSceneCharacters;

    bool operator==(const TitleSceneConfig&) const = default;
    static constexpr auto fields()
    {
        using S = TitleSceneConfig;
        return ::tessaro::FieldList{TESSARO_FIELD(backgroundSounds), TESSARO_FIELD(titleSceneCharacters)};
    }
};

} // namespace tessaro
