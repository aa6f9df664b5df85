#include "Node.h"

#include "Action.h"
#include "PhysicsBody.h"
#include "PhysicsWorld.h"
#include "Scene.h"

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace tessaro::kit {

QPointF MouseEvent::locationInNode(const Node& node) const
{
    return node.rootTransform().inverted().map(sceneLocation);
}

Node::Node() = default;

Node::~Node()
{
    for (auto& child : m_children)
        child->m_parent = nullptr;
    if (m_physicsBody)
        m_physicsBody->m_node = nullptr;
}

// --- properties -----------------------------------------------------------------

void Node::setPosition(const QPointF& p)
{
    if (p == m_position)
        return;
    m_position = p;
    touch();
    markMoved();
}

void Node::setZPosition(qreal z)
{
    if (z == m_zPosition)
        return;
    m_zPosition = z;
    touch();
}

void Node::setZRotation(qreal radians)
{
    if (radians == m_zRotation)
        return;
    m_zRotation = radians;
    touch();
    markMoved();
}

void Node::setXScale(qreal s)
{
    m_xScale = s;
    touch();
    markMoved();
}

void Node::setYScale(qreal s)
{
    m_yScale = s;
    touch();
    markMoved();
}

void Node::setScale(qreal s)
{
    m_xScale = s;
    m_yScale = s;
    touch();
    markMoved();
}

void Node::markMoved()
{
    // Only bodies need to know; most nodes that move have none below them.
    if (!m_scene || m_scene == this || (!m_physicsBody && m_children.empty()))
        return;
    m_scene->physicsWorld().nodeMoved(*this);
}

void Node::setAlpha(qreal a)
{
    if (a == m_alpha)
        return;
    m_alpha = a;
    touch();
}

void Node::setHidden(bool hidden)
{
    if (hidden == m_hidden)
        return;
    m_hidden = hidden;
    touch();
}

// --- tree -----------------------------------------------------------------------

bool Node::inParentHierarchy(const Node& other) const
{
    for (const Node* n = this; n; n = n->m_parent)
        if (n == &other)
            return true;
    return false;
}

bool Node::acceptChild(const NodePtr& child) const
{
    if (!child) {
        qWarning("kit: addChild with a null node");
        return false;
    }
    if (child->m_parent) {
        qWarning() << "kit: node" << child->name() << "already has a parent";
        return false;
    }
    if (inParentHierarchy(*child)) {
        qWarning() << "kit: node" << child->name() << "cannot become a child of itself or of its descendant";
        return false;
    }
    if (dynamic_cast<const Scene*>(child.get())) {
        qWarning("kit: a scene cannot be a child");
        return false;
    }
    return true;
}

bool Node::addChild(const NodePtr& child)
{
    return insertChild(child, int(m_children.size()));
}

bool Node::insertChild(const NodePtr& child, int index)
{
    if (!acceptChild(child))
        return false;
    index = std::clamp(index, 0, int(m_children.size()));
    m_children.insert(m_children.begin() + index, child);
    child->m_parent = this;
    if (m_scene)
        child->setSceneRecursive(m_scene);
    touch();
    return true;
}

void Node::removeFromParent()
{
    if (!m_parent)
        return;
    NodePtr self = shared_from_this(); // keeps this node alive until we return
    Node* parent = m_parent;
    auto& siblings = parent->m_children;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), self), siblings.end());
    m_parent = nullptr;
    parent->touch();
    if (m_scene)
        setSceneRecursive(nullptr);
}

void Node::removeAllChildren()
{
    std::vector<NodePtr> old;
    old.swap(m_children);
    for (auto& child : old) {
        child->m_parent = nullptr;
        if (child->m_scene)
            child->setSceneRecursive(nullptr);
    }
    touch();
}

void Node::removeChildrenInArray(const std::vector<NodePtr>& nodes)
{
    for (const auto& n : nodes)
        if (n && n->m_parent == this)
            n->removeFromParent();
}

void Node::setSceneRecursive(Scene* scene)
{
    if (m_scene == scene)
        return;
    if (m_scene) {
        willLeaveScene(*m_scene);
        if (m_physicsBody && m_physicsBody->m_world)
            m_physicsBody->m_world->detach(*m_physicsBody);
    }
    m_scene = scene;
    if (m_scene) {
        if (m_physicsBody)
            m_scene->physicsWorld().attach(*m_physicsBody);
        didEnterScene(*m_scene);
    }
    // Copy: a hook may change the children.
    const std::vector<NodePtr> children = m_children;
    for (const auto& child : children)
        if (child->m_parent == this)
            child->setSceneRecursive(scene);
}

void Node::didEnterScene(Scene&) {}
void Node::willLeaveScene(Scene&) {}

// --- searching ------------------------------------------------------------------

bool nodeNameMatches(const QString& pattern, const QString& name)
{
    // The common searches, every node and one name, need no glob.
    if (pattern.size() == 1 && pattern[0] == QLatin1Char('*'))
        return true;
    if (!pattern.contains(QLatin1Char('*')) && !pattern.contains(QLatin1Char('[')))
        return pattern == name;
    // Iterative glob with backtracking on the last "*".
    int p = 0, n = 0, starP = -1, starN = 0;
    const int plen = pattern.size(), nlen = name.size();
    auto matchOne = [&](int& pi, QChar c) -> bool {
        // pattern[pi] is a literal or "[...]"; advances pi past it when it matches.
        if (pattern[pi] == QLatin1Char('[')) {
            int end = pattern.indexOf(QLatin1Char(']'), pi + 1);
            if (end < 0)
                return pattern[pi] == c ? (++pi, true) : false;
            bool negate = pi + 1 < end && (pattern[pi + 1] == QLatin1Char('^') || pattern[pi + 1] == QLatin1Char('!'));
            int i = pi + 1 + (negate ? 1 : 0);
            bool found = false;
            for (; i < end; ++i) {
                if (i + 2 < end && pattern[i + 1] == QLatin1Char('-')) {
                    if (c >= pattern[i] && c <= pattern[i + 2])
                        found = true;
                    i += 2;
                } else if (pattern[i] == c) {
                    found = true;
                }
            }
            if (found != negate) {
                pi = end + 1;
                return true;
            }
            return false;
        }
        if (pattern[pi] == c) {
            ++pi;
            return true;
        }
        return false;
    };
    while (n < nlen) {
        if (p < plen && pattern[p] == QLatin1Char('*')) {
            starP = ++p;
            starN = n;
            continue;
        }
        int before = p;
        if (p < plen && matchOne(p, name[n])) {
            ++n;
            continue;
        }
        p = before;
        if (starP >= 0) {
            p = starP;
            n = ++starN;
            continue;
        }
        return false;
    }
    while (p < plen && pattern[p] == QLatin1Char('*'))
        ++p;
    return p == plen;
}

namespace {

void collectDescendants(const Node& node, const QString& pattern, std::vector<const Node*>& out)
{
    for (const auto& child : node.children()) {
        if (nodeNameMatches(pattern, child->name()))
            out.push_back(child.get());
        collectDescendants(*child, pattern, out);
    }
}

} // namespace

std::vector<NodePtr> Node::nodesWithName(const QString& search) const
{
    std::vector<NodePtr> result;
    if (search.isEmpty())
        return result;

    const Node* start = this;
    QString path = search;
    bool recursive = false;
    if (path.startsWith(QLatin1String("/"))) {
        while (start->m_parent)
            start = start->m_parent;
        if (path.startsWith(QLatin1String("//"))) {
            recursive = true;
            path = path.mid(2);
        } else {
            path = path.mid(1);
        }
    }

    std::vector<const Node*> current{start};
    const QStringList parts = path.split(QLatin1Char('/'));
    bool any = false;
    for (const QString& part : parts) {
        if (part.isEmpty()) {
            recursive = true; // "a//b"
            continue;
        }
        any = true;
        std::vector<const Node*> next;
        if (part == QLatin1String("..")) {
            for (const Node* n : current)
                if (n->m_parent)
                    next.push_back(n->m_parent);
        } else if (part == QLatin1String(".")) {
            next = current;
        } else {
            for (const Node* n : current) {
                if (recursive) {
                    collectDescendants(*n, part, next);
                } else {
                    for (const auto& child : n->m_children)
                        if (nodeNameMatches(part, child->name()))
                            next.push_back(child.get());
                }
            }
        }
        // A node reached along two routes counts once, at its first place;
        // from one node there is only one route to each.
        if (current.size() == 1) {
            current.swap(next);
            recursive = false;
            if (current.empty())
                break;
            continue;
        }
        std::unordered_set<const Node*> seen;
        std::vector<const Node*> unique;
        unique.reserve(next.size());
        for (const Node* n : next)
            if (seen.insert(n).second)
                unique.push_back(n);
        current.swap(unique);
        recursive = false;
        if (current.empty())
            break;
    }
    if (!any)
        return result;
    result.reserve(current.size());
    for (const Node* n : current)
        result.push_back(std::const_pointer_cast<Node>(n->shared_from_this()));
    return result;
}

NodePtr Node::childNodeWithName(const QString& search) const
{
    // Fast path for a plain name without wildcards.
    if (!search.contains(QLatin1Char('/')) && !search.contains(QLatin1Char('*')) &&
        !search.contains(QLatin1Char('[')) && search != QLatin1String("..") && search != QLatin1String(".")) {
        for (const auto& child : m_children)
            if (child->name() == search)
                return child;
        return nullptr;
    }
    auto all = nodesWithName(search);
    return all.empty() ? nullptr : all.front();
}

void Node::enumerateChildNodesWithName(const QString& search,
                                       const std::function<void(const NodePtr&, bool& stop)>& block) const
{
    const auto matches = nodesWithName(search);
    bool stop = false;
    for (const auto& n : matches) {
        block(n, stop);
        if (stop)
            break;
    }
}

// --- geometry -------------------------------------------------------------------

QTransform Node::localTransform() const
{
    const qreal c = std::cos(m_zRotation), s = std::sin(m_zRotation);
    return QTransform(c * m_xScale, s * m_xScale, -s * m_yScale, c * m_yScale, m_position.x(), m_position.y());
}

QTransform Node::rootTransform() const
{
    QTransform t;
    for (const Node* n = this; n->m_parent; n = n->m_parent)
        t = t * n->localTransform();
    return t;
}

QRectF Node::frame() const
{
    const QRectF r = contentRect();
    if (r.isNull())
        return QRectF(m_position, QSizeF(0, 0));
    return localTransform().mapRect(r);
}

QRectF Node::calculateAccumulatedFrame() const
{
    QRectF acc;
    const QRectF own = contentRect();
    if (!own.isNull())
        acc = frame();
    if (!m_children.empty()) {
        const QTransform t = localTransform();
        for (const auto& child : m_children) {
            const QRectF c = child->calculateAccumulatedFrame();
            if (!c.isNull())
                acc = acc.united(t.mapRect(c));
        }
    }
    return acc.isNull() ? frame() : acc;
}

QPointF Node::convertPointToNode(const QPointF& p, const Node& node) const
{
    return node.rootTransform().inverted().map(rootTransform().map(p));
}

QPointF Node::convertPointFromNode(const QPointF& p, const Node& node) const
{
    return node.convertPointToNode(p, *this);
}

namespace {

// Maps a point of the parent's space into the child's space; false when the
// child's scale makes its space degenerate.
inline bool toChildSpace(const Node& child, const QPointF& p, QPointF& out)
{
    const qreal sx = child.xScale(), sy = child.yScale();
    if (sx == 0 || sy == 0)
        return false;
    const qreal dx = p.x() - child.position().x(), dy = p.y() - child.position().y();
    const qreal a = child.zRotation();
    if (a == 0) {
        out = QPointF(dx / sx, dy / sy);
    } else {
        const qreal c = std::cos(a), s = std::sin(a);
        out = QPointF((c * dx + s * dy) / sx, (-s * dx + c * dy) / sy);
    }
    return true;
}

struct Hit {
    const Node* node;
    qreal z;
    int order;
};

void collectHits(const Node& node, const QPointF& p, qreal z, int& order, std::vector<Hit>& hits)
{
    // A layer of a big level holds thousands of nodes scattered in memory,
    // and waiting for each in turn is most of a hit test: ask for the ones
    // a few places ahead while this one is looked at.
    constexpr std::size_t ahead = 4;
    const std::vector<NodePtr>& children = node.children();
    for (std::size_t i = 0; i < children.size(); ++i) {
        if (i + ahead < children.size()) {
            const char* next = reinterpret_cast<const char*>(children[i + ahead].get());
            for (std::size_t offset = 0; offset < sizeof(Node); offset += 64)
                __builtin_prefetch(next + offset);
        }
        const Node& child = *children[i];
        if (child.isHidden())
            continue;
        QPointF q;
        if (!toChildSpace(child, p, q))
            continue;
        const qreal cz = z + child.zPosition();
        const int myOrder = order++;
        if (child.hasContent() && child.contentRect().contains(q))
            hits.push_back({&child, cz, myOrder});
        if (!child.children().empty())
            collectHits(child, q, cz, order, hits);
    }
}

bool rectsTouch(const QRectF& a, const QRectF& b)
{
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

} // namespace

bool Node::containsPoint(const QPointF& p) const
{
    if (!hasContent())
        return false;
    QPointF q;
    return toChildSpace(*this, p, q) && contentRect().contains(q);
}

std::vector<NodePtr> Node::nodesAtPoint(const QPointF& p) const
{
    std::vector<Hit> hits;
    int order = 0;
    collectHits(*this, p, 0, order, hits);
    std::sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) {
        if (a.z != b.z)
            return a.z > b.z;
        return a.order > b.order;
    });
    std::vector<NodePtr> result;
    result.reserve(hits.size());
    for (const Hit& h : hits)
        result.push_back(std::const_pointer_cast<Node>(h.node->shared_from_this()));
    return result;
}

NodePtr Node::nodeAtPoint(const QPointF& p)
{
    auto all = nodesAtPoint(p);
    return all.empty() ? shared_from_this() : all.front();
}

bool Node::intersectsNode(const Node& other) const
{
    auto bounds = [](const Node& n) -> QRectF {
        if (auto scene = dynamic_cast<const Scene*>(&n))
            return scene->sceneFrame();
        const QRectF f = n.calculateAccumulatedFrame();
        return n.m_parent ? n.m_parent->rootTransform().mapRect(f) : f;
    };
    return rectsTouch(bounds(*this), bounds(other));
}

// --- actions --------------------------------------------------------------------

void Node::runAction(const ActionPtr& action, const QString& key)
{
    if (!action)
        return;
    if (!key.isEmpty())
        removeActionForKey(key);
    RunningAction ra;
    ra.key = key;
    ra.action = action;
    ra.runner = action->makeRunner();
    ra.startTime = (m_scene && m_scene->lastFrameTime() >= 0) ? m_scene->lastFrameTime() : -1;
    m_actions.push_back(std::move(ra));
}

void Node::runAction(const ActionPtr& action, std::function<void()> completion)
{
    if (!action)
        return;
    runAction(Action::sequence({action, Action::runBlock(std::move(completion))}));
}

ActionPtr Node::actionForKey(const QString& key) const
{
    if (key.isEmpty())
        return nullptr;
    for (const auto& ra : m_actions)
        if (!ra.removed && ra.key == key)
            return ra.action;
    return nullptr;
}

void Node::removeActionForKey(const QString& key)
{
    if (key.isEmpty())
        return;
    for (auto& ra : m_actions)
        if (ra.key == key)
            ra.removed = true;
    if (m_actionDepth == 0)
        std::erase_if(m_actions, [](const RunningAction& ra) { return ra.removed; });
}

void Node::removeAllActions()
{
    for (auto& ra : m_actions)
        ra.removed = true;
    if (m_actionDepth == 0)
        m_actions.clear();
}

bool Node::hasActions() const
{
    return std::any_of(m_actions.begin(), m_actions.end(), [](const RunningAction& ra) { return !ra.removed; });
}

void Node::advanceActions(double now, double dt, double speedFactor)
{
    if (m_actions.empty())
        return;
    NodePtr self = shared_from_this(); // an action may remove the node from its parent
    ++m_actionDepth;
    const size_t count = m_actions.size(); // actions started now begin at the next frame
    for (size_t i = 0; i < count && i < m_actions.size(); ++i) {
        if (m_actions[i].removed)
            continue;
        double step = dt;
        if (!m_actions[i].begun) {
            // The first advance covers only the time since the action was started.
            const double since = m_actions[i].startTime >= 0 ? (now - m_actions[i].startTime) * speedFactor : 0;
            step = std::clamp(since, 0.0, dt);
            m_actions[i].begun = true;
        }
        std::shared_ptr<ActionRunner> runner = m_actions[i].runner;
        const size_t outer = m_currentAction;
        m_currentAction = i;
        const double left = runner->advance(*this, step);
        m_currentAction = outer;
        if (left >= 0 && i < m_actions.size() && m_actions[i].runner == runner)
            m_actions[i].removed = true;
    }
    --m_actionDepth;
    if (m_actionDepth == 0)
        std::erase_if(m_actions, [](const RunningAction& ra) { return ra.removed; });
}

// --- physics --------------------------------------------------------------------

void Node::setPhysicsBody(const std::shared_ptr<PhysicsBody>& body)
{
    if (m_physicsBody == body)
        return;
    if (m_physicsBody) {
        if (m_physicsBody->m_world)
            m_physicsBody->m_world->detach(*m_physicsBody);
        m_physicsBody->m_node = nullptr;
    }
    std::shared_ptr<PhysicsBody> keep = body; // the old owner may drop it below
    if (keep && keep->m_node)
        keep->m_node->setPhysicsBody(nullptr);
    m_physicsBody = keep;
    if (keep) {
        keep->m_node = this;
        keep->m_written = false;
        if (m_scene)
            m_scene->physicsWorld().attach(*keep);
    }
}

// --- events ---------------------------------------------------------------------

#define KIT_FORWARD(method, type)                                                                                      \
    void Node::method(const type& event)                                                                               \
    {                                                                                                                  \
        if (m_parent)                                                                                                  \
            m_parent->method(event);                                                                                   \
    }
KIT_FORWARD(mouseDown, MouseEvent)
KIT_FORWARD(mouseDragged, MouseEvent)
KIT_FORWARD(mouseUp, MouseEvent)
KIT_FORWARD(rightMouseDown, MouseEvent)
KIT_FORWARD(rightMouseDragged, MouseEvent)
KIT_FORWARD(rightMouseUp, MouseEvent)
KIT_FORWARD(otherMouseDown, MouseEvent)
KIT_FORWARD(otherMouseDragged, MouseEvent)
KIT_FORWARD(otherMouseUp, MouseEvent)
KIT_FORWARD(mouseMoved, MouseEvent)
KIT_FORWARD(scrollWheel, MouseEvent)
KIT_FORWARD(keyDown, KeyEvent)
KIT_FORWARD(keyUp, KeyEvent)
#undef KIT_FORWARD

void Node::draw(DrawContext&) const {}

} // namespace tessaro::kit
