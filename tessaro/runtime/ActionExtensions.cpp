#include "ActionExtensions.h"

#include <tessaro/kit/LabelNode.h>
#include <tessaro/kit/ShapeNode.h>
#include <tessaro/kit/SpriteNode.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace tessaro {

using kit::Action;
using kit::ActionPtr;

ActionPtr ActionExtensions::animateFrames(const kit::TextureLookup& cachedTextures, const QString& name,
                                          double timePerFrame, double delay, int firstFrame, int endFrame,
                                          bool allFrames, animationFrequency frequency, bool flip)
{
    std::vector<kit::TexturePtr> textures;
    if (cachedTextures)
        textures = cachedTextures(name);
    return animateFrames(textures, timePerFrame, delay, firstFrame, endFrame, allFrames, frequency, flip);
}

ActionPtr ActionExtensions::animateFrames(const std::vector<kit::TexturePtr>& textures, double timePerFrame,
                                          double delay, int firstFrame, int endFrame, bool allFrames,
                                          animationFrequency frequency, bool flip)
{
    std::vector<kit::TexturePtr> frames;
    for (size_t i = 0; i < textures.size(); ++i)
        if (allFrames || (int(i) >= firstFrame && int(i) < endFrame))
            frames.push_back(textures[i]);
    std::vector<ActionPtr> parts;
    if (flip)
        parts.push_back(Action::scaleXTo(-1, 0));
    parts.push_back(Action::animateWithTextures(frames, timePerFrame, false, false));
    if (delay > 0)
        parts.push_back(Action::waitForDuration(delay));
    ActionPtr sequence = Action::sequence(parts);
    if (frequency == animationFrequency::foreverAutomatically)
        return Action::repeatActionForever(sequence);
    return sequence;
}

ActionPtr ActionExtensions::blink(double duration, qreal alpha, int count, bool useColors, const QColor& colorA,
                                  const QColor& colorB)
{
    const double half = duration / std::max(1, count) * 0.5;
    ActionPtr down = Action::fadeAlphaTo(0.1, half);
    ActionPtr up = Action::fadeAlphaTo(alpha, half);
    if (!useColors)
        return Action::repeatAction(Action::sequence({down, up}), count);

    auto flag = std::make_shared<bool>(false);
    ActionPtr paint = Action::customActionWithDuration(0.01, [flag, colorA, colorB](kit::Node& node, double) {
        const QColor color = *flag ? colorA : colorB;
        if (auto sprite = dynamic_cast<kit::SpriteNode*>(&node))
            sprite->runAction(Action::colorizeWithColor(color, 1.0, 0.01));
        else if (auto shape = dynamic_cast<kit::ShapeNode*>(&node))
            shape->setFillColor(color);
        else if (auto label = dynamic_cast<kit::LabelNode*>(&node))
            label->setFontColor(color);
    });
    ActionPtr toggle = Action::runBlock([flag] { *flag = !*flag; });
    return Action::repeatAction(Action::sequence({down, paint, up, toggle}), count);
}

ActionPtr ActionExtensions::swing(qreal angle, double duration)
{
    const qreal a = angle * M_PI / 180.0;
    ActionPtr lead = Action::rotateByAngle(a * 0.5, duration * 0.5);
    lead->setTimingMode(kit::ActionTimingMode::Linear);
    ActionPtr turn = Action::rotateByAngle(a, duration);
    turn->setTimingMode(kit::ActionTimingMode::Linear);
    return Action::sequence({lead, Action::repeatActionForever(Action::sequence({turn->reversedAction(), turn}))});
}

ActionPtr ActionExtensions::swingEased(qreal angle, double duration)
{
    const qreal h = angle * M_PI / 180.0 * 0.5;
    ActionPtr lead = Action::rotateToAngle(h, duration * 0.5);
    lead->setTimingMode(kit::ActionTimingMode::EaseInEaseOut);
    ActionPtr turn = Action::rotateByAngle(h, duration * 0.5);
    turn->setTimingMode(kit::ActionTimingMode::EaseInEaseOut);
    return Action::sequence({lead, Action::repeatActionForever(Action::sequence({turn->reversedAction(), turn}))});
}

} // namespace tessaro
