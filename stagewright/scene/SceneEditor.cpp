#include "SceneEditor.h"

#include "SceneLayers.h"
#include "SceneNumbers.h"
#include "ScenePictures.h"
#include "SceneWriteBack.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/kit/PhysicsWorld.h>
#include <tessaro/kit/SceneView.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <cmath>

namespace stagewright {

using tessaro::kit::NodePtr;

namespace {

tessaro::kit::SceneScaleMode kitScaleMode(sceneScaleMode mode)
{
    return tessaro::kit::SceneScaleMode(int(mode));
}

} // namespace

SceneEditor::SceneEditor(ProjectTab* tab, const SceneSetup& setup, CanvasHooks hooks)
    : tessaro::kit::Scene(QSizeF(setup.size.width, setup.size.height)),
      m_tab(tab),
      m_hooks(std::move(hooks)),
      m_tools(std::make_unique<CanvasTools>(*this)),
      m_placement(std::make_unique<ElementPlacement>(*this))
{
    physicsWorld().setContactDelegate(this);
    // The canvas uses physics only to see floor pieces touch: bodies follow
    // their nodes and nothing is ever moved by the simulation.
    physicsWorld().setSpeed(0);
    setUserInteractionEnabled(true);

    m_backgroundNodes = makeLayer(layerNames::backgrounds);
    m_pinnedBackgroundNodes = makeLayer(layerNames::pinnedBackgrounds);
    m_obstacleNodes = makeLayer(layerNames::obstacles);
    m_characterNodes = makeLayer(layerNames::characters);
    m_groundNodes = makeLayer(layerNames::ground);
    m_coinNodes = makeLayer(layerNames::coins);
    m_artifactNodes = makeLayer(layerNames::artifacts);
    m_checkpointNodes = makeLayer(layerNames::checkpoints);
    m_navigationNodes = makeLayer(layerNames::navigation);
    m_shieldsNodes = makeLayer(layerNames::shields);

    addNavigationControls();
    // The tab's "hide background" switch reaches the scene it shows.
    if (m_tab) {
        QObject::connect(m_tab, &ProjectTab::backgroundElementsHiddenChanged, this,
                         [this] { setBackgroundsHidden(m_tab->backgroundElementsHidden()); });
        QObject::connect(&m_tab->document(), &LevelDocument::levelChanged, this,
                         [this](const tessaro::Uuid& levelId, const tessaro::FieldPath& path) {
                             if (levelId == m_tab->levelSelected())
                                 followLevelField(path);
                         });
    }

    setName(setup.name);
    setBackgroundColor(QColor(setup.backgroundColor.red, setup.backgroundColor.green, setup.backgroundColor.blue,
                              setup.backgroundColor.alpha));
    m_sceneSize = setup.size;
    m_sceneScaleMode = setup.scaleMode;
    m_sceneOrientation = setup.orientation;
    m_sceneAnchorPoint = setup.anchorPoint;
    applyPlatformSettings();
}

SceneEditor::~SceneEditor()
{
    // Nodes leave while the scene (and its physics world) still exists.
    removeAllChildren();
}

std::shared_ptr<SceneEditor> SceneEditor::create(ProjectTab* tab, const SceneSetup& setup, CanvasHooks hooks)
{
    return std::make_shared<SceneEditor>(tab, setup, std::move(hooks));
}

NodePtr SceneEditor::makeLayer(const char* name)
{
    auto layer = tessaro::kit::Node::create();
    layer->setZPosition(1);
    layer->setName(QString::fromLatin1(name));
    layer->setPosition(0, 0);
    addChild(layer);
    return layer;
}

NodePtr SceneEditor::layerFor(tessaro::sceneObjectType kind) const
{
    using tessaro::sceneObjectType;
    switch (kind) {
    case sceneObjectType::obstacles: return m_obstacleNodes;
    case sceneObjectType::character: return m_characterNodes;
    case sceneObjectType::checkpoint: return m_checkpointNodes;
    case sceneObjectType::coin: return m_coinNodes;
    case sceneObjectType::shield: return m_shieldsNodes;
    case sceneObjectType::artifact: return m_artifactNodes;
    case sceneObjectType::ground: return m_groundNodes;
    case sceneObjectType::background: return m_backgroundNodes;
    default: return nullptr;
    }
}

std::vector<ElementNodePtr> SceneEditor::elementsOf(const NodePtr& layer)
{
    std::vector<ElementNodePtr> elements;
    if (!layer)
        return elements;
    elements.reserve(layer->children().size());
    for (const NodePtr& child : layer->children())
        if (auto element = std::dynamic_pointer_cast<ElementNode>(child))
            elements.push_back(std::move(element));
    return elements;
}

const tessaro::Level* SceneEditor::tabLevel(const tessaro::Uuid& id) const
{
    if (!m_tab)
        return nullptr;
    for (const tessaro::Level& level : m_tab->levelConfig())
        if (level.id == id)
            return &level;
    return nullptr;
}

tessaro::Level* SceneEditor::tabLevel(const tessaro::Uuid& id)
{
    return m_tab ? m_tab->findLevel(id) : nullptr;
}

// ---- Scene settings ------------------------------------------------------------------------

void SceneEditor::applyPlatformSettings()
{
    Scene::setSize(QSizeF(m_sceneSize.width, m_sceneSize.height));
    Scene::setAnchorPoint(QPointF(m_sceneAnchorPoint.x, m_sceneAnchorPoint.y));
    Scene::setScaleMode(kitScaleMode(m_sceneScaleMode));
}

void SceneEditor::setSize(tessaro::SizeValue size)
{
    m_sceneSize = size;
    Scene::setSize(QSizeF(size.width, size.height));
    emit sceneSettingsChanged();
}

void SceneEditor::setAnchorPoint(tessaro::PointValue anchor)
{
    m_sceneAnchorPoint = anchor;
    Scene::setAnchorPoint(QPointF(anchor.x, anchor.y));
    emit sceneSettingsChanged();
}

void SceneEditor::setScaleMode(sceneScaleMode mode)
{
    m_sceneScaleMode = mode;
    Scene::setScaleMode(kitScaleMode(mode));
    emit sceneSettingsChanged();
}

void SceneEditor::setOrientation(tessaro::sceneOrientationType orientation)
{
    m_sceneOrientation = orientation;
    emit sceneSettingsChanged();
}

void SceneEditor::releaseContent()
{
    clearScene(false);
}

void SceneEditor::updateOverlays()
{
    layoutNavigationControls();
}

// ---- Loading --------------------------------------------------------------------------------

void SceneEditor::loadLevel(const tessaro::Uuid& levelId)
{
    const tessaro::Level* found = tabLevel(levelId);
    if (!found)
        return;
    // Placement reads the tab (the coins' repeat distance); work on a copy so
    // that nothing it does to the list can move the record under us.
    const tessaro::Level level = *found;
    m_placement->forgetCatalogueEntries();

    if (level.ground)
        layoutGround(*level.ground);

    if (level.background) {
        m_backgroundList = *level.background;
        // Every image gets an id, which the panes and the history find it by;
        // the document keeps it, as a save would.
        bool named = false;
        if (m_backgroundList->backgrounds)
            for (tessaro::BackgroundImage& image : *m_backgroundList->backgrounds)
                if (!image.id) {
                    image.id = tessaro::Uuid::create();
                    named = true;
                }
        if (tessaro::Level* stored = named ? tabLevel(levelId) : nullptr)
            stored->background = *m_backgroundList;
        rebuildBackgrounds();
        emit backgroundListChanged();
    }

    const tessaro::LevelSettings& settings = level.settings;
    const tessaro::SizeValue deviceSize{tessaro::deviceSize(tessaro::deviceName::defaultDevice).width,
                                        tessaro::deviceSize(tessaro::deviceName::defaultDevice).height};
    m_shownInsteadOfText = {};
    const tessaro::SizeValue typedSize = settings.size ? tessaro::sizeFromText(*settings.size) : deviceSize;
    m_sceneSize = settings.size ? drawableSize(typedSize, "scene size") : deviceSize;
    if (m_sceneSize.width <= 0 || m_sceneSize.height <= 0) {
        if (settings.size)
            tessaro::diagnostic("The scene size \"" + *settings.size + "\" has no area; the level is shown at " +
                                tessaro::textFromSize(deviceSize) + ".");
        m_sceneSize = deviceSize;
    }
    if (settings.size && !(m_sceneSize == typedSize))
        m_shownInsteadOfText.size = m_sceneSize;
    m_sceneScaleMode = sceneScaleMode(tessaro::scaleModeFromText(settings.scaleMode));
    m_sceneAnchorPoint =
        settings.anchorPoint ? tessaro::pointFromText(*settings.anchorPoint) : tessaro::PointValue{0.5, 0.5};
    if (!std::isfinite(m_sceneAnchorPoint.x) || !std::isfinite(m_sceneAnchorPoint.y)) {
        tessaro::diagnostic("The anchor point \"" + *settings.anchorPoint +
                            "\" cannot be used; the level is shown "
                            "with the anchor in the middle.");
        m_sceneAnchorPoint = {0.5, 0.5};
        m_shownInsteadOfText.anchorPoint = m_sceneAnchorPoint;
    }
    m_sceneOrientation = tessaro::caseFromText<tessaro::sceneOrientationType>(settings.sceneOrientation)
                             .value_or(tessaro::sceneOrientationType::landscape);
    applyPlatformSettings();
    emit sceneSettingsChanged();

    if (level.obstacles)
        for (const tessaro::ObstacleLevelItem& item : *level.obstacles)
            m_placement->placeObstacle(item);
    if (level.characters)
        for (const tessaro::CharacterLevelItem& item : *level.characters)
            m_placement->placeCharacter(item);
    if (level.checkpoints && level.checkpoints->locations)
        for (const tessaro::CheckPointLocation& location : *level.checkpoints->locations)
            m_placement->placeCheckpoint(location, level.checkpoints->image);
    if (level.coins && level.coins->coins) {
        const tessaro::PointValue distance =
            tessaro::roundedPointFromText(1, level.coins->repeatDistance.value_or(std::string()));
        for (const tessaro::Coin& coin : *level.coins->coins)
            m_placement->placeCoin(coin, distance.x, distance.y);
    }
    if (level.artifacts && level.artifacts->artifacts)
        for (const tessaro::Artifact& artifact : *level.artifacts->artifacts)
            m_placement->placeArtifact(artifact);
    if (level.shields && level.shields->shields)
        for (const tessaro::Shield& shield : *level.shields->shields)
            m_placement->placeShield(shield, level.shields->image.value_or(std::string()));

    for (tessaro::sceneObjectType kind : {tessaro::sceneObjectType::obstacles, tessaro::sceneObjectType::character,
                                          tessaro::sceneObjectType::checkpoint, tessaro::sceneObjectType::coin,
                                          tessaro::sceneObjectType::artifact, tessaro::sceneObjectType::shield})
        assignHandles(kind);
    if (m_tab)
        setBackgroundsHidden(m_tab->backgroundElementsHidden());
}

void SceneEditor::clearScene(bool keepLayers)
{
    const std::vector<NodePtr*> layers{
        &m_backgroundNodes, &m_pinnedBackgroundNodes, &m_obstacleNodes,   &m_characterNodes, &m_groundNodes,
        &m_coinNodes,       &m_artifactNodes,         &m_checkpointNodes, &m_shieldsNodes,   &m_navigationNodes};
    for (NodePtr* layer : layers)
        if (*layer)
            (*layer)->removeAllChildren();
    if (!keepLayers) {
        for (NodePtr* layer : layers) {
            if (*layer)
                (*layer)->removeFromParent();
            layer->reset();
        }
        if (m_positionXCount)
            m_positionXCount->removeFromParent();
        m_positionXCount.reset();
    }
    m_nodeIntersected.clear();
}

// ---- Overlays ---------------------------------------------------------------------------------

void SceneEditor::addNavigationControls()
{
    const QRectF frame = frameRect();
    for (NavigationDirection direction :
         {NavigationDirection::left, NavigationDirection::right, NavigationDirection::up, NavigationDirection::down}) {
        auto button = std::make_shared<NavigationNode>(direction);
        button->setPosition(frame.topLeft() + NavigationNode::cornerOffset(direction));
        addChild(button);
    }
    m_positionXCount = std::make_shared<SKLabel>();
    m_positionXCount->setName(QStringLiteral("positionXCount"));
    m_positionXCount->setFontName(QStringLiteral("System-Bold"));
    m_positionXCount->setFontSize(20);
    m_positionXCount->setFontColor(Qt::white);
    m_positionXCount->setHorizontalAlignmentMode(tessaro::kit::LabelHorizontalAlignment::Left);
    m_positionXCount->setVerticalAlignmentMode(tessaro::kit::LabelVerticalAlignment::Top);
    m_positionXCount->setZPosition(1000000);
    m_positionXCount->setNumberOfLines(0);
    m_positionXCount->setPreferredMaxLayoutWidth(0);
    m_positionXCount->setHidden(false);
    m_positionXCount->setPosition(frame.left() + 220, frame.top() + 90);
    m_positionXCount->setText(SKLabel::readOut(0, 0));
    addChild(m_positionXCount);
}

void SceneEditor::layoutNavigationControls()
{
    // sceneFrame() is y up: its top() is the minimum y, the bottom edge of the view.
    const QRectF frame = frameRect();
    for (NavigationDirection direction :
         {NavigationDirection::left, NavigationDirection::right, NavigationDirection::up, NavigationDirection::down})
        if (NodePtr button = childNodeWithName(NavigationNode::nodeName(direction)))
            button->setPosition(frame.topLeft() + NavigationNode::cornerOffset(direction));
}

void SceneEditor::update(double)
{
    if (m_positionXCount) {
        const QPointF offset = m_navigationNodes ? m_navigationNodes->position() : QPointF();
        m_positionXCount->setText(SKLabel::readOut(-offset.x(), -offset.y()));
    }
    for (const ElementNodePtr& node : m_nodeIntersected) {
        tessaro::kit::PhysicsBody* body = node->physicsBody();
        if (body && body->allContactedBodies().empty())
            if (NodePtr marker = node->childNodeWithName(QStringLiteral("snapToImage")))
                marker->removeFromParent();
    }
}

void SceneEditor::didMoveToView(tessaro::kit::SceneView* view)
{
    const QSizeF viewSize = view ? QSizeF(view->size()) : QSizeF();
    tessaro::diagnostic("Scene size: (" + tessaro::numberText(Scene::size().width()) + ", " +
                        tessaro::numberText(Scene::size().height()) + "), view size: (" +
                        tessaro::numberText(viewSize.width()) + ", " + tessaro::numberText(viewSize.height()) + ")");
}

void SceneEditor::didBeginContact(const tessaro::kit::PhysicsContact& contact)
{
    const auto bodyA = contact.bodyA();
    const auto bodyB = contact.bodyB();
    if (!bodyA || !bodyB || !bodyA->node() || !bodyB->node() || !bodyA->node()->parent() || !bodyB->node()->parent())
        return;
    const std::uint32_t floorBit = tessaro::collisionBit(tessaro::collisionTypes::floor);
    if (bodyA->categoryBitMask() != floorBit || bodyB->categoryBitMask() != floorBit)
        return;
    auto* a = dynamic_cast<ElementNode*>(bodyA->node());
    auto* b = dynamic_cast<ElementNode*>(bodyB->node());
    if (!a || !b)
        return;
    ElementNode* selected = b->activelySelected ? b : a;
    ElementNode* other = selected == b ? a : b;
    auto otherPtr = std::dynamic_pointer_cast<ElementNode>(other->shared_from_this());
    m_nodeIntersected.push_back(otherPtr);
    const double selectedRight = selected->position().x() + selected->size().width() / 2;
    const double otherRight = other->position().x() + other->size().width() / 2;
    other->snaptoLocation = selectedRight < otherRight ? tessaro::pathDirection::right : tessaro::pathDirection::top;
    other->showSnapMarker();
}

// ---- Scrolling and selection hooks ----------------------------------------------------------------

void SceneEditor::moveScene(PublishedElementList selector, std::optional<tessaro::PointValue> value)
{
    if (selector != PublishedElementList::scenePosition)
        return;
    const tessaro::PointValue point = value.value_or(tessaro::PointValue{});
    if (m_tab)
        m_tab->setScenePosition(point);
    for (const NodePtr& layer : {m_pinnedBackgroundNodes, m_obstacleNodes, m_characterNodes, m_groundNodes, m_coinNodes,
                                 m_artifactNodes, m_checkpointNodes, m_shieldsNodes, m_navigationNodes})
        if (layer)
            layer->setPosition(-point.x, -point.y);
    emit scrolled();
}

tessaro::PointValue SceneEditor::scrollPosition() const
{
    if (!m_navigationNodes)
        return {};
    return {-m_navigationNodes->position().x(), -m_navigationNodes->position().y()};
}

std::array<NodePtr, 9> SceneEditor::elementLayers() const
{
    return {m_backgroundNodes, m_pinnedBackgroundNodes, m_obstacleNodes,   m_characterNodes, m_groundNodes,
            m_coinNodes,       m_artifactNodes,         m_checkpointNodes, m_shieldsNodes};
}

void SceneEditor::clearGlow(const ElementNode* keep)
{
    // Only elements that can be selected glow, and they stand in the layers.
    for (const NodePtr& layer : elementLayers())
        if (layer)
            for (const NodePtr& node : layer->children())
                if (auto* element = dynamic_cast<ElementNode*>(node.get()); element && element != keep)
                    element->removeGlow();
}

ElementNodePtr SceneEditor::elementNamed(const QString& name) const
{
    ElementNodePtr found;
    if (name.isEmpty())
        return found;
    // Elements stand in the layers; a search of the whole tree is the
    // fall-back for a node placed deeper.
    for (const NodePtr& layer : elementLayers())
        if (layer)
            for (const NodePtr& node : layer->children())
                if (node->name() == name)
                    if (auto element = std::dynamic_pointer_cast<ElementNode>(node))
                        return element;
    enumerateChildNodesWithName(QStringLiteral("//*"), [&](const NodePtr& node, bool& stop) {
        if (node->name() == name) {
            if (auto element = std::dynamic_pointer_cast<ElementNode>(node)) {
                found = element;
                stop = true;
            }
        }
    });
    return found;
}

ElementNodePtr SceneEditor::selectedNode() const
{
    if (!m_tab)
        return nullptr;
    return elementNamed(QString::fromStdString(m_tab->selectedObject().name));
}

void SceneEditor::deselect()
{
    if (m_tab) {
        m_tab->setElementPhase(SelectionPhase::NotSelected);
        m_tab->setSelectedObject({});
    }
    for (const NodePtr& layer : {m_backgroundNodes, m_pinnedBackgroundNodes})
        if (layer)
            for (const NodePtr& child : layer->children())
                child->setAlpha(1);
}

void SceneEditor::reselect(const ElementNodePtr& node)
{
    deselect();
    clearGlow();
    selectNode(node);
}

void SceneEditor::publishSelection(ElementNode& node)
{
    // Selecting the selected element again changes nothing, so that edits in
    // progress survive.
    if (m_tab && m_tab->elementPhase() == SelectionPhase::Selected &&
        m_tab->selectedObject().name == node.name().toStdString())
        return;
    if (!node.hasGlow()) {
        if (node.parent() && node.parent()->parent() == this)
            clearGlow();
        node.addGlow();
    }
    if (m_hooks.publishSelection) {
        m_hooks.publishSelection(*this, node);
        return;
    }
    if (!m_tab)
        return;
    SelectedObjectModel model;
    model.name = node.name().toStdString();
    model.type = node.kind();
    m_tab->setSelectedObject(std::move(model));
    m_tab->setElementPhase(SelectionPhase::Selected);
}

void SceneEditor::writeBack(const tessaro::Uuid& levelId)
{
    tessaro::Level* level = tabLevel(levelId);
    const SceneWriteBack collect(*this);

    tessaro::LevelSettings settings = collect.collectSettings(level);
    std::vector<tessaro::GroundSection> ground = collect.collectGround();
    std::vector<tessaro::ObstacleLevelItem> obstacles = collect.collectObstacles();
    std::vector<tessaro::CharacterLevelItem> characters = collect.collectCharacters();
    tessaro::Artifacts artifacts = collect.collectArtifacts(level);
    tessaro::Shields shields = collect.collectShields(level);
    tessaro::Coins coins = collect.collectCoins(level);
    tessaro::CheckPointData checkpoints = collect.collectCheckpoints(level);
    if (!level)
        return;

    // The backgrounds are edited in the level's document, never here.
    level->settings = std::move(settings);
    // A list the file did not have stays absent while the scene has nothing for it.
    if (level->ground || !ground.empty())
        level->ground = std::move(ground);
    if (level->obstacles || !obstacles.empty())
        level->obstacles = std::move(obstacles);
    if (level->characters || !characters.empty())
        level->characters = std::move(characters);
    level->artifacts = std::move(artifacts);
    level->shields = std::move(shields);
    level->coins = std::move(coins);
    level->checkpoints = std::move(checkpoints);
    rememberHandles(levelId);
    if (m_tab)
        m_tab->notifyLevelConfigChanged();
}

void SceneEditor::mouseDown(const tessaro::kit::MouseEvent& event)
{
    m_tools->mouseDown(event);
}

void SceneEditor::mouseDragged(const tessaro::kit::MouseEvent& event)
{
    m_tools->mouseDragged(event);
}

void SceneEditor::mouseUp(const tessaro::kit::MouseEvent& event)
{
    m_tools->mouseUp(event);
}

void SceneEditor::keyDown(const tessaro::kit::KeyEvent& event)
{
    m_tools->keyDown(event);
}

void SceneEditor::setBackgroundsHidden(bool hidden)
{
    for (const NodePtr& layer : {m_backgroundNodes, m_pinnedBackgroundNodes})
        if (layer)
            layer->setHidden(hidden);
}

// ---- Factory ---------------------------------------------------------------------------------------

SceneFactory makeSceneEditorFactory(const CanvasHooks& hooks)
{
    return [hooks](ProjectTab& tab, const SceneSetup& setup) -> std::shared_ptr<LevelScene> {
        return SceneEditor::create(&tab, setup, hooks);
    };
}

SceneEditorPtr sceneEditorOf(const std::shared_ptr<LevelScene>& scene)
{
    return std::dynamic_pointer_cast<SceneEditor>(scene);
}

} // namespace stagewright
