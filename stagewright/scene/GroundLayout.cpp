// The ground: sections laid from the left edge of the view to the right. A
// tile section becomes one picture composed from its own images (columns of
// stacked images, or copies side by side); a hazard section is a fixed tile
// repeated over its distance. The ground fixes the length of the level and the
// floor rectangles that elements with gravity stand on.
#include "SceneEditor.h"
#include "SceneNumbers.h"
#include "ScenePictures.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

using tessaro::groundBaseType;

namespace {

/// More pictures than this in one section are a typing slip; the record keeps
/// its number, the canvas shows this many.
constexpr std::int64_t kMostPicturesShown = 10000;

QString hazardTileName(std::optional<groundBaseType> type)
{
    if (!type)
        return {};
    switch (*type) {
    case groundBaseType::BrightWater: return QStringLiteral("brightWater_ground");
    case groundBaseType::Lava: return QStringLiteral("lava_top");
    case groundBaseType::MuddyWater: return QStringLiteral("muddyWater_ground");
    case groundBaseType::None: return QStringLiteral("transparent_ground");
    case groundBaseType::Spike: return QStringLiteral("spikes_1");
    case groundBaseType::ToxicGreen: return QStringLiteral("toxicGreen_ground");
    case groundBaseType::Water: return QStringLiteral("crest_top_one");
    case groundBaseType::Ground: break;
    }
    return {};
}

std::int64_t shownCount(std::int64_t count, const std::string& what)
{
    if (count <= kMostPicturesShown)
        return count;
    tessaro::diagnostic("Ground section " + what + " of " + std::to_string(count) + " is shown with " +
                        std::to_string(kMostPicturesShown) + " pictures; the section keeps its value.");
    return kMostPicturesShown;
}

tessaro::kit::TexturePtr groundTexture(const QString& name)
{
    return SceneImageCache::shared().picture(tessaro::sceneObjectType::ground, name).texture;
}

QString sizeKey(QSizeF size)
{
    return QString::number(size.width()) + QLatin1Char('x') + QString::number(size.height());
}

ComposedTexture finished(const ComposedPicture& picture)
{
    return {textureOf(picture), picture.size};
}

} // namespace

void sceneEditor::layoutGround(const std::vector<tessaro::GroundSection>& sections)
{
    GroundCursor cursor;
    cursor.runningX = frameRect().width() * -0.5;
    m_levelEndX = 0;
    for (const tessaro::GroundSection& section : sections)
        layoutSection(section, cursor);
    assignHandles(tessaro::sceneObjectType::ground);
    emit groundLaidOut();
}

void sceneEditor::layoutSection(const tessaro::GroundSection& section, GroundCursor& cursor)
{
    if (!m_groundNodes)
        return;
    const QRectF frame = frameRect();

    if (!section.isVisible.value_or(true)) {
        // A hidden section takes no room and shows nothing, but it stays a
        // ground node in its place so that a save keeps it where it was.
        auto kept = elementNode::create(nullptr, QSizeF());
        kept->setHidden(true);
        kept->property_sceneObjectType = tessaro::sceneObjectType::ground;
        kept->groundSection = section;
        kept->sequenceId = cursor.sectionIndex;
        kept->devices = section.devices;
        kept->imageOverride = section.image;
        kept->setZPosition(section.zPosition.value_or(tessaro::defaultGroundZPosition) + 50);
        kept->setPosition(cursor.runningX, frame.top());
        m_groundNodes->addChild(kept);
        return;
    }

    const double z = section.zPosition.value_or(tessaro::defaultGroundZPosition);
    const tessaro::PointValue offset =
        drawablePoint(tessaro::deviceValue<tessaro::fieldList::offset>(section.devices), "ground offset");
    const tessaro::SizeValue tileSize =
        drawableSize(tessaro::deviceValue<tessaro::fieldList::size>(section.devices), "ground size");
    const QSizeF size(tileSize.width, tileSize.height);
    const std::optional<groundBaseType> type =
        tessaro::caseFromText<groundBaseType>(section.groundType.value_or("Ground"));

    if (type != groundBaseType::Ground) {
        const double distance =
            drawablePosition(tessaro::sizeFromText(section.distance.value_or(std::string())).width, "ground distance");
        // Laying a section changes nothing of the project: whether it is
        // dirty is its history's business.
        const double y = frame.top();
        ComposedTexture picture{textureOf(ComposedPicture{}), QSizeF(0, 0)};
        if (distance > 0) {
            const tessaro::kit::TexturePtr tile = groundTexture(hazardTileName(type));
            const double tileWidth = size.isEmpty() ? tile->size().width() : size.width();
            // Tiles are added until twice the offset and the picture reach the distance.
            std::int64_t count = 1;
            if (tileWidth > 0)
                count = std::max<std::int64_t>(1, std::int64_t(std::ceil((distance - 2 * offset.x) / tileWidth)));
            const int shown = int(shownCount(count, "tile count"));
            picture = ComposedPictureCache::shared().picture(
                QStringLiteral("row ") + sizeKey(size) + QLatin1Char(' ') + QString::number(shown), {tile},
                [&] { return finished(repeatSideBySide(pictureOf(tile, size), shown)); });
        }
        auto node = elementNode::create(picture.texture, picture.size);
        node->setSize(picture.size);
        node->setZPosition(z + 47);
        node->setPosition(cursor.runningX + offset.x + picture.size.width() / 2, y);
        node->property_sceneObjectType = tessaro::sceneObjectType::ground;
        node->groundSection = section;
        node->sequenceId = cursor.sectionIndex;
        node->devices = section.devices;
        m_groundNodes->addChild(node);
        m_groundBase = y + picture.size.height() / 2;
        m_backgroundY = y;
        cursor.runningX += distance;
        m_levelEndX += distance;
        ++cursor.sectionIndex;
        return;
    }

    const std::int64_t repeatCount = section.repeatCount.value_or(0);
    const bool stacked = section.stack.value_or(false);
    const std::string image = section.image.value_or(std::string());
    const std::vector<tessaro::groundPhysicsAngleType> angles =
        tessaro::listFromText<tessaro::groundPhysicsAngleType>(section.groundPhysicsAngleType.value_or(std::string()));

    ComposedTexture picture;
    if (stacked) {
        std::vector<std::string> names = tessaro::trimmedNamesFromText(image);
        if (names.empty())
            names.emplace_back();
        std::vector<tessaro::kit::TexturePtr> tiles;
        for (const std::string& name : names)
            tiles.push_back(groundTexture(QString::fromStdString(name)));
        const int columns = int(shownCount(std::max<std::int64_t>(repeatCount, 0) + 1, "repeat count"));
        picture = ComposedPictureCache::shared().picture(
            QStringLiteral("columns ") + sizeKey(size) + QLatin1Char(' ') + QString::number(columns), tiles, [&] {
                ComposedPicture column = pictureOf(tiles.front(), size);
                for (std::size_t i = 1; i < tiles.size(); ++i)
                    column = joinStacked(column, pictureOf(tiles[i], size));
                return finished(repeatSideBySide(column, columns));
            });
    } else {
        const tessaro::kit::TexturePtr tile = groundTexture(firstImageName(image));
        const int copies = repeatCount >= 1 ? int(shownCount(repeatCount, "repeat count")) : 1;
        picture = ComposedPictureCache::shared().picture(
            QStringLiteral("row ") + sizeKey(size) + QLatin1Char(' ') + QString::number(copies), {tile},
            [&] { return finished(repeatSideBySide(pictureOf(tile, size), copies)); });
    }

    cursor.runningX += offset.x;
    const double pw = picture.size.width();
    const double ph = picture.size.height();
    auto node = elementNode::create(picture.texture, picture.size);
    node->setSize(picture.size);
    node->setZPosition(z + 50);
    node->setPosition(cursor.runningX + pw / 2, offset.y + ph / 2 + frame.top());
    node->property_sceneObjectType = tessaro::sceneObjectType::ground;
    node->imageOverride = section.image;
    node->groundSection = section;
    node->sequenceId = cursor.sectionIndex;
    node->devices = section.devices;
    node->addChild(shapeNode::create(ph));
    m_groundNodes->addChild(node);

    const std::uint32_t staticBody = tessaro::collisionBit(tessaro::collisionTypes::staticObjectBody);
    const std::uint32_t collision = !stacked && repeatCount >= 1
        ? staticBody | tessaro::collisionBit(tessaro::collisionTypes::enemyTouch)
        : staticBody;
    node->applyPhysicsBody(tessaro::collisionBit(tessaro::collisionTypes::floor),
                           tessaro::collisionBit(tessaro::collisionTypes::none), collision, false, false);

    m_groundBase = node->position().y() + ph / 2;
    m_backgroundY = node->position().y();
    recordGroundVariant(cursor.runningX, *node, angles);
    cursor.runningX += pw;
    m_levelEndX += pw;
    ++cursor.sectionIndex;
}

void sceneEditor::recordGroundVariant(double x, const elementNode& node,
                                      const std::vector<tessaro::groundPhysicsAngleType>& angles)
{
    const double width = node.size().width();
    if (m_groundBaseVariants.empty()) {
        m_groundBaseVariants.emplace_back(x, m_groundBase, width, 0);
        return;
    }
    QRectF& last = m_groundBaseVariants.back();
    const bool sloped = std::find(angles.begin(), angles.end(), tessaro::groundPhysicsAngleType::angle) != angles.end();
    // A stretch grows only by a section that starts where it ends: after a
    // hazard or an offset gap the floor starts anew, so the gap has no floor
    // and the section beyond it has its own.
    const bool touches = std::abs(last.left() + last.width() - x) < 1e-6;
    if (touches && (last.bottom() == m_groundBase || sloped))
        last = QRectF(last.left(), last.bottom(), last.width() + width, 0);
    else
        m_groundBaseVariants.emplace_back(x, m_groundBase, width, 0);
}

double sceneEditor::groundHeight(double x) const
{
    double height = 0;
    for (const QRectF& floor : m_groundBaseVariants)
        if (floor.left() <= x && x <= floor.left() + floor.width())
            height = floor.top();
    return height;
}

void sceneEditor::rebuildGround(const tessaro::Uuid& levelId)
{
    std::optional<std::size_t> selectedIndex;
    if (m_tab && m_groundNodes && m_tab->levelSelected() == levelId) {
        const QString selected = QString::fromStdString(m_tab->selectedObject().name);
        const auto& children = m_groundNodes->children();
        for (std::size_t i = 0; i < children.size(); ++i)
            if (!selected.isEmpty() && children[i]->name() == selected) {
                selectedIndex = i;
                break;
            }
    }
    writeBack(levelId);
    deselect();
    if (const tessaro::Level* level = tabLevel(levelId); level && m_groundNodes) {
        m_groundNodes->removeAllChildren();
        if (level->ground)
            layoutGround(*level->ground);
    }
    if (selectedIndex && m_groundNodes && *selectedIndex < m_groundNodes->children().size())
        if (auto node = std::dynamic_pointer_cast<elementNode>(m_groundNodes->children()[*selectedIndex]))
            node->selectFromList();
}

} // namespace stagewright
