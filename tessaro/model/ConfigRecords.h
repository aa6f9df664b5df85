// The records of a game's configuration files: the application defaults and
// the title scene.
#pragma once

#include "LevelRecords.h"

namespace tessaro {

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
