// The sprite of one element of a level on the canvas: a ground section, a
// background image, an obstacle, a character, a coin, a checkpoint, an
// artifact or a shield. A node is at once a picture and what the level file
// says about the element: it keeps the catalogue record, the sparse override
// record and the device list, so that writing back needs nothing else.
#pragma once

#include <stagewright/state/ElementRecords.h>

#include <tessaro/kit/ShapeNode.h>
#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/model/LevelRecords.h>

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace stagewright {

class SceneEditor;

/// The catalogue record an element shows where its level item says nothing.
using CatalogueRecord = DefaultViewRecord;

/// Which edge of its element a size handle drags.
enum class SizerType { top, right };

/// The size handle of an element ("nodeSizer"): a black 10 by 10 square whose
/// lower left corner stands at the middle of the element's top edge. Dragging
/// it up or down resizes the element, keeping its aspect ratio; the new size
/// is stored when the drag ends.
class SizerNode : public tessaro::kit::ShapeNode {
public:
    explicit SizerNode(SizerType type = SizerType::top);
    static std::shared_ptr<SizerNode> create(double elementHeight);

    void mouseDown(const tessaro::kit::MouseEvent& event) override;
    void mouseDragged(const tessaro::kit::MouseEvent& event) override;
    void mouseUp(const tessaro::kit::MouseEvent& event) override;

    bool isSelected = false;
    std::optional<SizerType> sizeType;
    std::optional<QSizeF> startingSize;
    std::optional<QPointF> startingPosition;
    double imageRatio = 0;
    bool isDragging = false;
};

/// The three red lines that show how far an obstacle or character acts.
class DistanceGuideNode : public tessaro::kit::Node {};

class ElementNode : public tessaro::kit::SpriteNode, public ElementData {
public:
    /// A node of `texture` at `size` (the texture's size when empty), with a
    /// clear colour, anchor (0.5,0.5) and a new UUID text as its name.
    ElementNode(const tessaro::kit::TexturePtr& texture, const QSizeF& size);
    static std::shared_ptr<ElementNode> create(const tessaro::kit::TexturePtr& texture, const QSizeF& size = {});

    // ---- Fields (the records are those of ElementData) -----------------------------

    bool isSelected = false;
    bool activelySelected = false;
    tessaro::pathDirection snaptoLocation = tessaro::pathDirection::none;
    bool repeatedNode = false;
    QString repeatParentNode;
    bool lockPosition = false;
    std::optional<tessaro::sceneObjectType> property_sceneObjectType;
    std::shared_ptr<DistanceGuideNode> distanceGuideNode;

    /// The element's identity for the session (0 for repeated copies and
    /// nodes outside a tab).
    ElementHandle handle = 0;

    // ---- Operations -------------------------------------------------------------------

    /// Adds count - 1 "stack_N" copies of the picture, each half a size plus
    /// (dx, 0) to the right of the one before, or half a size plus (0, dy)
    /// above it when `stacked`.
    void addStackChildren(bool stacked, std::int64_t count, double dx, double dy);
    void removeStackChildren();
    /// Rebuilds the red guide of the element's `distance` device value.
    void refreshDistanceGuide();
    /// Gives the node a body from its texture's alpha outline, or logs
    /// "Physics size zero for ..." and leaves it without one.
    void applyPhysicsBody(std::uint32_t category, std::uint32_t contact, std::uint32_t collision,
                          bool affectedByGravity, bool isDynamic);
    /// Shows the "snapToImage" marker on the side `snaptoLocation` names.
    void showSnapMarker();
    /// Marks this node as the one chosen from a list and publishes it.
    void selectFromList();
    /// Sets position (and an obstacle's rotation, a coin's stack) from `devices`.
    void placeFromDevices();
    /// The position the element's entry for the default device stores, (0,0)
    /// when it has none.
    tessaro::PointValue storedPosition() const;
    /// The `elementName` of the catalogue record, empty when there is none.
    std::string catalogueElementName() const;

    /// The element's records and look, without the node.
    ElementRecords records() const;
    /// Makes the node the element `element` describes: records, picture,
    /// size, depth, body, handle, glow, guide and stack, then its place.
    void restoreRecords(const ElementRecords& element);

    /// The red blurred copy of the picture behind the node ("glow").
    void addGlow();
    bool hasGlow() const;
    void removeGlow();

    /// The scene this node belongs to: its parent's parent or its parent.
    SceneEditor* editorScene() const;
    /// The kind, `none` when unset.
    tessaro::sceneObjectType kind() const { return property_sceneObjectType.value_or(tessaro::sceneObjectType::none); }
    const tessaro::Obstacle* catalogueObstacle() const;
    const tessaro::Character* catalogueCharacter() const;
    const tessaro::GenericObject* catalogueObject() const;

private:
    std::string physicsImageName() const;

    /// The glow child, kept so that the scene's many "is it glowing"
    /// questions do not search the children.
    tessaro::kit::NodePtr m_glow;
};

using ElementNodePtr = std::shared_ptr<ElementNode>;

/// A new UUID as node name text.
QString newNodeName();

} // namespace stagewright
