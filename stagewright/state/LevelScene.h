// The seam between the application state and the canvas.
//
// A project tab edits its selected level through a `LevelScene`: the scene
// loads a level of the tab's list into nodes, and writes the nodes back into
// the level record. The canvas implements this interface; the application
// state only calls it, and every operation of a tab also works without a scene.
#pragma once

#include "StateTypes.h"

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>
#include <tessaro/model/Uuid.h>

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace stagewright {

class ProjectTab;
class SceneHost;

/// A colour as red, green, blue and alpha from 0 to 255.
struct SceneColor {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 255;
    bool operator==(const SceneColor&) const = default;
};

/// What a new scene starts with.
struct SceneSetup {
    QString name = QStringLiteral("Scene");
    SceneColor backgroundColor{170, 170, 170, 255}; // light grey
    tessaro::PointValue anchorPoint{0.5, 0.5};
    sceneScaleMode scaleMode = sceneScaleMode::aspectFill;
    tessaro::sceneOrientationType orientation = tessaro::sceneOrientationType::landscape;
    tessaro::SizeValue size{874, 402};
};

/// The working copy of one level of a tab.
///
/// Contract for implementations:
/// - `loadLevel(id)` fills the scene from the level with that id in its tab's
///   `levelConfig`, and takes the level's size, anchor point, scale mode and
///   orientation. An id that names no level leaves the scene empty.
/// - `writeBack(id)` stores the scene's nodes into the level with that id; an
///   id that names no level changes nothing.
/// - `releaseContent()` removes every node; the scene is not used afterwards.
/// - `updateOverlays()` lays the overlay nodes out for the current size.
class LevelScene {
public:
    virtual ~LevelScene();

    virtual void loadLevel(const tessaro::Uuid& levelId) = 0;
    virtual void writeBack(const tessaro::Uuid& levelId) = 0;

    virtual tessaro::SizeValue size() const = 0;
    virtual void setSize(tessaro::SizeValue size) = 0;
    virtual tessaro::PointValue anchorPoint() const = 0;
    virtual void setAnchorPoint(tessaro::PointValue anchor) = 0;
    virtual sceneScaleMode scaleMode() const = 0;
    virtual void setScaleMode(sceneScaleMode mode) = 0;
    virtual tessaro::sceneOrientationType orientation() const = 0;
    virtual void setOrientation(tessaro::sceneOrientationType orientation) = 0;

    virtual void releaseContent() = 0;
    virtual void updateOverlays() = 0;

    /// The view that shows this scene, or none. A host sets it when it
    /// presents the scene and clears it when it presents another.
    SceneHost* host() const { return m_host; }
    void setHost(SceneHost* host) { m_host = host; }

private:
    SceneHost* m_host = nullptr;
};

/// A view that shows one scene at a time.
class SceneHost {
public:
    virtual ~SceneHost();
    /// Shows `scene`, or nothing for a null pointer. Implementations call
    /// `setHost(this)` on the scene they show and `setHost(nullptr)` on the one
    /// they stop showing, and a host that goes away clears the host of the
    /// scene it shows.
    virtual void presentScene(const std::shared_ptr<LevelScene>& scene) = 0;
    /// Shows the debugging overlays named in `options` and hides the others.
    /// A host without such overlays ignores them.
    virtual void showDebugOptions(const std::vector<tessaro::DebugOption>& options);
};

/// Builds the scene of a tab. The tab passed is the one whose levels the scene
/// edits; the scene may keep a reference to it for as long as it lives.
using SceneFactory = std::function<std::shared_ptr<LevelScene>(ProjectTab& tab, const SceneSetup& setup)>;

} // namespace stagewright
