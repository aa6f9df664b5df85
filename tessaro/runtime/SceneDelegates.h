// The two hooks through which a game receives its scene's frame loop,
// callbacks and physics contacts. The library has no game loop of its own:
// every frame reaches the game through SceneBaseCustomDelegate::update.
#pragma once

#include <tessaro/kit/Node.h>
#include <tessaro/kit/PhysicsWorld.h>
#include <tessaro/model/Enumerations.h>

#include <QString>

namespace tessaro {

namespace kit {
class SceneView;
}

/// Frame loop and sprite callbacks. Every operation does nothing by default,
/// so a game implements only what it needs.
class SceneBaseCustomDelegate {
public:
    virtual ~SceneBaseCustomDelegate() = default;
    /// The scene has been presented by `view` (null for a scene run without one).
    virtual void didMove(kit::SceneView* view) { (void)view; }
    /// A sprite reports `name` (its callbackFunction or cycle-end name);
    /// `object` is the sprite, or null.
    virtual void callback(callbackType type, const QString& name, const kit::NodePtr& object)
    {
        (void)type;
        (void)name;
        (void)object;
    }
    /// Every frame, before actions and physics.
    virtual void update(double currentTime) { (void)currentTime; }
    /// Every frame, after actions and physics.
    virtual void didFinishUpdate() {}
};

/// Physics contacts of the scene.
class SceneBaseContactDelegate {
public:
    virtual ~SceneBaseContactDelegate() = default;
    virtual void didBegin(const kit::PhysicsContact& contact) { (void)contact; }
    virtual void didEnd(const kit::PhysicsContact& contact) { (void)contact; }
};

} // namespace tessaro
