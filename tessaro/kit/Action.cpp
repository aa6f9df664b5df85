#include "Action.h"

#include "AudioNode.h"
#include "Node.h"
#include "SpriteNode.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tessaro::kit {

namespace {
// Finishing tolerance: sums of frame times rarely add up exactly.
constexpr double kEps = 1e-9;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
} // namespace

double applyTimingMode(ActionTimingMode mode, double t)
{
    t = std::clamp(t, 0.0, 1.0);
    switch (mode) {
    case ActionTimingMode::Linear: return t;
    case ActionTimingMode::EaseIn: return t * t;
    case ActionTimingMode::EaseOut: return 1 - (1 - t) * (1 - t);
    case ActionTimingMode::EaseInEaseOut: return t * t * (3 - 2 * t);
    }
    return t;
}

// --- runner base ------------------------------------------------------------------

ActionRunner::ActionRunner(const Action& action) : m_duration(action.duration()), m_speed(action.speed())
{
    if (action.timingFunction()) {
        m_timing = action.timingFunction();
    } else if (action.timingMode() != ActionTimingMode::Linear) {
        const ActionTimingMode mode = action.timingMode();
        m_timing = [mode](double t) { return applyTimingMode(mode, t); };
    }
}

bool ActionRunner::cancelled(const Node& node)
{
    return node.m_actionDepth > 0 && node.m_currentAction < node.m_actions.size() &&
        node.m_actions[node.m_currentAction].removed;
}

double ActionRunner::advance(Node& node, double dt)
{
    if (m_finished)
        return dt;
    if (m_speed <= 0)
        return -1;
    dt *= m_speed;
    if (!m_started) {
        m_started = true;
        start(node);
    }
    double left;
    if (m_timing && std::isfinite(m_duration) && m_duration > 0) {
        const double e = m_elapsed + dt;
        const bool done = e >= m_duration - kEps;
        const double w = done ? m_duration : m_timing(std::min(e, m_duration) / m_duration) * m_duration;
        const double inner = w - m_warped;
        m_warped = w;
        m_elapsed = e;
        double r = step(node, inner);
        if (done && r < 0)
            r = step(node, kEps * 4); // rounding inside a composite
        left = done ? std::max(0.0, e - m_duration) : (r >= 0 ? 0.0 : -1.0);
        if (left < 0)
            return -1;
    } else {
        left = step(node, dt);
        if (left < 0)
            return -1;
    }
    m_finished = true;
    return left / m_speed;
}

namespace {

// --- leaves with a duration --------------------------------------------------------

// A runner that maps its elapsed time to a progress p in [0, 1].
class TimedRunner : public ActionRunner {
public:
    using ActionRunner::ActionRunner;

protected:
    double step(Node& node, double dt) override
    {
        m_t += dt;
        if (m_duration <= 0 || m_t >= m_duration - kEps) {
            update(node, 1.0);
            return std::max(0.0, m_t - std::max(0.0, m_duration));
        }
        update(node, m_t / m_duration);
        return -1;
    }
    virtual void update(Node& node, double p) = 0;
    double m_t = 0;
};

template <class Self>
class SimpleAction : public Action {
public:
    using Action::Action;

protected:
    ActionPtr makeReversed() const override { return std::make_shared<Self>(static_cast<const Self&>(*this)); }
};

class MoveByAction : public Action {
public:
    MoveByAction(QPointF d, double duration) : Action(duration), m_delta(d) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const MoveByAction& a) : TimedRunner(a), m_delta(a.m_delta) {}
            void update(Node& node, double p) override
            {
                node.setPosition(node.position() + m_delta * (p - m_last));
                m_last = p;
            }
            QPointF m_delta;
            double m_last = 0;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override { return std::make_shared<MoveByAction>(-m_delta, duration()); }

private:
    QPointF m_delta;
};

class MoveToAction : public SimpleAction<MoveToAction> {
public:
    MoveToAction(std::optional<qreal> x, std::optional<qreal> y, double duration)
        : SimpleAction(duration),
          m_x(x),
          m_y(y)
    {
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const MoveToAction& a) : TimedRunner(a), m_x(a.m_x), m_y(a.m_y) {}
            void start(Node& node) override { m_from = node.position(); }
            void update(Node& node, double p) override
            {
                QPointF pos = node.position();
                if (m_x)
                    pos.setX(p >= 1 ? *m_x : m_from.x() + (*m_x - m_from.x()) * p);
                if (m_y)
                    pos.setY(p >= 1 ? *m_y : m_from.y() + (*m_y - m_from.y()) * p);
                node.setPosition(pos);
            }
            std::optional<qreal> m_x, m_y;
            QPointF m_from;
        };
        return std::make_shared<R>(*this);
    }

private:
    std::optional<qreal> m_x, m_y;
};

class RotateByAction : public Action {
public:
    RotateByAction(qreal angle, double duration) : Action(duration), m_angle(angle) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const RotateByAction& a) : TimedRunner(a), m_angle(a.m_angle) {}
            void update(Node& node, double p) override
            {
                node.setZRotation(node.zRotation() + m_angle * (p - m_last));
                m_last = p;
            }
            qreal m_angle;
            double m_last = 0;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override { return std::make_shared<RotateByAction>(-m_angle, duration()); }

private:
    qreal m_angle;
};

class RotateToAction : public SimpleAction<RotateToAction> {
public:
    RotateToAction(qreal angle, double duration, bool shortest)
        : SimpleAction(duration),
          m_angle(angle),
          m_shortest(shortest)
    {
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const RotateToAction& a) : TimedRunner(a), m_to(a.m_angle), m_shortest(a.m_shortest) {}
            void start(Node& node) override
            {
                m_from = node.zRotation();
                if (m_shortest) {
                    double d = std::remainder(m_to - m_from, 2 * M_PI);
                    m_to = m_from + d;
                }
            }
            void update(Node& node, double p) override
            {
                node.setZRotation(p >= 1 ? m_to : m_from + (m_to - m_from) * p);
            }
            qreal m_to, m_from = 0;
            bool m_shortest;
        };
        return std::make_shared<R>(*this);
    }

private:
    qreal m_angle;
    bool m_shortest;
};

class ScaleByAction : public Action {
public:
    ScaleByAction(qreal sx, qreal sy, double duration) : Action(duration), m_sx(sx), m_sy(sy) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const ScaleByAction& a) : TimedRunner(a), m_sx(a.m_sx), m_sy(a.m_sy) {}
            void start(Node& node) override
            {
                m_x0 = node.xScale();
                m_y0 = node.yScale();
            }
            void update(Node& node, double p) override
            {
                node.setXScale(m_x0 * (1 + (m_sx - 1) * p));
                node.setYScale(m_y0 * (1 + (m_sy - 1) * p));
            }
            qreal m_sx, m_sy, m_x0 = 1, m_y0 = 1;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override
    {
        return std::make_shared<ScaleByAction>(m_sx != 0 ? 1 / m_sx : 0, m_sy != 0 ? 1 / m_sy : 0, duration());
    }

private:
    qreal m_sx, m_sy;
};

class ScaleToAction : public SimpleAction<ScaleToAction> {
public:
    ScaleToAction(std::optional<qreal> sx, std::optional<qreal> sy, double duration)
        : SimpleAction(duration),
          m_sx(sx),
          m_sy(sy)
    {
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const ScaleToAction& a) : TimedRunner(a), m_sx(a.m_sx), m_sy(a.m_sy) {}
            void start(Node& node) override
            {
                m_x0 = node.xScale();
                m_y0 = node.yScale();
            }
            void update(Node& node, double p) override
            {
                if (m_sx)
                    node.setXScale(p >= 1 ? *m_sx : m_x0 + (*m_sx - m_x0) * p);
                if (m_sy)
                    node.setYScale(p >= 1 ? *m_sy : m_y0 + (*m_sy - m_y0) * p);
            }
            std::optional<qreal> m_sx, m_sy;
            qreal m_x0 = 1, m_y0 = 1;
        };
        return std::make_shared<R>(*this);
    }

private:
    std::optional<qreal> m_sx, m_sy;
};

class FadeByAction : public Action {
public:
    FadeByAction(qreal delta, double duration) : Action(duration), m_delta(delta) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const FadeByAction& a) : TimedRunner(a), m_delta(a.m_delta) {}
            void update(Node& node, double p) override
            {
                node.setAlpha(node.alpha() + m_delta * (p - m_last));
                m_last = p;
            }
            qreal m_delta;
            double m_last = 0;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override { return std::make_shared<FadeByAction>(-m_delta, duration()); }

private:
    qreal m_delta;
};

class FadeToAction : public SimpleAction<FadeToAction> {
public:
    FadeToAction(qreal alpha, double duration) : SimpleAction(duration), m_alpha(alpha) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const FadeToAction& a) : TimedRunner(a), m_to(a.m_alpha) {}
            void start(Node& node) override { m_from = node.alpha(); }
            void update(Node& node, double p) override { node.setAlpha(p >= 1 ? m_to : m_from + (m_to - m_from) * p); }
            qreal m_to, m_from = 1;
        };
        return std::make_shared<R>(*this);
    }

private:
    qreal m_alpha;
};

class ColorizeAction : public SimpleAction<ColorizeAction> {
public:
    ColorizeAction(std::optional<QColor> color, qreal factor, double duration)
        : SimpleAction(duration),
          m_color(color),
          m_factor(factor)
    {
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const ColorizeAction& a) : TimedRunner(a), m_color(a.m_color), m_factor(a.m_factor) {}
            void start(Node& node) override
            {
                if (auto sprite = dynamic_cast<SpriteNode*>(&node)) {
                    m_fromColor = sprite->color();
                    m_fromFactor = sprite->colorBlendFactor();
                }
            }
            void update(Node& node, double p) override
            {
                auto sprite = dynamic_cast<SpriteNode*>(&node);
                if (!sprite)
                    return;
                if (m_color) {
                    auto mix = [p](double a, double b) { return a + (b - a) * p; };
                    sprite->setColor(p >= 1 ? *m_color
                                            : QColor::fromRgbF(float(mix(m_fromColor.redF(), m_color->redF())),
                                                               float(mix(m_fromColor.greenF(), m_color->greenF())),
                                                               float(mix(m_fromColor.blueF(), m_color->blueF())),
                                                               float(mix(m_fromColor.alphaF(), m_color->alphaF()))));
                }
                sprite->setColorBlendFactor(p >= 1 ? m_factor : m_fromFactor + (m_factor - m_fromFactor) * p);
            }
            std::optional<QColor> m_color;
            qreal m_factor;
            QColor m_fromColor;
            qreal m_fromFactor = 0;
        };
        return std::make_shared<R>(*this);
    }

private:
    std::optional<QColor> m_color;
    qreal m_factor;
};

class AnimateAction : public Action {
public:
    AnimateAction(std::vector<TexturePtr> textures, double timePerFrame, bool resize, bool restore)
        : Action(double(textures.size()) * timePerFrame),
          m_textures(std::move(textures)),
          m_timePerFrame(timePerFrame),
          m_resize(resize),
          m_restore(restore)
    {
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const AnimateAction& a)
                : TimedRunner(a),
                  m_keep(std::static_pointer_cast<const AnimateAction>(a.shared_from_this())),
                  m_a(*m_keep)
            {
            }
            void start(Node& node) override
            {
                if (auto sprite = dynamic_cast<SpriteNode*>(&node)) {
                    m_originalTexture = sprite->texture();
                    m_originalSize = sprite->size();
                }
            }
            void update(Node& node, double p) override
            {
                auto sprite = dynamic_cast<SpriteNode*>(&node);
                if (!sprite || m_a.m_textures.empty())
                    return;
                const int n = int(m_a.m_textures.size());
                if (p >= 1) {
                    if (m_a.m_restore) {
                        sprite->setTexture(m_originalTexture);
                        if (m_a.m_resize)
                            sprite->setSize(m_originalSize);
                    } else {
                        show(*sprite, n - 1);
                    }
                    return;
                }
                const double t = p * m_duration;
                int index = m_a.m_timePerFrame > 0 ? int(std::floor((t + kEps) / m_a.m_timePerFrame)) : n - 1;
                show(*sprite, std::clamp(index, 0, n - 1));
            }
            void show(SpriteNode& sprite, int index)
            {
                if (index == m_shown)
                    return;
                m_shown = index;
                const TexturePtr& tex = m_a.m_textures[size_t(index)];
                sprite.setTexture(tex);
                if (m_a.m_resize && tex)
                    sprite.setSize(tex->size());
            }
            std::shared_ptr<const AnimateAction> m_keep;
            const AnimateAction& m_a;
            TexturePtr m_originalTexture;
            QSizeF m_originalSize;
            int m_shown = -1;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override
    {
        std::vector<TexturePtr> rev(m_textures.rbegin(), m_textures.rend());
        return std::make_shared<AnimateAction>(std::move(rev), m_timePerFrame, m_resize, m_restore);
    }

private:
    std::vector<TexturePtr> m_textures;
    double m_timePerFrame;
    bool m_resize, m_restore;
};

class WaitAction : public SimpleAction<WaitAction> {
public:
    WaitAction(double duration, double range) : SimpleAction(duration), m_range(range) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const WaitAction& a) : TimedRunner(a)
            {
                if (a.m_range > 0) {
                    const double r = QRandomGenerator::global()->generateDouble();
                    m_duration = std::max(0.0, a.duration() + (r - 0.5) * a.m_range);
                }
            }
            void update(Node&, double) override {}
        };
        return std::make_shared<R>(*this);
    }

private:
    double m_range;
};

// An action that does its work at the start and takes its duration (0 for most).
class InstantAction : public SimpleAction<InstantAction> {
public:
    InstantAction(std::function<void(Node&)> f, double duration = 0) : SimpleAction(duration), m_f(std::move(f)) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const InstantAction& a) : TimedRunner(a), m_f(a.m_f) {}
            void start(Node& node) override
            {
                if (m_f)
                    m_f(node);
            }
            void update(Node&, double) override {}
            std::function<void(Node&)> m_f;
        };
        return std::make_shared<R>(*this);
    }

private:
    std::function<void(Node&)> m_f;
};

class CustomAction : public SimpleAction<CustomAction> {
public:
    CustomAction(double duration, std::function<void(Node&, double)> f) : SimpleAction(duration), m_f(std::move(f)) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const CustomAction& a) : TimedRunner(a), m_f(a.m_f) {}
            void update(Node& node, double p) override
            {
                if (m_f)
                    m_f(node, p >= 1 ? m_duration : m_t);
            }
            std::function<void(Node&, double)> m_f;
        };
        return std::make_shared<R>(*this);
    }

private:
    std::function<void(Node&, double)> m_f;
};

class VolumeAction : public SimpleAction<VolumeAction> {
public:
    VolumeAction(float volume, double duration) : SimpleAction(duration), m_volume(volume) {}
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public TimedRunner {
        public:
            R(const VolumeAction& a) : TimedRunner(a), m_to(a.m_volume) {}
            void start(Node& node) override
            {
                if (auto audio = dynamic_cast<AudioNode*>(&node))
                    m_from = audio->volume();
            }
            void update(Node& node, double p) override
            {
                if (auto audio = dynamic_cast<AudioNode*>(&node))
                    audio->setVolume(p >= 1 ? m_to : float(m_from + (m_to - m_from) * p));
            }
            float m_to, m_from = 1;
        };
        return std::make_shared<R>(*this);
    }

private:
    float m_volume;
};

// --- composites ---------------------------------------------------------------------

class SequenceAction : public Action {
public:
    explicit SequenceAction(std::vector<ActionPtr> actions) : Action(total(actions)), m_actions(std::move(actions)) {}
    static double total(const std::vector<ActionPtr>& actions)
    {
        double d = 0;
        for (const auto& a : actions)
            d += a->duration();
        return d;
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public ActionRunner {
        public:
            R(const SequenceAction& a) : ActionRunner(a), m_actions(a.m_actions) {}
            double step(Node& node, double dt) override
            {
                while (m_index < m_actions.size()) {
                    if (!m_current)
                        m_current = m_actions[m_index]->makeRunner();
                    const double r = m_current->advance(node, dt);
                    if (r < 0 || cancelled(node))
                        return -1;
                    dt = r;
                    m_current.reset();
                    ++m_index;
                }
                return std::max(0.0, dt);
            }
            std::vector<ActionPtr> m_actions;
            std::shared_ptr<ActionRunner> m_current;
            size_t m_index = 0;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override
    {
        std::vector<ActionPtr> rev;
        for (auto it = m_actions.rbegin(); it != m_actions.rend(); ++it)
            rev.push_back((*it)->reversedAction());
        return std::make_shared<SequenceAction>(std::move(rev));
    }

private:
    std::vector<ActionPtr> m_actions;
};

class GroupAction : public Action {
public:
    explicit GroupAction(std::vector<ActionPtr> actions) : Action(longest(actions)), m_actions(std::move(actions)) {}
    static double longest(const std::vector<ActionPtr>& actions)
    {
        double d = 0;
        for (const auto& a : actions)
            d = std::max(d, a->duration());
        return d;
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public ActionRunner {
        public:
            R(const GroupAction& a) : ActionRunner(a)
            {
                for (const auto& child : a.m_actions)
                    m_runners.push_back(child->makeRunner());
            }
            double step(Node& node, double dt) override
            {
                bool running = false;
                double left = kInfinity;
                for (auto& runner : m_runners) {
                    if (runner->finished())
                        continue;
                    const double r = runner->advance(node, dt);
                    if (cancelled(node))
                        return -1;
                    if (r < 0)
                        running = true;
                    else
                        left = std::min(left, r);
                }
                if (running)
                    return -1;
                return std::isfinite(left) ? left : std::max(0.0, dt);
            }
            std::vector<std::shared_ptr<ActionRunner>> m_runners;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override
    {
        std::vector<ActionPtr> rev;
        for (const auto& a : m_actions)
            rev.push_back(a->reversedAction());
        return std::make_shared<GroupAction>(std::move(rev));
    }

private:
    std::vector<ActionPtr> m_actions;
};

class RepeatAction : public Action {
public:
    RepeatAction(ActionPtr action, int count) // count < 0: for ever
        : Action(count < 0 ? kInfinity : action->duration() * count),
          m_action(std::move(action)),
          m_count(count)
    {
    }
    std::shared_ptr<ActionRunner> makeRunner() const override
    {
        class R : public ActionRunner {
        public:
            R(const RepeatAction& a) : ActionRunner(a), m_action(a.m_action), m_count(a.m_count) {}
            double step(Node& node, double dt) override
            {
                const bool endless = m_count < 0;
                while (endless || m_done < m_count) {
                    if (!m_current)
                        m_current = m_action->makeRunner();
                    const double r = m_current->advance(node, dt);
                    if (r < 0 || cancelled(node))
                        return -1;
                    m_current.reset();
                    ++m_done;
                    // An iteration that took no time runs once per frame when
                    // repeating for ever, so the frame cannot loop endlessly.
                    if (endless && r >= dt)
                        return -1;
                    dt = r;
                }
                return std::max(0.0, dt);
            }
            ActionPtr m_action;
            int m_count;
            int m_done = 0;
            std::shared_ptr<ActionRunner> m_current;
        };
        return std::make_shared<R>(*this);
    }

protected:
    ActionPtr makeReversed() const override
    {
        return std::make_shared<RepeatAction>(m_action->reversedAction(), m_count);
    }

private:
    ActionPtr m_action;
    int m_count;
};

} // namespace

// --- reversal -----------------------------------------------------------------------

ActionPtr Action::reversedAction() const
{
    ActionPtr r = makeReversed();
    r->m_speed = m_speed;
    switch (m_timingMode) {
    case ActionTimingMode::EaseIn: r->m_timingMode = ActionTimingMode::EaseOut; break;
    case ActionTimingMode::EaseOut: r->m_timingMode = ActionTimingMode::EaseIn; break;
    default: r->m_timingMode = m_timingMode;
    }
    if (m_timingFunction) {
        auto f = m_timingFunction;
        r->m_timingFunction = [f](double t) { return 1 - f(1 - t); };
    } else {
        r->m_timingFunction = nullptr;
    }
    return r;
}

// --- builders -----------------------------------------------------------------------

ActionPtr Action::moveBy(qreal dx, qreal dy, double duration)
{
    return std::make_shared<MoveByAction>(QPointF(dx, dy), duration);
}
ActionPtr Action::moveTo(const QPointF& location, double duration)
{
    return std::make_shared<MoveToAction>(location.x(), location.y(), duration);
}
ActionPtr Action::moveToX(qreal x, double duration)
{
    return std::make_shared<MoveToAction>(x, std::nullopt, duration);
}
ActionPtr Action::moveToY(qreal y, double duration)
{
    return std::make_shared<MoveToAction>(std::nullopt, y, duration);
}
ActionPtr Action::rotateByAngle(qreal radians, double duration)
{
    return std::make_shared<RotateByAction>(radians, duration);
}
ActionPtr Action::rotateToAngle(qreal radians, double duration, bool shortestUnitArc)
{
    return std::make_shared<RotateToAction>(radians, duration, shortestUnitArc);
}
ActionPtr Action::scaleBy(qreal scale, double duration)
{
    return std::make_shared<ScaleByAction>(scale, scale, duration);
}
ActionPtr Action::scaleXBy(qreal xScale, qreal yScale, double duration)
{
    return std::make_shared<ScaleByAction>(xScale, yScale, duration);
}
ActionPtr Action::scaleTo(qreal scale, double duration)
{
    return std::make_shared<ScaleToAction>(scale, scale, duration);
}
ActionPtr Action::scaleXTo(qreal xScale, double duration)
{
    return std::make_shared<ScaleToAction>(xScale, std::nullopt, duration);
}
ActionPtr Action::scaleYTo(qreal yScale, double duration)
{
    return std::make_shared<ScaleToAction>(std::nullopt, yScale, duration);
}
ActionPtr Action::scaleXYTo(qreal xScale, qreal yScale, double duration)
{
    return std::make_shared<ScaleToAction>(xScale, yScale, duration);
}
ActionPtr Action::fadeInWithDuration(double duration)
{
    return std::make_shared<FadeToAction>(1.0, duration);
}
ActionPtr Action::fadeOutWithDuration(double duration)
{
    return std::make_shared<FadeToAction>(0.0, duration);
}
ActionPtr Action::fadeAlphaBy(qreal delta, double duration)
{
    return std::make_shared<FadeByAction>(delta, duration);
}
ActionPtr Action::fadeAlphaTo(qreal alpha, double duration)
{
    return std::make_shared<FadeToAction>(alpha, duration);
}
ActionPtr Action::colorizeWithColor(const QColor& color, qreal colorBlendFactor, double duration)
{
    return std::make_shared<ColorizeAction>(color, colorBlendFactor, duration);
}
ActionPtr Action::colorizeWithColorBlendFactor(qreal colorBlendFactor, double duration)
{
    return std::make_shared<ColorizeAction>(std::nullopt, colorBlendFactor, duration);
}
ActionPtr Action::animateWithTextures(const std::vector<TexturePtr>& textures, double timePerFrame, bool resize,
                                      bool restore)
{
    return std::make_shared<AnimateAction>(textures, timePerFrame, resize, restore);
}
ActionPtr Action::setTexture(const TexturePtr& texture, bool resize)
{
    return std::make_shared<InstantAction>([texture, resize](Node& node) {
        if (auto sprite = dynamic_cast<SpriteNode*>(&node)) {
            sprite->setTexture(texture);
            if (resize && texture)
                sprite->setSize(texture->size());
        }
    });
}
ActionPtr Action::waitForDuration(double duration)
{
    return std::make_shared<WaitAction>(duration, 0.0);
}
ActionPtr Action::waitForDuration(double duration, double range)
{
    return std::make_shared<WaitAction>(duration, range);
}
ActionPtr Action::sequence(const std::vector<ActionPtr>& actions)
{
    std::vector<ActionPtr> list;
    for (const auto& a : actions)
        if (a)
            list.push_back(a);
    return std::make_shared<SequenceAction>(std::move(list));
}
ActionPtr Action::group(const std::vector<ActionPtr>& actions)
{
    std::vector<ActionPtr> list;
    for (const auto& a : actions)
        if (a)
            list.push_back(a);
    return std::make_shared<GroupAction>(std::move(list));
}
ActionPtr Action::repeatAction(const ActionPtr& action, int count)
{
    return std::make_shared<RepeatAction>(action ? action : empty(), std::max(0, count));
}
ActionPtr Action::repeatActionForever(const ActionPtr& action)
{
    return std::make_shared<RepeatAction>(action ? action : empty(), -1);
}
ActionPtr Action::runBlock(std::function<void()> block)
{
    return std::make_shared<InstantAction>([block = std::move(block)](Node&) {
        if (block)
            block();
    });
}
ActionPtr Action::customActionWithDuration(double duration, std::function<void(Node&, double)> block)
{
    return std::make_shared<CustomAction>(duration, std::move(block));
}
ActionPtr Action::removeFromParent()
{
    return std::make_shared<InstantAction>([](Node& node) { node.removeFromParent(); });
}
ActionPtr Action::hide()
{
    return std::make_shared<InstantAction>([](Node& node) { node.setHidden(true); });
}
ActionPtr Action::unhide()
{
    return std::make_shared<InstantAction>([](Node& node) { node.setHidden(false); });
}
ActionPtr Action::changeVolumeTo(float volume, double duration)
{
    return std::make_shared<VolumeAction>(volume, duration);
}
ActionPtr Action::playSoundFileNamed(const QString& fileName, bool waitForCompletion)
{
    const QString path = resources::locate(fileName,
                                           {QStringLiteral("wav"), QStringLiteral("mp3"), QStringLiteral("m4a"),
                                            QStringLiteral("ogg"), QStringLiteral("caf")});
    const double duration = (waitForCompletion && !path.isEmpty()) ? wavFileDuration(path) : 0.0;
    return std::make_shared<InstantAction>(
        [path](Node&) {
            if (!path.isEmpty())
                playSoundFile(path);
        },
        duration);
}

} // namespace tessaro::kit
