#include "NavigationControls.h"

#include "SceneEditor.h"
#include "ScenePictures.h"

#include <tessaro/model/ValueText.h>

namespace stagewright {

QString SKLabel::readOut(double x, double y)
{
    const auto shown = [](double value) {
        // -0 reads as 0, as the platform prints it.
        return QString::fromStdString(tessaro::numberText(value == 0 ? 0.0 : value));
    };
    return QStringLiteral("X: ") + shown(x) + QStringLiteral("  Y: ") + shown(y);
}

NavigationNode::NavigationNode(NavigationDirection direction)
    : SpriteNode(applicationTexture(imageName(direction)), QSizeF(50, 50)),
      moveDirection(direction)
{
    setName(nodeName(direction));
    setZPosition(1000000);
    setUserInteractionEnabled(true);
}

NavigationNode::~NavigationNode() = default;

QString NavigationNode::nodeName(NavigationDirection direction)
{
    switch (direction) {
    case NavigationDirection::left: return QStringLiteral("navLeft");
    case NavigationDirection::right: return QStringLiteral("navRight");
    case NavigationDirection::up: return QStringLiteral("navTop");
    case NavigationDirection::down: return QStringLiteral("navBottom");
    }
    return {};
}

QString NavigationNode::imageName(NavigationDirection direction)
{
    switch (direction) {
    case NavigationDirection::left: return QStringLiteral("NavLeft");
    case NavigationDirection::right: return QStringLiteral("NavRight");
    case NavigationDirection::up: return QStringLiteral("NavTop");
    case NavigationDirection::down: return QStringLiteral("NavBottom");
    }
    return {};
}

QPointF NavigationNode::cornerOffset(NavigationDirection direction)
{
    switch (direction) {
    case NavigationDirection::left: return {60, 80};
    case NavigationDirection::right: return {180, 80};
    case NavigationDirection::up: return {120, 110};
    case NavigationDirection::down: return {120, 50};
    }
    return {};
}

double NavigationNode::stepFor(int count, double amount)
{
    if (count <= 10)
        return amount;
    if (count <= 20)
        return 2 * amount;
    if (count <= 30)
        return 10 * amount;
    return 50 * amount;
}

SceneEditor* NavigationNode::editor() const
{
    return dynamic_cast<SceneEditor*>(scene());
}

void NavigationNode::stopTimer()
{
    // The timer may be the sender of the tick that ends it: it goes once the
    // tick has been handled.
    if (m_moveTimer) {
        m_moveTimer->stop();
        m_moveTimer.release()->deleteLater();
    }
}

void NavigationNode::step()
{
    if (!navigationMouseDown) {
        stopTimer();
        return;
    }
    const bool horizontal = moveDirection == NavigationDirection::left || moveDirection == NavigationDirection::right;
    const double amount = stepFor(moveCount, horizontal ? moveXAmount : moveYAmount);
    ++moveCount;
    SceneEditor* scene = editor();
    if (!scene || !moveDirection)
        return;
    QPointF delta;
    switch (*moveDirection) {
    case NavigationDirection::left: delta = {amount, 0}; break;
    case NavigationDirection::right: delta = {-amount, 0}; break;
    case NavigationDirection::up: delta = {0, -amount}; break;
    case NavigationDirection::down: delta = {0, amount}; break;
    }
    for (const auto& layer : {scene->pinnedBackgroundNodes(), scene->obstacleNodes(), scene->characterNodes(),
                              scene->groundNodes(), scene->coinNodes(), scene->artifactNodes(),
                              scene->checkpointNodes(), scene->shieldsNodes(), scene->navigationNodes()})
        if (layer)
            layer->setPosition(layer->position() + delta);
    emit scene->scrolled();
}

void NavigationNode::nodesMoved()
{
    step();
}

void NavigationNode::startRepeating()
{
    moveCount = 0;
    stopTimer();
    m_moveTimer = std::make_unique<QTimer>();
    m_moveTimer->setInterval(100);
    QObject::connect(m_moveTimer.get(), &QTimer::timeout, [this] { nodesMoved(); });
    m_moveTimer->start();
}

void NavigationNode::mouseDown(const tessaro::kit::MouseEvent&)
{
    navigationMouseDown = true;
    step();
    m_delay = std::make_unique<QTimer>();
    m_delay->setSingleShot(true);
    QObject::connect(m_delay.get(), &QTimer::timeout, [this] { startRepeating(); });
    m_delay->start(600);
}

void NavigationNode::mouseUp(const tessaro::kit::MouseEvent&)
{
    stopTimer();
    navigationMouseDown = false;
    moveCount = 0;
    SceneEditor* scene = editor();
    if (!scene || !scene->obstacleNodes())
        return;
    const QPointF offset = scene->obstacleNodes()->position();
    scene->moveScene(PublishedElementList::scenePosition, tessaro::PointValue{-offset.x(), -offset.y()});
}

} // namespace stagewright
