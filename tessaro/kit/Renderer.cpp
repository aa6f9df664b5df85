#include "Renderer.h"

#include "EffectNode.h"
#include "PhysicsBody.h"
#include "SpriteNode.h"

#include <QPaintDevice>

#include <algorithm>
#include <cmath>

namespace tessaro::kit {

qreal DrawContext::pixelsPerUnit() const
{
    return std::sqrt(std::abs(transform.determinant()));
}

namespace {

inline QTransform fastLocal(const Node& n)
{
    if (n.zRotation() == 0)
        return QTransform(n.xScale(), 0, 0, n.yScale(), n.position().x(), n.position().y());
    return n.localTransform();
}

inline bool drawsAsEffect(const Node& n)
{
    return n.drawsSubtreeAsOne();
}

} // namespace

void Renderer::collect(const Node& node, const QTransform& parentToDevice, qreal opacity, qreal z,
                       std::vector<Item>& items, std::vector<Item>* coming) const
{
    // What covers a good part of the view costs a frame of its own to scale.
    constexpr qreal kLargeArea = 250'000;
    for (const auto& childPtr : node.children()) {
        const Node& child = *childPtr;
        if (child.isHidden())
            continue;
        const qreal a = opacity * child.alpha();
        if (a <= 0)
            continue;
        const QTransform t = fastLocal(child) * parentToDevice;
        const qreal cz = z + child.zPosition();
        if (drawsAsEffect(child)) {
            items.push_back({&child, t, a, cz});
            continue;
        }
        if (child.hasContent()) {
            const QRectF device = t.mapRect(child.contentRect());
            if (device.intersects(m_clip) || m_clip.isNull())
                items.push_back({&child, t, a, cz});
            else if (coming && device.width() * device.height() >= kLargeArea &&
                     device.intersects(m_clip.adjusted(-m_clip.width(), 0, m_clip.width(), 0)))
                coming->push_back({&child, t, a, cz});
        }
        if (!child.children().empty())
            collect(child, t, a, cz, items, coming);
    }
}

void Renderer::drawItems(QPainter& painter, const std::vector<Item>& items)
{
    // Sort keys, not items: stable, so equal depths keep tree order.
    std::vector<std::pair<qreal, quint32>> order;
    order.swap(m_order); // a nested call (effect nodes) gets its own buffer
    order.clear();
    order.reserve(items.size());
    bool sorted = true;
    for (quint32 i = 0; i < items.size(); ++i) {
        if (i > 0 && items[i].z < items[i - 1].z)
            sorted = false;
        order.emplace_back(items[i].z, i);
    }
    if (!sorted)
        std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    qreal opacity = painter.opacity();
    const bool counting = m_options.showsDrawCount || m_options.showsQuadCount;
    for (const auto& [z, index] : order) {
        const Item& item = items[index];
        if (counting)
            count(*item.node);
        if (item.opacity != opacity) {
            painter.setOpacity(item.opacity);
            opacity = item.opacity;
        }
        DrawContext ctx{painter, item.transform, item.opacity, *this};
        item.node->draw(ctx);
    }
    m_drawn += int(items.size());
    m_order.swap(order);
}

void Renderer::count(const Node& node)
{
    const auto* sprite = dynamic_cast<const SpriteNode*>(&node);
    const Texture* texture = sprite ? sprite->texture().get() : nullptr;
    if (texture)
        ++m_quads;
    // Sprites of one texture in a row are one pass; anything else is its own.
    if (!texture || texture != m_lastTexture)
        ++m_draws;
    m_lastTexture = texture;
}

void Renderer::prepareComing()
{
    // A large picture about to scroll into view is scaled ahead, one a
    // frame, rather than all in the frame it appears in: the size and the
    // choices are those SpriteNode::draw makes for an upright sprite.
    const quint64 made = m_picturesMade;
    for (const Item& item : m_coming) {
        const auto* sprite = dynamic_cast<const SpriteNode*>(item.node);
        const QTransform& t = item.transform;
        if (!sprite || !sprite->texture() || t.m12() != 0 || t.m21() != 0 || t.m22() >= 0 || t.m11() == 0)
            continue;
        const QRectF target = t.mapRect(sprite->contentRect());
        const QPoint topLeft(qRound(target.left()), qRound(target.top()));
        const QSize size(qRound(target.right()) - topLeft.x(), qRound(target.bottom()) - topLeft.y());
        const QImage image = sprite->colorBlendFactor() > 0 ? sprite->blendedImage() : sprite->texture()->image();
        if (image.isNull() || size.isEmpty() || qint64(size.width()) * size.height() > 16'000'000 ||
            (t.m11() > 0 && size == image.size()))
            continue;
        const bool nearest = sprite->texture()->filteringMode() == Texture::Filtering::Nearest;
        QPoint offset;
        scaledImage(image, size, !nearest && m_options.smoothImages, t.m11() < 0, offset);
        if (m_picturesMade != made)
            return;
    }
}

void Renderer::renderSubtree(const Node& root, QPainter& painter, const QTransform& rootToDevice, qreal opacity)
{
    const QRectF savedClip = m_clip;
    if (painter.device())
        m_clip = QRectF(0, 0, painter.device()->width(), painter.device()->height());
    std::vector<Item> items;
    collect(root, rootToDevice, opacity, 0, items);
    painter.save();
    drawItems(painter, items);
    painter.restore();
    m_clip = savedClip;
}

namespace {

bool isOpaque(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return true;
    if (image.format() != QImage::Format_ARGB32_Premultiplied && image.format() != QImage::Format_ARGB32)
        return false;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(line[x]) != 255)
                return false;
    }
    return true;
}

/// The smallest rectangle that holds every pixel of `image` that is not
/// fully transparent; empty when there is none.
QRect paintedRect(const QImage& image)
{
    if (image.format() != QImage::Format_ARGB32_Premultiplied && image.format() != QImage::Format_ARGB32)
        return image.rect();
    int top = image.height(), bottom = -1, left = image.width(), right = -1;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        int first = -1, last = -1;
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(line[x]) != 0) {
                if (first < 0)
                    first = x;
                last = x;
            }
        if (first < 0)
            continue;
        top = std::min(top, y);
        bottom = y;
        left = std::min(left, first);
        right = std::max(right, last);
    }
    return bottom < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

} // namespace

const QImage& Renderer::scaledImage(const QImage& image, const QSize& size, bool smooth, bool mirrored, QPoint& offset)
{
    constexpr qint64 kBudget = 128 * 1024 * 1024; // bytes of scaled pictures kept
    const auto key = std::make_tuple(image.cacheKey(), size.width(), size.height(), smooth, mirrored);
    auto found = m_scaled.find(key);
    // A sprite's edges are rounded to pixels where it stands, so a moving
    // one is a pixel wider now and then: the picture a pixel off serves, or
    // each step would scale the picture anew.
    for (int dw = -1; dw <= 1 && found == m_scaled.end(); ++dw)
        for (int dh = -1; dh <= 1 && found == m_scaled.end(); ++dh)
            found = m_scaled.find(
                std::make_tuple(image.cacheKey(), size.width() + dw, size.height() + dh, smooth, mirrored));
    if (found == m_scaled.end()) {
        Scaled made;
        QSize madeSize = size;
        auto twin = m_scaled.end();
        for (int dw = 0; dw <= 2 && twin == m_scaled.end(); ++dw)
            for (int dh = 0; dh <= 2 && twin == m_scaled.end(); ++dh) {
                // Nearest sizes first: 0, then +1, then -1.
                const QSize near(size.width() + (dw == 2 ? -1 : dw), size.height() + (dh == 2 ? -1 : dh));
                twin = m_scaled.find(std::make_tuple(image.cacheKey(), near.width(), near.height(), smooth, !mirrored));
                if (twin != m_scaled.end())
                    madeSize = near;
            }
        if (twin != m_scaled.end()) {
            // The mirror of a kept picture costs far less than scaling anew
            // (a view-filling background shows both, side by side).
            made.image = twin->second.image.mirrored(true, false);
            made.offset = QPoint(madeSize.width() - twin->second.offset.x() - twin->second.image.width(),
                                 twin->second.offset.y());
        } else {
            made.image =
                image.scaled(size, Qt::IgnoreAspectRatio, smooth ? Qt::SmoothTransformation : Qt::FastTransformation);
            if (mirrored)
                made.image = std::move(made.image).mirrored(true, false);
            // Blending costs by the pixel: a picture with wide transparent
            // margins keeps only what it paints.
            const QRect painted = paintedRect(made.image);
            if (qint64(painted.width()) * painted.height() * 10 <
                qint64(made.image.width()) * made.image.height() * 9) {
                made.offset = painted.topLeft();
                made.image = painted.isEmpty() ? QImage() : made.image.copy(painted);
            }
            // An opaque picture is copied where it is drawn rather than blended.
            if (isOpaque(made.image))
                made.image = std::move(made.image).convertToFormat(QImage::Format_RGB32);
        }
        m_scaledBytes += made.image.sizeInBytes();
        ++m_picturesMade;
        found = m_scaled
                    .emplace(std::make_tuple(image.cacheKey(), madeSize.width(), madeSize.height(), smooth, mirrored),
                             std::move(made))
                    .first;
        // Over budget: the pictures not drawn for longest go first, never
        // one of the present render.
        while (m_scaledBytes > kBudget) {
            auto oldest = m_scaled.end();
            for (auto it = m_scaled.begin(); it != m_scaled.end(); ++it)
                if (it != found && (oldest == m_scaled.end() || it->second.lastUse < oldest->second.lastUse))
                    oldest = it;
            if (oldest == m_scaled.end() || oldest->second.lastUse == m_renders)
                break;
            m_scaledBytes -= oldest->second.image.sizeInBytes();
            m_scaled.erase(oldest);
        }
    }
    found->second.lastUse = m_renders;
    offset = found->second.offset;
    return found->second.image;
}

void Renderer::render(const Scene& scene, QPainter& painter, const QRectF& target, qreal zoom)
{
    ++m_renders;
    painter.save();
    const QTransform sceneToDevice =
        scene.sceneToViewTransform(target.size(), zoom) * QTransform::fromTranslate(target.left(), target.top());
    if (m_options.drawBackground) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(target, scene.backgroundColor());
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.setClipRect(target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, m_options.smoothImages);
    m_clip = target;
    m_drawn = 0;
    m_draws = 0;
    m_quads = 0;
    m_lastTexture = nullptr;
    std::vector<Item> items;
    items.swap(m_items);
    items.clear();
    m_coming.clear();
    collect(scene, sceneToDevice, scene.alpha(), 0, items, &m_coming);
    drawItems(painter, items);
    m_items.swap(items);
    prepareComing();
    m_lastNodeCount = m_drawn;
    m_lastDrawCount = m_draws;
    m_lastQuadCount = m_quads;
    painter.setOpacity(1);
    if (m_options.showsPhysics)
        drawPhysics(scene, painter, sceneToDevice);
    if (m_options.showsFields)
        drawFields(scene, painter, target);
    if (m_options.showsNodeCount || m_options.showsFPS || m_options.showsDrawCount || m_options.showsQuadCount)
        drawStatistics(painter, target);
    painter.restore();
}

QImage Renderer::renderToImage(const Scene& scene, const QSize& size, qreal zoom)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    render(scene, painter, QRectF(QPointF(0, 0), QSizeF(size)), zoom);
    painter.end();
    return image;
}

void Renderer::drawPhysics(const Scene& scene, QPainter& painter, const QTransform& sceneToDevice)
{
    for (const auto& body : scene.physicsWorld().bodies()) {
        const Node* node = body->node();
        if (!node)
            continue;
        const QTransform t = node->rootTransform();
        const QPointF origin = t.map(QPointF(0, 0));
        qreal angle = 0;
        for (const Node* n = node; n && n->parent(); n = n->parent())
            angle += n->zRotation();
        const qreal c = std::cos(angle), s = std::sin(angle);
        painter.setTransform(QTransform(c, s, -s, c, origin.x(), origin.y()) * sceneToDevice);
        QPen pen(body->isDynamic() && !body->isEdgeBased() ? QColor(40, 220, 90) : QColor(80, 150, 255));
        pen.setCosmetic(true);
        pen.setWidthF(1.0);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.setRenderHint(QPainter::Antialiasing, true);
        for (const PhysicsShape& shape : body->shapes()) {
            switch (shape.kind) {
            case PhysicsShape::Kind::Circle: painter.drawEllipse(shape.center, shape.radius, shape.radius); break;
            case PhysicsShape::Kind::Polygon:
            case PhysicsShape::Kind::Loop: painter.drawPolygon(shape.points.data(), int(shape.points.size())); break;
            case PhysicsShape::Kind::Edge:
            case PhysicsShape::Kind::Chain: painter.drawPolyline(shape.points.data(), int(shape.points.size())); break;
            }
        }
    }
    painter.resetTransform();
}

void Renderer::drawStatistics(QPainter& painter, const QRectF& target)
{
    QStringList parts;
    if (m_options.showsNodeCount)
        parts << QStringLiteral("nodes: %1").arg(m_lastNodeCount);
    if (m_options.showsDrawCount)
        parts << QStringLiteral("draws: %1").arg(m_lastDrawCount);
    if (m_options.showsQuadCount)
        parts << QStringLiteral("quads: %1").arg(m_lastQuadCount);
    if (m_options.showsFPS)
        parts << QStringLiteral("fps: %1").arg(m_fps, 0, 'f', 1);
    const QString text = parts.join(QStringLiteral("  "));
    painter.resetTransform();
    QFont font = painter.font();
    font.setPixelSize(12);
    painter.setFont(font);
    const QFontMetricsF fm(font);
    const QRectF box(target.right() - fm.horizontalAdvance(text) - 12, target.bottom() - fm.height() - 8,
                     fm.horizontalAdvance(text) + 12, fm.height() + 8);
    painter.fillRect(box, QColor(0, 0, 0, 150));
    painter.setPen(Qt::white);
    painter.drawText(box, Qt::AlignCenter, text);
}

void Renderer::drawFields(const Scene& scene, QPainter& painter, const QRectF& target)
{
    // The one field a scene has is the world's gravity: an arrow of its
    // direction, its strength beside it, in a box at the top left.
    const QPointF gravity = scene.physicsWorld().gravity();
    const qreal strength = std::hypot(gravity.x(), gravity.y());
    painter.resetTransform();
    QFont font = painter.font();
    font.setPixelSize(12);
    painter.setFont(font);
    const QString text = QStringLiteral("gravity %1").arg(strength, 0, 'f', 1);
    const QFontMetricsF fm(font);
    const QRectF box(target.left() + 4, target.top() + 4, fm.horizontalAdvance(text) + 44, 32);
    painter.fillRect(box, QColor(0, 0, 0, 150));
    const QPointF centre(box.left() + 16, box.center().y());
    QPen pen(QColor(255, 200, 60));
    pen.setWidthF(2);
    painter.setPen(pen);
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (strength > 0) {
        // y up in the scene, down on the screen.
        const QPointF direction(gravity.x() / strength, -gravity.y() / strength);
        const QPointF tip = centre + direction * 11;
        painter.drawLine(centre - direction * 11, tip);
        const QPointF side(-direction.y(), direction.x());
        painter.drawLine(tip, tip - direction * 5 + side * 4);
        painter.drawLine(tip, tip - direction * 5 - side * 4);
    } else {
        painter.drawEllipse(centre, 3, 3);
    }
    painter.setPen(Qt::white);
    painter.drawText(QRectF(box.left() + 32, box.top(), box.width() - 32, box.height()), Qt::AlignVCenter, text);
}

} // namespace tessaro::kit
