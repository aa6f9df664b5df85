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

navigationNode::navigationNode(navigationDirection direction)
    : SpriteNode(applicationTexture(imageName(direction)), QSizeF(50, 50)),
      moveDirection(direction)
{
    setName(nodeName(direction));
    setZPosition(1000000);
    setUserInteractionEnabled(true);
}

navigationNode::~navigationNode() = default;

QString navigationNode::nodeName(navigationDirection direction)
{
    switch (direction) {
    case navigationDirection::left: return QStringLiteral("navLeft");
    case navigationDirection::right: return QStringLiteral("navRight");
    case navigationDirection::up: return QStringLiteral("navTop");
    case navigationDirection::down: return QStringLiteral("navBottom");
    }
    return {};
}

QString navigationNode::imageName(navigationDirection direction)
{
    switch (direction) {
    case navigationDirection::left: return QStringLiteral("NavLeft");
    case navigationDirection::right: return QStringLiteral("NavRight");
    case navigationDirection::up: return QStringLiteral("NavTop");
    case navigationDirection::down: return QStringLiteral("NavBottom");
    }
    return {};
}

QPointF navigationNode::cornerOffset(navigationDirection direction)
{
    switch (direction) {
    case navigationDirection::left: return {60, 80};
    case navigationDirection::right: return {180, 80};
    case navigationDirection::up: return {120, 110};
    case navigationDirection::down: return {120, 50};
    }
    return {};
}

double navigationNode::stepFor(int count, double amount)
{
    if (count <= 10)
        return amount;
    if (count <= 20)
        return 2 * amount;
    if (count <= 30)
        return 10 * amount;
    return 50 * amount;
}

sceneEditor* navigationNode::editor() const
{
    return dynamic_cast<sceneEditor*>(scene());
}

void navigationNode::stopTimer()
{
    // The timer may be the sender of the tick that ends it: it goes once the
    // tick has been handled.
    if (m_moveTimer) {
        m_moveTimer->stop();
        m_moveTimer.release()->deleteLater();
    }
}

void navigationNode::step()
{
    if (!navigationMouseDown) {
        stopTimer();
        return;
    }
    const bool horizontal = moveDirection == navigationDirection::left || moveDirection == navigationDirection::right;
    const double amount = stepFor(moveCount, horizontal ? moveXAmount : moveYAmount);
    ++moveCount;
    sceneEditor* scene = editor();
    if (!scene || !moveDirection)
        return;
    QPointF delta;
    switch (*moveDirection) {
    case navigationDirection::left: delta = {amount, 0}; break;
    case navigationDirection::right: delta = {-amount, 0}; break;
    case navigationDirection::up: delta = {0, -amount}; break;
    case navigationDirection::down: delta = {0, amount}; break;
    }
    for (const auto& layer : {scene->pinnedBackgroundNodes(), scene->obstacleNodes(), scene->characterNodes(),
                              scene->groundNodes(), scene->coinNodes(), scene->artifactNodes(),
                              scene->checkpointNodes(), scene->shieldsNodes(), scene->navigationNodes()})
        if (layer)
            layer->setPosition(layer->position() + delta);
    emit scene->scrolled();
}

void navigationNode::nodesMoved()
{
    step();
}

void navigationNode::startRepeating()
{
    moveCount = 0;
    stopTimer();
    m_moveTimer = std::make_unique<QTimer>();
    m_moveTimer->setInterval(100);
    QObject::connect(m_moveTimer.get(), &QTimer::timeout, [this] { nodesMoved(); });
    m_moveTimer->start();
}

void navigationNode::mouseDown(const tessaro::kit::MouseEvent&)
{
    navigationMouseDown = true;
    step();
    m_delay = std::make_unique<QTimer>();
    m_delay->setSingleShot(true);
    QObject::connect(m_delay.get(), &QTimer::timeout, [this] { startRepeating(); });
    m_delay->start(600);
}

void navigationNode::mouseUp(const tessaro::kit::MouseEvent&)
{
    stopTimer();
    navigationMouseDown = false;
    moveCount = 0;
    sceneEditor* scene = editor();
    if (!scene || !scene->obstacleNodes())
        return;
    const QPointF offset = scene->obstacleNodes()->position();
    scene->moveScene(publishedElementList::scenePosition, tessaro::PointValue{-offset.x(), -offset.y()});
}

} // namespace stagewright
