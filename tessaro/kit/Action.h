// Actions: timed changes of a node, run by the scene's frame clock.
//
// An Action is a description; running it on a node makes a runner that keeps
// the progress, so one action may run on many nodes at once. Time comes only
// from Scene::processFrame(currentTime): an action started during a frame
// begins at that frame's time, and every later frame advances it by the
// difference of the times given, so a test controls time exactly.
//
// Timing modes warp the time of an action with a finite duration:
//   linear        t
//   easeIn        t^2
//   easeOut       1 - (1 - t)^2
//   easeInEaseOut 3t^2 - 2t^3
// A timing function, when set, replaces the mode's curve.
#pragma once

#include "Texture.h"

#include <QColor>
#include <QPointF>
#include <QString>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace tessaro::kit {

class Node;
class Action;
using ActionPtr = std::shared_ptr<Action>;

enum class ActionTimingMode { Linear, EaseIn, EaseOut, EaseInEaseOut };

/// The progress of one running action. Internal to the kit, but declared here
/// so that nodes can hold them.
class ActionRunner {
public:
    virtual ~ActionRunner() = default;
    /// Advances by `dt` seconds of the parent's time. Returns the time left
    /// over once the action has finished (>= 0), or a negative number while it
    /// still runs.
    double advance(Node& node, double dt);
    bool finished() const { return m_finished; }

protected:
    explicit ActionRunner(const Action& action);
    /// Called once before the first advance.
    virtual void start(Node&) {}
    /// Advances the action's own (already warped) time. Same result as advance.
    virtual double step(Node& node, double dt) = 0;
    /// True when the action being advanced on `node` has been removed (by a
    /// block inside it, for instance): composites stop at once.
    static bool cancelled(const Node& node);

    double m_duration;
    double m_speed;
    std::function<double(double)> m_timing; // empty for linear
    double m_elapsed = 0;
    double m_warped = 0;
    bool m_started = false;
    bool m_finished = false;
};

class Action : public std::enable_shared_from_this<Action> {
public:
    virtual ~Action() = default;

    /// Seconds; infinity for actions that repeat for ever.
    double duration() const { return m_duration; }
    void setDuration(double seconds) { m_duration = seconds; }
    ActionTimingMode timingMode() const { return m_timingMode; }
    void setTimingMode(ActionTimingMode mode) { m_timingMode = mode; }
    /// A custom curve from [0,1] to [0,1]; replaces the timing mode's curve.
    void setTimingFunction(std::function<double(double)> f) { m_timingFunction = std::move(f); }
    const std::function<double(double)>& timingFunction() const { return m_timingFunction; }
    /// Multiplies the rate at which the action runs.
    double speed() const { return m_speed; }
    void setSpeed(double speed) { m_speed = speed; }

    /// The action that undoes this one when run after it: moves, rotations,
    /// scalings and fades by an amount are negated (scaling inverted),
    /// sequences run their reversed children backwards, texture animations
    /// play backwards. Actions towards an absolute value, blocks and custom
    /// actions are their own reverse. The ease-in and ease-out modes swap.
    ActionPtr reversedAction() const;

    /// Makes the runner that plays this action on one node.
    virtual std::shared_ptr<ActionRunner> makeRunner() const = 0;

    // --- builders ----------------------------------------------------------
    static ActionPtr moveBy(qreal dx, qreal dy, double duration);
    static ActionPtr moveBy(const QPointF& delta, double duration) { return moveBy(delta.x(), delta.y(), duration); }
    static ActionPtr moveTo(const QPointF& location, double duration);
    static ActionPtr moveToX(qreal x, double duration);
    static ActionPtr moveToY(qreal y, double duration);
    static ActionPtr rotateByAngle(qreal radians, double duration);
    /// Turns to `radians`; with shortestUnitArc the turn takes the shorter way round.
    static ActionPtr rotateToAngle(qreal radians, double duration, bool shortestUnitArc = false);
    static ActionPtr scaleBy(qreal scale, double duration);
    static ActionPtr scaleXBy(qreal xScale, qreal yScale, double duration);
    static ActionPtr scaleTo(qreal scale, double duration);
    static ActionPtr scaleXTo(qreal xScale, double duration);
    static ActionPtr scaleYTo(qreal yScale, double duration);
    static ActionPtr scaleXYTo(qreal xScale, qreal yScale, double duration);
    static ActionPtr fadeInWithDuration(double duration);
    static ActionPtr fadeOutWithDuration(double duration);
    static ActionPtr fadeAlphaBy(qreal delta, double duration);
    static ActionPtr fadeAlphaTo(qreal alpha, double duration);
    /// Sprites only: blends the colour and the blend factor towards the targets.
    static ActionPtr colorizeWithColor(const QColor& color, qreal colorBlendFactor, double duration);
    static ActionPtr colorizeWithColorBlendFactor(qreal colorBlendFactor, double duration);
    /// Sprites only: shows the textures in turn, each for `timePerFrame`. With
    /// `resize` the sprite takes each texture's size; with `restore` it gets its
    /// first texture (and size) back at the end.
    static ActionPtr animateWithTextures(const std::vector<TexturePtr>& textures, double timePerFrame,
                                         bool resize = false, bool restore = false);
    /// Sprites only: sets the texture at once.
    static ActionPtr setTexture(const TexturePtr& texture, bool resize = false);
    static ActionPtr waitForDuration(double duration);
    /// Waits a duration drawn uniformly from duration +- range/2 at each run.
    static ActionPtr waitForDuration(double duration, double range);
    static ActionPtr sequence(const std::vector<ActionPtr>& actions);
    static ActionPtr group(const std::vector<ActionPtr>& actions);
    static ActionPtr repeatAction(const ActionPtr& action, int count);
    static ActionPtr repeatActionForever(const ActionPtr& action);
    /// Calls `block` once, taking no time.
    static ActionPtr runBlock(std::function<void()> block);
    /// Calls `block` with the node every frame for `duration`, with the time
    /// elapsed so far (the last call gets `duration`).
    static ActionPtr customActionWithDuration(double duration, std::function<void(Node&, double elapsed)> block);
    static ActionPtr removeFromParent();
    static ActionPtr hide();
    static ActionPtr unhide();
    /// Audio nodes only: changes the volume.
    static ActionPtr changeVolumeTo(float volume, double duration);
    /// Plays a sound file found through the resource search paths. With
    /// `waitForCompletion` the action lasts as long as the sound (known for WAV
    /// files), otherwise it takes no time.
    static ActionPtr playSoundFileNamed(const QString& fileName, bool waitForCompletion);
    /// An action that does nothing and takes no time.
    static ActionPtr empty() { return sequence({}); }

protected:
    explicit Action(double duration) : m_duration(duration) {}
    /// The reverse of this action's own effect (timing is copied by the caller).
    virtual ActionPtr makeReversed() const = 0;

private:
    friend class ActionRunner;
    double m_duration;
    double m_speed = 1;
    ActionTimingMode m_timingMode = ActionTimingMode::Linear;
    std::function<double(double)> m_timingFunction;
};

/// The timing curve of a mode, as listed above.
double applyTimingMode(ActionTimingMode mode, double t);

} // namespace tessaro::kit
