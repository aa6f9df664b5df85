#include "HeadlessRun.h"

#include <tessaro/kit/Renderer.h>

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace play {

HeadlessResult runHeadless(PlayScene& scene, int frames, const QString& screenshot)
{
    HeadlessResult result;
    result.frameMilliseconds.reserve(size_t(frames));
    tessaro::kit::Renderer renderer;
    const QSize pixels(int(std::lround(scene.size().width())), int(std::lround(scene.size().height())));
    QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
    scene.didMoveToView(nullptr);
    QElapsedTimer clock;
    for (int frame = 0; frame < frames; ++frame) {
        clock.start();
        scene.processFrame(frame / 60.0);
        QPainter painter(&picture);
        renderer.render(scene, painter, QRectF(QPointF(0, 0), QSizeF(pixels)));
        painter.end();
        result.frameMilliseconds.push_back(double(clock.nsecsElapsed()) / 1e6);
    }
    if (!screenshot.isEmpty())
        picture.save(screenshot, "PNG");
    return result;
}

QStringList reportLines(const PlayScene& scene, const HeadlessResult& result)
{
    const PlayStats& stats = scene.rules().stats();
    QStringList kinds;
    for (const char* kind :
         {"obstacles", "characters", "coins", "shields", "artifacts", "checkpoints", "ground", "backgrounds"}) {
        const auto found = stats.made.find(kind);
        kinds << QStringLiteral("%1 %2")
                     .arg(QString::fromLatin1(kind))
                     .arg(found == stats.made.end() ? 0 : found->second);
    }
    QStringList lines;
    lines << QStringLiteral("sprites created: ") + kinds.join(QStringLiteral(", "));
    lines << QStringLiteral("bodies: %1").arg(scene.physicsWorld().bodies().size());
    lines << QStringLiteral("contacts begun: %1").arg(stats.contactsBegun);
    const auto coins = stats.made.find("coins");
    lines << QStringLiteral("coins collected: %1 of %2")
                 .arg(stats.coinsCollected)
                 .arg(coins == stats.made.end() ? 0 : coins->second);
    const auto player = scene.rules().playerPosition();
    lines
        << (player
                ? QStringLiteral("player final position: %1,%2").arg(player->x(), 0, 'f', 1).arg(player->y(), 0, 'f', 1)
                : QStringLiteral("player final position: none"));
    QStringList sounds;
    for (const auto& [name, count] : scene.rules().sounds().started())
        sounds << QStringLiteral("%1 %2").arg(QString::fromStdString(name)).arg(count);
    lines << QStringLiteral("sounds started: ") + (sounds.isEmpty() ? QStringLiteral("none") : sounds.join(", "));
    QStringList hits;
    for (const auto& [element, count] : stats.hits)
        hits << QStringLiteral("%1 %2%3")
                    .arg(QString::fromStdString(element))
                    .arg(count)
                    .arg(stats.destroyed.count(element) ? QStringLiteral(" (destroyed)") : QString());
    lines << QStringLiteral("hits: ") + (hits.isEmpty() ? QStringLiteral("none") : hits.join(", "));
    std::vector<double> times = result.frameMilliseconds;
    std::sort(times.begin(), times.end());
    if (times.empty())
        times.push_back(0);
    lines << QStringLiteral("frame time: min %1 ms, median %2 ms, 99th percentile %3 ms, max %4 ms")
                 .arg(times.front(), 0, 'f', 2)
                 .arg(times[times.size() / 2], 0, 'f', 2)
                 .arg(times[std::min(times.size() - 1, times.size() * 99 / 100)], 0, 'f', 2)
                 .arg(times.back(), 0, 'f', 2);
    return lines;
}

} // namespace play
