#include "ElementNode.h"

#include "SceneEditor.h"
#include "SceneNumbers.h"
#include "ScenePictures.h"

#include <tessaro/kit/EffectNode.h>
#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/layout/GroundPlan.h>
#include <tessaro/layout/ItemPlacement.h>
#include <tessaro/layout/LayoutContext.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Diagnostics.h>

#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace stagewright {

using tessaro::sceneObjectType;

QString newNodeName()
{
    return QString::fromStdString(tessaro::Uuid::create().text());
}

// ---- SizerNode --------------------------------------------------------------------------

SizerNode::SizerNode(SizerType type) : sizeType(type) {}

std::shared_ptr<SizerNode> SizerNode::create(double elementHeight)
{
    auto handle = std::make_shared<SizerNode>(SizerType::top);
    QPainterPath path;
    path.addRect(QRectF(0, 0, 10, 10));
    handle->setPath(path);
    handle->setUserInteractionEnabled(true);
    handle->setStrokeColor(Qt::black);
    handle->setLineWidth(1);
    handle->setFillColor(Qt::black);
    handle->setName(QStringLiteral("nodeSizer"));
    handle->setPosition(0, elementHeight / 2);
    return handle;
}

// ---- ElementNode ------------------------------------------------------------------------

ElementNode::ElementNode(const tessaro::kit::TexturePtr& texture, const QSizeF& size)
    : SpriteNode(texture, Qt::transparent, size)
{
    setName(newNodeName());
    setAnchorPoint(QPointF(0.5, 0.5));
}

std::shared_ptr<ElementNode> ElementNode::create(const tessaro::kit::TexturePtr& texture, const QSizeF& size)
{
    return std::make_shared<ElementNode>(texture, size);
}

SceneEditor* ElementNode::editorScene() const
{
    Node* parentNode = parent();
    if (!parentNode)
        return nullptr;
    if (auto* grand = dynamic_cast<SceneEditor*>(parentNode->parent()))
        return grand;
    return dynamic_cast<SceneEditor*>(parentNode);
}

const tessaro::Obstacle* ElementNode::catalogueObstacle() const
{
    return defaultViewProperties ? std::get_if<tessaro::Obstacle>(defaultViewProperties.get()) : nullptr;
}

const tessaro::Character* ElementNode::catalogueCharacter() const
{
    return defaultViewProperties ? std::get_if<tessaro::Character>(defaultViewProperties.get()) : nullptr;
}

const tessaro::GenericObject* ElementNode::catalogueObject() const
{
    return defaultViewProperties ? std::get_if<tessaro::GenericObject>(defaultViewProperties.get()) : nullptr;
}

tessaro::PointValue ElementNode::storedPosition() const
{
    if (!devices)
        return {};
    const tessaro::DeviceProperties* entry = tessaro::deviceEntryFor(*devices, tessaro::deviceName::defaultDevice);
    return entry && entry->position ? tessaro::pointFromText(*entry->position) : tessaro::PointValue{};
}

std::string ElementNode::catalogueElementName() const
{
    if (!defaultViewProperties)
        return {};
    return std::visit([](const auto& record) { return record.elementName.value_or(std::string()); },
                      *defaultViewProperties);
}

void ElementNode::addStackChildren(bool stacked, std::int64_t count, double dx, double dy)
{
    if (count <= 1)
        return;
    int n = 0;
    for (const tessaro::PointValue& step :
         tessaro::layout::coinSteps(stacked, count, {size().width(), size().height()}, {dx, dy})) {
        auto child = tessaro::kit::SpriteNode::create(texture(), size());
        child->setName(QStringLiteral("stack_") + QString::number(++n));
        child->setZPosition(zPosition());
        child->setPosition(step.x, step.y);
        addChild(child);
    }
}

void ElementNode::removeStackChildren()
{
    std::vector<tessaro::kit::NodePtr> stack;
    for (const auto& child : children())
        if (child->name().startsWith(QLatin1String("stack_")))
            stack.push_back(child);
    removeChildrenInArray(stack);
}

std::string ElementNode::physicsImageName() const
{
    switch (kind()) {
    case sceneObjectType::obstacles:
        return obstacleOverrides && obstacleOverrides->image ? *obstacleOverrides->image : "no obstacle image";
    case sceneObjectType::character:
        return characterOverrides && characterOverrides->image ? *characterOverrides->image : "no enemy/friend image";
    case sceneObjectType::artifact:
        return artifactOverrides && artifactOverrides->image ? *artifactOverrides->image : "no artifact image";
    case sceneObjectType::ground:
        return groundSection && groundSection->image ? *groundSection->image : "no ground image";
    case sceneObjectType::background:
        if (const SceneEditor* scene = editorScene();
            scene && scene->backgroundList() && backgroundAssociatedId && scene->backgroundList()->backgrounds)
            for (const auto& record : *scene->backgroundList()->backgrounds)
                if (record.id == backgroundAssociatedId && record.image)
                    return *record.image;
        return "no background image";
    default: return "no defined image";
    }
}

void ElementNode::applyPhysicsBody(std::uint32_t category, std::uint32_t contact, std::uint32_t collision,
                                   bool affectedByGravity, bool isDynamic)
{
    QSizeF effective = size();
    if (effective.isEmpty() && texture())
        effective = texture()->size();
    if (effective.isEmpty()) {
        tessaro::diagnostic("Physics size zero for " + name().toStdString() +
                            ", type: " + std::string(tessaro::caseText(kind())) + ", image: " + physicsImageName());
        return;
    }
    auto body = tessaro::kit::PhysicsBody::bodyWithTexture(texture(), 0.6f, effective);
    if (!body) {
        // A picture without an opaque pixel still takes part in contacts by its box.
        body = tessaro::kit::PhysicsBody::bodyWithRectangleOfSize(effective);
    }
    if (!body)
        return;
    body->setAffectedByGravity(affectedByGravity);
    body->setDynamic(isDynamic);
    body->setAllowsRotation(false);
    body->setCategoryBitMask(category);
    body->setContactTestBitMask(contact);
    body->setCollisionBitMask(collision);
    setPhysicsBody(body);
}

void ElementNode::placeFromDevices()
{
    const sceneObjectType type = kind();
    if (type == sceneObjectType::ground || type == sceneObjectType::background)
        return;
    const SceneEditor* scene = editorScene();
    static const tessaro::layout::GroundPlan noGround;
    // Outside a scene the default context answers: no device chosen,
    // nothing placed at random.
    tessaro::layout::LayoutContext context;
    if (scene) {
        context = scene->layoutContext();
    }
    const tessaro::PointValue place = tessaro::layout::itemPosition(type, devices, size().height(), property_useGravity,
                                                                    scene ? scene->groundPlan() : noGround, context);
    const std::string what = "position of element " + name().toStdString();
    setPosition(drawablePosition(place.x, what), drawablePosition(place.y, what));

    if (type == sceneObjectType::obstacles) {
        if (!(rotationOverrides && rotationOverrides->rotateForever.value_or(false))) {
            const double degrees =
                rotationOverrides && rotationOverrides->rotation ? *rotationOverrides->rotation : 0.0;
            setZRotation(degrees * std::numbers::pi / 180.0);
        }
    }
    if (type == sceneObjectType::coin && coinOverrides && coinOverrides->repeatCount.value_or(0) >= 1) {
        const tessaro::PointValue distance = scene ? scene->coinRepeatDistance() : tessaro::PointValue{};
        removeStackChildren();
        addStackChildren(coinOverrides->stack.value_or(false), *coinOverrides->repeatCount, distance.x, distance.y);
    }
}

void ElementNode::refreshDistanceGuide()
{
    std::optional<std::string> value;
    if (devices)
        if (const tessaro::DeviceProperties* entry =
                tessaro::deviceEntryFor(*devices, tessaro::deviceName::defaultDevice))
            value = entry->distance;
    if (!value) {
        // The catalogue's entry for the default device, found by name in the
        // catalogue of the element's own record type.
        const auto fromCatalogue = [&](const auto& catalogue, const std::string& elementName) {
            for (const auto& record : catalogue) {
                if (record.elementName != elementName || !record.devices)
                    continue;
                if (const tessaro::DeviceProperties* entry =
                        tessaro::deviceEntryFor(*record.devices, tessaro::deviceName::defaultDevice))
                    value = entry->distance;
                return;
            }
        };
        if (const tessaro::Obstacle* obstacle = catalogueObstacle())
            fromCatalogue(tessaro::obstacleCatalogue(), obstacle->elementName.value_or(std::string()));
        else if (const tessaro::Character* character = catalogueCharacter())
            fromCatalogue(tessaro::characterCatalogue(), character->elementName.value_or(std::string()));
    }
    if (!value)
        return;
    if (distanceGuideNode)
        distanceGuideNode->removeFromParent();
    const double d = tessaro::pointFromText(*value).x;
    const double e = kind() == sceneObjectType::character ? -d : d;
    auto guide = std::make_shared<DistanceGuideNode>();
    const auto line = [&](QPointF from, QPointF to) {
        QPainterPath path;
        path.moveTo(from);
        path.lineTo(to);
        auto shape = tessaro::kit::ShapeNode::shapeNodeWithPath(path);
        shape->setZPosition(-10);
        shape->setStrokeColor(Qt::red);
        shape->setLineWidth(2);
        shape->setLineCap(Qt::RoundCap);
        guide->addChild(shape);
    };
    line({0, 0}, {e, 0});
    line({0, 10}, {0, -10});
    line({e, 10}, {e, -10});
    distanceGuideNode = guide;
    addChild(guide);
}

void ElementNode::showSnapMarker()
{
    if (auto old = childNodeWithName(QStringLiteral("snapToImage")))
        old->removeFromParent();
    auto marker = tessaro::kit::SpriteNode::create(applicationTexture(QStringLiteral("snapto")), QSizeF(40, 40));
    marker->setAnchorPoint(QPointF(0.5, 0.5));
    marker->setName(QStringLiteral("snapToImage"));
    marker->setZPosition(100000);
    const double w = size().width(), h = size().height();
    switch (snaptoLocation) {
    case tessaro::pathDirection::top: marker->setPosition(0, h / 2); break;
    case tessaro::pathDirection::right: marker->setPosition(w / 2, 0); break;
    case tessaro::pathDirection::left: marker->setPosition(-w / 2, 0); break;
    case tessaro::pathDirection::bottom: marker->setPosition(0, -h / 2); break;
    default: marker->setPosition(0, 0); break;
    }
    addChild(marker);
}

void ElementNode::selectFromList()
{
    SceneEditor* scene = editorScene();
    if (scene)
        scene->enumerateChildNodesWithName(QStringLiteral("//*"), [](const tessaro::kit::NodePtr& node, bool&) {
            if (auto* element = dynamic_cast<ElementNode*>(node.get()))
                element->activelySelected = false;
        });
    activelySelected = true;
    if (scene)
        scene->publishSelection(*this);
}

void ElementNode::addGlow()
{
    if (hasGlow())
        return;
    auto glow = tessaro::kit::Node::create();
    glow->setName(QStringLiteral("glow"));
    glow->setZPosition(-1);
    auto effect = tessaro::kit::EffectNode::create();
    effect->setFilter(tessaro::kit::EffectFilter::gaussianBlur(30));
    effect->setShouldRasterize(true);
    auto copy = tessaro::kit::SpriteNode::create(texture(), size());
    copy->setColor(Qt::red);
    copy->setColorBlendFactor(1);
    effect->addChild(copy);
    glow->addChild(effect);
    addChild(glow);
    m_glow = glow;
}

bool ElementNode::hasGlow() const
{
    return m_glow && m_glow->parent() == this;
}

void ElementNode::removeGlow()
{
    if (hasGlow())
        m_glow->removeFromParent();
    m_glow.reset();
}

} // namespace stagewright
