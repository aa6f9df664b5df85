// From the items of a level to the records the factories take: catalogue
// look-up and the merge of an item's sparse record over its template.
#pragma once

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/LevelRecords.h>

#include <string>
#include <vector>

namespace tessaro {

/// The first record of `catalogue` whose elementName is `name`, or null.
const Obstacle* findObstacle(const std::vector<Obstacle>& catalogue, const std::string& name);
const Character* findCharacter(const std::vector<Character>& catalogue, const std::string& name);
/// The first object of the kind `kind` named `name`, or null.
const GenericObject* findObject(const std::vector<GenericObject>& catalogue, const std::string& name,
                                sceneObjectType kind);

/// Device entries of an item over those of its template: an entry of the
/// item wins field by field over the template's entry for the same devices;
/// template entries for other devices stay.
std::vector<DeviceProperties> mergedDevices(const std::vector<DeviceProperties>& item,
                                            const std::vector<DeviceProperties>& catalogue);

/// The obstacle that a level item stands for: every value the item sets
/// wins over its catalogue record, device entries and the animation merge
/// field by field, and the item's name, depth and visibility are the
/// obstacle's.
Obstacle mergedObstacle(const ObstacleLevelItem& item, const Obstacle& catalogue);

} // namespace tessaro
