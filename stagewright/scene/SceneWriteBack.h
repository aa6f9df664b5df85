// The values a write-back stores: the level's settings, ground and items as
// the canvas shows them, each collected from the nodes of its layer.
#pragma once

#include <tessaro/model/LevelRecords.h>

#include <optional>
#include <vector>

namespace stagewright {

class ElementNode;
class SceneEditor;

class SceneWriteBack {
public:
    explicit SceneWriteBack(const SceneEditor& scene) : m_scene(scene) {}

    tessaro::LevelSettings collectSettings(const tessaro::Level* level) const;
    std::vector<tessaro::GroundSection> collectGround() const;
    std::vector<tessaro::ObstacleLevelItem> collectObstacles() const;
    std::vector<tessaro::CharacterLevelItem> collectCharacters() const;
    tessaro::Artifacts collectArtifacts(const tessaro::Level* level) const;
    tessaro::Shields collectShields(const tessaro::Level* level) const;
    tessaro::Coins collectCoins(const tessaro::Level* level) const;
    tessaro::CheckPointData collectCheckpoints(const tessaro::Level* level) const;
    /// The record of one node (none for repeated copies and nodes of another kind).
    std::optional<tessaro::ObstacleLevelItem> obstacleItem(const ElementNode& node) const;
    std::optional<tessaro::CharacterLevelItem> characterItem(const ElementNode& node) const;

private:
    const SceneEditor& m_scene;
};

} // namespace stagewright
