// The ground on the canvas: the layout lays the sections out; each becomes an
// element node with the picture composed from its images. A hidden section
// stays a node in its place so that a save keeps it where it was.
#include "SceneEditor.h"
#include "ScenePictures.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/layout/GroundPlan.h>
#include <tessaro/layout/LayoutContext.h>
#include <tessaro/model/LevelFiles.h>

namespace stagewright {

namespace {

tessaro::kit::TexturePtr groundTexture(const std::string& name)
{
    return SceneImageCache::shared().picture(tessaro::sceneObjectType::ground, QString::fromStdString(name)).texture;
}

QString sizeKey(QSizeF size)
{
    return QString::number(size.width()) + QLatin1Char('x') + QString::number(size.height());
}

ComposedTexture finished(const ComposedPicture& picture)
{
    return {textureOf(picture), picture.size};
}

/// The picture of a laid-out section: its column of images, side by side.
ComposedTexture groundPicture(const tessaro::layout::GroundPiece& piece)
{
    if (piece.columns <= 0)
        return {textureOf(ComposedPicture{}), QSizeF(0, 0)};
    const QSizeF size(piece.tileSize.width, piece.tileSize.height);
    std::vector<tessaro::kit::TexturePtr> tiles;
    for (const std::string& name : piece.images)
        tiles.push_back(groundTexture(name));
    return ComposedPictureCache::shared().picture(
        QStringLiteral("columns ") + sizeKey(size) + QLatin1Char(' ') + QString::number(piece.columns), tiles, [&] {
            ComposedPicture column = pictureOf(tiles.front(), size);
            for (std::size_t i = 1; i < tiles.size(); ++i)
                column = joinStacked(column, pictureOf(tiles[i], size));
            return finished(repeatSideBySide(column, piece.columns));
        });
}

} // namespace

void SceneEditor::layoutGround(const std::vector<tessaro::GroundSection>& sections)
{
    if (!m_groundNodes)
        return;
    auto plan = std::make_shared<tessaro::layout::GroundPlan>(tessaro::layout::layGround(sections, layoutContext()));
    m_levelEndX = plan->length;
    m_groundBaseVariants.clear();
    for (const tessaro::layout::FloorStretch& floor : plan->floors)
        m_groundBaseVariants.emplace_back(floor.x, floor.top, floor.width, 0);
    std::int64_t sequenceId = 0;
    for (const tessaro::layout::GroundPiece& piece : plan->pieces) {
        addGroundNode(sections[piece.section], piece, sequenceId);
        if (!piece.hidden) {
            m_groundBase = plan->floorTop;
            m_backgroundY = plan->lastCentreY;
            ++sequenceId;
        }
    }
    m_groundPlan = std::move(plan);
    assignHandles(tessaro::sceneObjectType::ground);
    emit groundLaidOut();
}

void SceneEditor::addGroundNode(const tessaro::GroundSection& section, const tessaro::layout::GroundPiece& piece,
                                std::int64_t sequenceId)
{
    const ComposedTexture picture = piece.hidden ? ComposedTexture{nullptr, QSizeF()} : groundPicture(piece);
    auto node = ElementNode::create(picture.texture, picture.size);
    if (piece.hidden)
        node->setHidden(true);
    else
        node->setSize(QSizeF(piece.size.width, piece.size.height));
    node->setZPosition(piece.z);
    node->setPosition(piece.centre.x, piece.centre.y);
    node->property_sceneObjectType = tessaro::sceneObjectType::ground;
    node->groundSection = section;
    node->sequenceId = sequenceId;
    node->devices = section.devices;
    if (!piece.hazard)
        node->imageOverride = section.image;
    if (piece.hidden || piece.hazard) {
        m_groundNodes->addChild(node);
        return;
    }
    node->addChild(SizerNode::create(piece.size.height));
    m_groundNodes->addChild(node);
    const std::uint32_t staticBody = tessaro::collisionBit(tessaro::collisionTypes::staticObjectBody);
    const std::uint32_t collision =
        piece.repeatedRow ? staticBody | tessaro::collisionBit(tessaro::collisionTypes::enemyTouch) : staticBody;
    node->applyPhysicsBody(tessaro::collisionBit(tessaro::collisionTypes::floor),
                           tessaro::collisionBit(tessaro::collisionTypes::none), collision, false, false);
}

double SceneEditor::groundHeight(double x) const
{
    return groundPlan().groundHeight(x);
}

const tessaro::layout::GroundPlan& SceneEditor::groundPlan() const
{
    static const tessaro::layout::GroundPlan none;
    return m_groundPlan ? *m_groundPlan : none;
}

void SceneEditor::rebuildGround(const tessaro::Uuid& levelId)
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
        if (auto node = std::dynamic_pointer_cast<ElementNode>(m_groundNodes->children()[*selectedIndex]))
            node->selectFromList();
}

} // namespace stagewright
