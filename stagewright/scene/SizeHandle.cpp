// The size handle: dragging it up or down resizes its element about the
// element's centre, keeping the aspect ratio. At the end of the drag the new
// size is stored through the edit route, as the size field stores it; with no
// route the canvas shows the size until the element is made again.
#include "ElementNode.h"
#include "SceneEditor.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>

namespace stagewright {

void SizerNode::mouseDown(const tessaro::kit::MouseEvent&)
{
    auto* sprite = dynamic_cast<tessaro::kit::SpriteNode*>(parent());
    if (!sprite)
        return;
    startingSize = sprite->size();
    startingPosition = position();
    imageRatio = sprite->size().height() > 0 ? sprite->size().width() / sprite->size().height() : 1.0;
    tessaro::diagnostic("imageRatio: " + tessaro::numberText(imageRatio));
}

void SizerNode::mouseDragged(const tessaro::kit::MouseEvent& event)
{
    auto* sprite = dynamic_cast<tessaro::kit::SpriteNode*>(parent());
    if (!sprite || sizeType != SizerType::top || !startingSize || !startingPosition)
        return;
    isDragging = true;
    const double y = event.locationInNode(*sprite).y();
    // A handle dragged below the element's centre leaves a sliver, never less.
    const double height = std::max(1.0, startingSize->height() - (startingPosition->y() - y));
    sprite->setSize(QSizeF(sprite->size().width(), height));
    sprite->setSize(QSizeF(height * imageRatio, height));
    setPosition(0, height / 2);

    auto* element = dynamic_cast<ElementNode*>(sprite);
    SceneEditor* scene = element ? element->editorScene() : nullptr;
    if (ProjectTab* tab = scene ? scene->tab() : nullptr) {
        tab->selectedObject().real_Position =
            QString::asprintf("{%.0f, %.0f }", sprite->position().x(), sprite->position().y()).toStdString();
        tab->notifySelectedObjectChanged();
    }
}

void SizerNode::mouseUp(const tessaro::kit::MouseEvent&)
{
    if (!isDragging)
        return;
    isDragging = false;
    auto* element = dynamic_cast<ElementNode*>(parent());
    if (!element)
        return;
    SceneEditor* scene = element->editorScene();
    CanvasEditRoute* route = scene ? scene->editRoute() : nullptr;
    if (scene && route && startingSize) {
        // The history keeps the element at the size the press found; the
        // route stores the new one.
        const QSizeF dragged = element->size();
        element->setSize(*startingSize);
        setPosition(0, startingSize->height() / 2);
        route->resizeElement(*scene, *element, {dragged.width(), dragged.height()});
        return;
    }
    const tessaro::kit::PhysicsBody* body = element->physicsBody();
    if (!body)
        return;
    const ElementBodyMasks masks{body->categoryBitMask(), body->contactTestBitMask(), body->collisionBitMask(),
                                 body->affectedByGravity(), body->isDynamic()};
    element->setPhysicsBody(nullptr);
    if (element->kind() != tessaro::sceneObjectType::background)
        element->applyPhysicsBody(masks.category, masks.contact, tessaro::collisionBit(tessaro::collisionTypes::none),
                                  masks.affectedByGravity, masks.isDynamic);
}

} // namespace stagewright
