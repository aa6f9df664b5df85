// Configuration files of a workspace or a game: the three element catalogues,
// project files and a game's application configuration.
#pragma once

#include "AppConfig.h"
#include "ConfigRecords.h"
#include "ElementRecords.h"
#include "Enumerations.h"
#include "LevelRecords.h"

#include <optional>
#include <string>
#include <vector>

namespace tessaro {

/// The record type a configuration file of each kind holds.
template <configType Type>
struct ConfigRecord;
template <>
struct ConfigRecord<configType::app> {
    using type = BaseConfig;
};
template <>
struct ConfigRecord<configType::characters> {
    using type = Character;
};
template <>
struct ConfigRecord<configType::level> {
    using type = Level;
};
template <>
struct ConfigRecord<configType::objects> {
    using type = GenericObject;
};
template <>
struct ConfigRecord<configType::obstacles> {
    using type = Obstacle;
};

template <configType Type>
using ConfigList = std::vector<typename ConfigRecord<Type>::type>;

/// Reads folder + name + "." + extension ("plist" when none). Records without
/// an id get one; for `app` the first entry becomes one BaseConfig. An empty
/// list and a configuration error line on failure.
template <configType Type>
ConfigList<Type> loadConfig(const std::string& folder, const std::string& name,
                            const std::optional<std::string>& extension);

/// Writes the global catalogue of `Type` to folder + name + "." + extension.
/// Only the three catalogue kinds can be saved.
bool saveConfig(const std::string& name, const std::string& extension, const std::string& folder, configType type);

/// Loads "ObjectList", "CharacterList" and "ObstacleList" from `assetsFolder`
/// (ending in "/") into the three global catalogues, replacing them.
void loadCatalogues(const std::string& assetsFolder);

/// The global catalogues, alive for the whole run.
std::vector<GenericObject>& objectCatalogue();
std::vector<Character>& characterCatalogue();
std::vector<Obstacle>& obstacleCatalogue();

/// The editor's configuration, one value for the whole run.
appConfig& globalAppConfig();

/// BaseConfig of a game from the first entry of its configuration file.
BaseConfig baseConfigFrom(const LoadedConfig& loaded);

} // namespace tessaro
