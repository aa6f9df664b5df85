// Placing the items of a level on the canvas: each item becomes an element
// node on the layer of its kind, where the layout puts it, with its picture,
// size handle, body and records. The placement keeps the catalogue records
// of a load, copied once per name, and says once per load which names the
// catalogues lack.
#pragma once

#include "ElementNode.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace stagewright {

class SceneEditor;

class ElementPlacement {
public:
    explicit ElementPlacement(SceneEditor& scene) : m_scene(scene) {}

    ElementNodePtr placeObstacle(const tessaro::ObstacleLevelItem& item);
    ElementNodePtr placeCharacter(const tessaro::CharacterLevelItem& item);
    ElementNodePtr placeCheckpoint(const tessaro::CheckPointLocation& location, const std::string& image);
    ElementNodePtr placeCoin(const tessaro::Coin& coin, double dx, double dy);
    ElementNodePtr placeArtifact(const tessaro::Artifact& artifact);
    ElementNodePtr placeShield(const tessaro::Shield& shield, const std::string& image);
    /// One element of the catalogue named `elementName` of `kind`, at the left
    /// edge of the part of the level in view; the picker's call. Null when the
    /// catalogue has no such element (a diagnostic line says so).
    ElementNodePtr addElement(tessaro::sceneObjectType kind, const std::string& elementName);
    /// Lays the repeated copies of an obstacle whose override asks for a row
    /// right after it in its layer, in place of the copies it had.
    void addRepeatedCopies(const ElementNodePtr& owner);

    /// Forgets the catalogue records of the last load.
    void forgetCatalogueEntries() { m_catalogueEntries.clear(); }

private:
    /// A hidden node of `kind` holding a level item the scene cannot show.
    ElementNodePtr keepUnshown(tessaro::sceneObjectType kind, LevelItemRecord item);
    /// Says once per load that `name` of `kind` has no catalogue entry.
    void reportMissingOnce(tessaro::sceneObjectType kind, const std::string& name, const std::string& line);
    /// The last steps of placing any element: its size handle (not for ground
    /// and backgrounds), its layer, its body (when it has one) and its device
    /// values.
    void finishPlacing(const ElementNodePtr& node, const tessaro::kit::NodePtr& layer,
                       const std::optional<ElementBodyMasks>& body);
    /// The catalogue records of this load, copied once per name.
    std::shared_ptr<const CatalogueRecord> catalogueEntry(tessaro::sceneObjectType kind, const std::string& name,
                                                          std::optional<tessaro::sceneObjectType> objectType);

    SceneEditor& m_scene;
    std::map<std::pair<int, std::string>, std::shared_ptr<const CatalogueRecord>> m_catalogueEntries;
    /// Missing catalogue entries already reported, by kind and name.
    std::set<std::pair<int, std::string>> m_reportedMissing;
};

} // namespace stagewright
