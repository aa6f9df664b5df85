// The overlay controls of the canvas: four scroll buttons that speed up while
// held, and the coordinate read-out. Both are children of the scene, not of a
// layer, so they stay at the view's lower left corner while the level scrolls.
#pragma once

#include <tessaro/kit/LabelNode.h>
#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/Enumerations.h>

#include <QTimer>

#include <memory>
#include <optional>

namespace stagewright {

class SceneEditor;

/// The coordinate read-out: "X: <x>  Y: <y>" of the scroll offset.
class SKLabel : public tessaro::kit::LabelNode {
public:
    using LabelNode::LabelNode;
    /// The read-out's text for a scroll offset.
    static QString readOut(double x, double y);
};

/// Scroll direction of a navigation button.
enum class NavigationDirection { left, right, up, down };

/// One scroll button. A press moves the level one step at once; after 0.6
/// seconds held, a step every 0.1 seconds, growing with the steps done:
/// steps 0 to 10 move the base amount, 11 to 20 twice, 21 to 30 ten times,
/// then fifty times. The release records the scroll position in the tab.
class NavigationNode : public tessaro::kit::SpriteNode {
public:
    explicit NavigationNode(NavigationDirection direction);
    ~NavigationNode() override;

    std::optional<NavigationDirection> moveDirection;
    bool isSelected = false;
    bool navigationMouseDown = false;
    double moveXAmount = 50;
    double moveYAmount = 50;
    int moveCount = 0;

    /// The repeat timer, or null when none runs.
    QTimer* moveTimer() const { return m_moveTimer.get(); }

    void mouseDown(const tessaro::kit::MouseEvent& event) override;
    void mouseUp(const tessaro::kit::MouseEvent& event) override;
    void mouseDragged(const tessaro::kit::MouseEvent&) override {}

    /// One timer tick: a step, or the end of the timer once the button is up.
    void nodesMoved();
    /// What the 0.6 second wait after a press runs: the count starts over and
    /// the repeat timer starts.
    void startRepeating();
    /// The step of tick `count` for a base amount.
    static double stepFor(int count, double amount);

    /// Name, image and place of each button, relative to the frame's minimum corner.
    static QString nodeName(NavigationDirection direction);
    static QString imageName(NavigationDirection direction);
    static QPointF cornerOffset(NavigationDirection direction);

private:
    void step();
    void stopTimer();
    SceneEditor* editor() const;

    std::unique_ptr<QTimer> m_moveTimer;
    std::unique_ptr<QTimer> m_delay;
};

} // namespace stagewright
