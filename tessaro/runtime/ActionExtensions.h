// Ready-made actions for games and the library's sprites: frame animation,
// blinking and swinging.
#pragma once

#include <tessaro/kit/Action.h>
#include <tessaro/kit/Texture.h>
#include <tessaro/model/Enumerations.h>

#include <QColor>
#include <QString>

#include <vector>

namespace tessaro {

struct ActionExtensions {
    /// Plays the textures that `cachedTextures` gives for `name` (an atlas or
    /// image name), see the texture-list form.
    static kit::ActionPtr animateFrames(const kit::TextureLookup& cachedTextures, const QString& name,
                                        double timePerFrame, double delay, int firstFrame, int endFrame, bool allFrames,
                                        animationFrequency frequency, bool flip);
    /// Plays `textures` (only those with firstFrame <= index < endFrame unless
    /// `allFrames`), `timePerFrame` seconds each, after turning the node to
    /// xScale -1 when `flip`, then waits `delay` when it is above 0. With the
    /// frequency foreverAutomatically the whole repeats for ever.
    static kit::ActionPtr animateFrames(const std::vector<kit::TexturePtr>& textures, double timePerFrame, double delay,
                                        int firstFrame, int endFrame, bool allFrames, animationFrequency frequency,
                                        bool flip);
    /// `count` passes of fading to 0.1 and back to `alpha`, each fade taking
    /// duration / count / 2. With `useColors` each pass also paints the node
    /// (a sprite's colour, a shape's fill, a label's font colour): colorB on
    /// the first pass, colorA on the second, and so on. The alternation is
    /// one flag shared by every run of the returned action.
    static kit::ActionPtr blink(double duration, qreal alpha, int count, bool useColors, const QColor& colorA,
                                const QColor& colorB);
    /// Turns half of `angle` (degrees) in half the duration, then swings for
    /// ever between -angle/2 and +angle/2 of the start, `duration` per swing,
    /// at constant speed.
    static kit::ActionPtr swing(qreal angle, double duration);
    /// Turns to half of `angle` (absolute) in half the duration, then swings
    /// for ever by half the angle back and forth, half the duration per
    /// swing, easing in and out.
    static kit::ActionPtr swingEased(qreal angle, double duration);
};

} // namespace tessaro
