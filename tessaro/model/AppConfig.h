// Application-level configuration: the defaults of the editor and of a game.
#pragma once

#include "Enumerations.h"
#include "Geometry.h"

#include <string>
#include <vector>

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

} // namespace tessaro
