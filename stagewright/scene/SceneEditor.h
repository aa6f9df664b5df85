// The canvas of one project tab: a kit scene that shows the selected level of
// the tab and writes it back.
//
// Layout. Ten layer nodes, children of the scene at (0,0) and depth 1, hold
// the elements by kind. Coordinates are the level's scene points, y up, the
// origin at the centre of the view (anchor (0.5,0.5)). Scrolling moves the
// layers, never the elements, so an element's stored position does not depend
// on the scroll offset. The navigation buttons and the coordinate read-out are
// children of the scene itself and stay at the view's lower left corner.
//
// Loading runs in two passes: ground and backgrounds first (they fix the
// floor and the length of the level), then everything that stands on the
// floor. While a level is open the nodes hold the truth; `writeBack` rebuilds
// the level record from them.
#pragma once

#include "CanvasHooks.h"
#include "CanvasTools.h"
#include "ElementNode.h"
#include "ElementPlacement.h"
#include "NavigationControls.h"

#include <stagewright/state/LevelScene.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SelectionModels.h>

#include <tessaro/kit/LabelNode.h>
#include <tessaro/kit/Scene.h>
#include <tessaro/model/LevelRecords.h>

#include <QObject>
#include <QPointer>
#include <QRectF>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace tessaro::layout {
struct GroundPiece;
struct GroundPlan;
struct LayoutContext;
} // namespace tessaro::layout

namespace stagewright {

class SceneEditor : public QObject, public tessaro::kit::Scene, public LevelScene {
    Q_OBJECT
public:
    /// A scene for the levels of `tab` (none for a scene on its own), named,
    /// coloured and sized as `setup` says, handing on what it does by `hooks`.
    SceneEditor(ProjectTab* tab, const SceneSetup& setup, CanvasHooks hooks = {});
    ~SceneEditor() override;
    static std::shared_ptr<SceneEditor> create(ProjectTab* tab, const SceneSetup& setup = {}, CanvasHooks hooks = {});
    /// What the scene hands on; a test may change them.
    CanvasHooks& hooks() { return m_hooks; }

    ProjectTab* tab() const { return m_tab; }
    // The node tree's parent and children, not the QObject ones.
    using tessaro::kit::Node::children;
    using tessaro::kit::Node::parent;

    // ---- LevelScene --------------------------------------------------------------------
    // Size, anchor and scale mode in the level's terms; the kit's own accessors
    // (Scene::size() and so on) give the same values in Qt types.
    void loadLevel(const tessaro::Uuid& levelId) override;
    void writeBack(const tessaro::Uuid& levelId) override;
    tessaro::SizeValue size() const override { return m_sceneSize; }
    void setSize(tessaro::SizeValue size) override;
    tessaro::PointValue anchorPoint() const override { return m_sceneAnchorPoint; }
    void setAnchorPoint(tessaro::PointValue anchor) override;
    sceneScaleMode scaleMode() const override { return m_sceneScaleMode; }
    void setScaleMode(sceneScaleMode mode) override;
    tessaro::sceneOrientationType orientation() const override { return m_sceneOrientation; }
    void setOrientation(tessaro::sceneOrientationType orientation) override;
    /// `clearScene(false)`.
    void releaseContent() override;
    /// `layoutNavigationControls()`.
    void updateOverlays() override;

    // ---- Layers (null after clearScene(false)) -----------------------------------------
    const tessaro::kit::NodePtr& backgroundNodes() const { return m_backgroundNodes; }
    const tessaro::kit::NodePtr& pinnedBackgroundNodes() const { return m_pinnedBackgroundNodes; }
    const tessaro::kit::NodePtr& obstacleNodes() const { return m_obstacleNodes; }
    const tessaro::kit::NodePtr& characterNodes() const { return m_characterNodes; }
    const tessaro::kit::NodePtr& groundNodes() const { return m_groundNodes; }
    const tessaro::kit::NodePtr& coinNodes() const { return m_coinNodes; }
    const tessaro::kit::NodePtr& artifactNodes() const { return m_artifactNodes; }
    const tessaro::kit::NodePtr& checkpointNodes() const { return m_checkpointNodes; }
    const tessaro::kit::NodePtr& navigationNodes() const { return m_navigationNodes; }
    const tessaro::kit::NodePtr& shieldsNodes() const { return m_shieldsNodes; }
    /// The layer of a kind: obstacles, characters, ground, coins, artifacts,
    /// checkpoints, shields, backgrounds (unpinned); null for the others.
    tessaro::kit::NodePtr layerFor(tessaro::sceneObjectType kind) const;
    /// The element nodes of a layer, in child order.
    static std::vector<ElementNodePtr> elementsOf(const tessaro::kit::NodePtr& layer);
    /// The layers that hold elements, backgrounds first.
    std::array<tessaro::kit::NodePtr, 9> elementLayers() const;

    // ---- Layout state ---------------------------------------------------------------------
    /// The canvas's copy of the shown level's backgrounds; every image has an
    /// id once a level is loaded. The level's document holds the records.
    const std::optional<tessaro::Background>& backgroundList() const { return m_backgroundList; }
    /// Floor rectangles: x the left edge, y the floor height, the width, height 0.
    const std::vector<QRectF>& groundBaseVariants() const { return m_groundBaseVariants; }
    /// Accumulated width of all ground laid.
    double levelEndX() const { return m_levelEndX; }
    /// Top edge and centre height of the last ground node laid.
    double groundBase() const { return m_groundBase; }
    double backgroundY() const { return m_backgroundY; }
    const tessaro::Uuid& id() const { return m_id; }
    std::vector<ElementNodePtr>& nodeIntersected() { return m_nodeIntersected; }
    const std::optional<QString>& nodeSelectedName() const { return m_nodeSelectedName; }
    void setNodeSelectedName(std::optional<QString> name) { m_nodeSelectedName = std::move(name); }
    /// The coordinate read-out; null after clearScene(false).
    const std::shared_ptr<SKLabel>& positionXCount() const { return m_positionXCount; }

    // ---- Construction and clearing ---------------------------------------------------------
    /// Empties every layer; without `keepLayers` the layers and the read-out
    /// leave the scene too (the scene is then dropped).
    void clearScene(bool keepLayers);
    /// Makes the four scroll buttons and the read-out.
    void addNavigationControls();
    /// Re-seats the scroll buttons at the frame's lower left corner.
    void layoutNavigationControls();

    // ---- Ground ------------------------------------------------------------------------------
    /// Lays the sections from the left edge of the view to the right; starts
    /// `levelEndX` over. A section with `isVisible` false is kept on a hidden
    /// node that takes no room, so that it is saved in its place.
    void layoutGround(const std::vector<tessaro::GroundSection>& sections);
    /// The floor height at x: the last floor rectangle that covers x, else 0.
    double groundHeight(double x) const;
    /// Writes back, lays the level's ground again and selects the section that
    /// was selected.
    void rebuildGround(const tessaro::Uuid& levelId);

    // ---- Backgrounds ---------------------------------------------------------------------------
    void rebuildBackgrounds();
    /// Shows the background records of `level`, the shown one, as the
    /// document holds them now: the pictures of the record at `refreshed`
    /// take its picture, depth and visibility; without it all are laid again.
    void showBackgroundsOf(const tessaro::Level& level, std::optional<std::size_t> refreshed = std::nullopt);
    /// Refreshes depth, visibility and picture of the nodes of one record.
    void replaceBackgroundRecord(const tessaro::Uuid& id);
    /// Hides or shows both background layers (the toolbar's flag).
    void setBackgroundsHidden(bool hidden);

    // ---- Placement ----------------------------------------------------------------------------
    /// Makes the element nodes of a level's items.
    ElementPlacement& placement() { return *m_placement; }
    /// `repeatDistance` of the coins of the tab's selected level, (0,0) when absent.
    tessaro::PointValue coinRepeatDistance() const;
    /// Shows a change of the level's own values that elements of `kind` draw:
    /// coins lay their rows again at the repeat distance; checkpoints and
    /// shields are placed again with the level's picture, each keeping its
    /// handle, order and selection. Other kinds draw none.
    void showLevelLook(tessaro::sceneObjectType kind);
    /// Shows a field of the shown level that changed in the tab's document,
    /// where elements draw it.
    void followLevelField(const tessaro::FieldPath& path);

    // ---- Scrolling, selection hooks ------------------------------------------------------------
    /// Scrolls so that `value` is at the view's centre and records it as the
    /// tab's `scenePosition`; only the selector `scenePosition` acts. The
    /// unpinned backgrounds stay: they fill the view at every offset.
    void moveScene(PublishedElementList selector, std::optional<tessaro::PointValue> value);
    /// The scroll offset: the negated position of `navigationNodes`.
    tessaro::PointValue scrollPosition() const;
    /// Removes every "glow" but the one of `keep`.
    void clearGlow(const ElementNode* keep = nullptr);
    /// The node named by the tab's selected object, or null.
    ElementNodePtr selectedNode() const;
    /// Back to no selection: phase NotSelected, an empty selected object, full
    /// alpha on all backgrounds.
    void deselect();
    /// Selects `node` anew, published again, as after a change of what it shows.
    void reselect(const ElementNodePtr& node);
    /// Publishes `node` through the hooks' publisher.
    void publishSelection(ElementNode& node);
    /// A picture of the background record with that id, or null.
    ElementNodePtr backgroundNode(const tessaro::Uuid& id) const;
    /// The node with this name anywhere in the scene, or null.
    ElementNodePtr elementNamed(const QString& name) const;

    // ---- Selection (Selection.cpp) -------------------------------------------------------------
    /// Publishes `node` as the selection; nothing happens without a node.
    void selectNode(const ElementNodePtr& node);
    /// Selects from a list entry "kind:id", where id is a node's name, or a
    /// background record's id for kind `background`, and scrolls the node
    /// into view when it is out of view.
    void selectNodeNamed(const QString& text);
    /// The tools that turn presses, drags and keys into selections and edits.
    CanvasTools& tools() { return *m_tools; }

    // ---- Element identities (ElementIdentity.cpp) ------------------------------------------------
    /// The element with that handle, or null.
    ElementNodePtr elementWithHandle(ElementHandle handle) const;
    /// The element nodes of a kind in the order the level stores them.
    std::vector<ElementNodePtr> storedOrder(tessaro::sceneObjectType kind) const;
    /// Gives the elements of a kind without a handle the handles their places
    /// in the level had when it was last written back.
    void assignHandles(tessaro::sceneObjectType kind);

    // ---- Clipboard and deleting (Clipboard.cpp) -------------------------------------------------
    /// An element and its place: what it is and where it stands in its layer.
    struct ElementInPlace {
        ElementRecords records;
        ElementHandle handle = 0;
        std::size_t layerIndex = 0;
    };
    /// Takes the selected element out of the scene. The selection is
    /// cleared. None when nothing is selected.
    std::optional<ElementInPlace> deleteSelectedNode();
    /// Takes the element with that handle out of the scene.
    std::optional<ElementInPlace> removeElement(ElementHandle handle);
    /// Empties a node and detaches it, with the repeated copies it owns.
    void removeNode(ElementNode& node);
    /// Adds a copy of `copy` to the layer of its kind, beside the copied
    /// element or at `location`. Backgrounds are not pasted: null.
    ElementNodePtr pasteNode(const ElementRecords& copy, std::optional<tessaro::PointValue> location,
                             ElementHandle handle);
    /// Puts an element back at `layerIndex` of the layer of its kind, as
    /// `element` describes it.
    ElementNodePtr placeElement(const ElementRecords& element, std::size_t layerIndex, ElementHandle handle);

    // ---- Edits the canvas makes ------------------------------------------------------------------
    /// Where the canvas sends the moves and sizes it makes; without a route
    /// they show until the next load and are not stored.
    CanvasEditRoute* editRoute() const { return m_hooks.editRoute.get(); }

    // ---- Platform entry points ----------------------------------------------------------------
    void update(double currentTime) override;
    void didMoveToView(tessaro::kit::SceneView* view) override;
    void didBeginContact(const tessaro::kit::PhysicsContact& contact) override;
    /// Handed to the tools.
    void mouseDown(const tessaro::kit::MouseEvent& event) override;
    void mouseDragged(const tessaro::kit::MouseEvent& event) override;
    void mouseUp(const tessaro::kit::MouseEvent& event) override;
    void keyDown(const tessaro::kit::KeyEvent& event) override;

signals:
    void sceneSettingsChanged();
    void backgroundListChanged();
    /// The ground was laid again (load or rebuild).
    void groundLaidOut();
    /// The layers moved.
    void scrolled();

private:
    friend class ElementNode;
    friend class SceneWriteBack;
    friend class ElementPlacement;

    /// What the level is laid out with: this scene's frame, the chosen
    /// devices, the catalogues and the workspace's image sizes.
    tessaro::layout::LayoutContext layoutContext() const;
    /// The ground as last laid out; empty before.
    const tessaro::layout::GroundPlan& groundPlan() const;
    void addGroundNode(const tessaro::GroundSection& section, const tessaro::layout::GroundPiece& piece,
                       std::int64_t sequenceId);
    void layBackground(const tessaro::BackgroundImage& record);
    void applyPlatformSettings();
    tessaro::kit::NodePtr makeLayer(const char* name);
    /// Remembers the handles of the elements in the order `levelId` stores them.
    void rememberHandles(const tessaro::Uuid& levelId);
    const tessaro::Level* tabLevel(const tessaro::Uuid& id) const;
    tessaro::Level* tabLevel(const tessaro::Uuid& id);
    /// Frame of the platform scene.
    QRectF frameRect() const { return sceneFrame(); }

    QPointer<ProjectTab> m_tab;
    CanvasHooks m_hooks;
    tessaro::SizeValue m_sceneSize;
    sceneScaleMode m_sceneScaleMode = sceneScaleMode::aspectFit;
    tessaro::PointValue m_sceneAnchorPoint{0.5, 0.5};
    tessaro::sceneOrientationType m_sceneOrientation = tessaro::sceneOrientationType::landscape;
    /// The usable values drawn in place of level settings that could not be
    /// drawn as written; while they stand, write-back keeps the written text.
    struct ShownInsteadOfText {
        std::optional<tessaro::SizeValue> size;
        std::optional<tessaro::PointValue> anchorPoint;
    } m_shownInsteadOfText;
    std::optional<tessaro::Background> m_backgroundList;
    tessaro::kit::NodePtr m_backgroundNodes;
    tessaro::kit::NodePtr m_pinnedBackgroundNodes;
    tessaro::kit::NodePtr m_obstacleNodes;
    tessaro::kit::NodePtr m_characterNodes;
    tessaro::kit::NodePtr m_groundNodes;
    tessaro::kit::NodePtr m_coinNodes;
    tessaro::kit::NodePtr m_artifactNodes;
    tessaro::kit::NodePtr m_checkpointNodes;
    tessaro::kit::NodePtr m_shieldsNodes;
    tessaro::kit::NodePtr m_navigationNodes;
    std::vector<ElementNodePtr> m_nodeIntersected;
    std::optional<QString> m_nodeSelectedName;
    std::shared_ptr<SKLabel> m_positionXCount;
    std::shared_ptr<const tessaro::layout::GroundPlan> m_groundPlan;
    std::vector<QRectF> m_groundBaseVariants;
    double m_levelEndX = 0;
    double m_groundBase = 0;
    double m_backgroundY = 0;
    tessaro::Uuid m_id = tessaro::Uuid::create();
    std::unique_ptr<CanvasTools> m_tools;
    std::unique_ptr<ElementPlacement> m_placement;
};

using SceneEditorPtr = std::shared_ptr<SceneEditor>;

/// The factory that makes the application's tabs edit their levels on a
/// `SceneEditor` with `hooks`; install it with `SceneSettings::setSceneFactory`.
SceneFactory makeSceneEditorFactory(const CanvasHooks& hooks = {});

/// A new image of the object catalogue's background `elementName` (the
/// placeholder when there is none, with a diagnostic line), above `count`
/// images.
tessaro::BackgroundImage newBackgroundImage(const std::string& elementName, tessaro::sceneObjectType type,
                                            std::size_t count);

/// The SceneEditor behind a tab's scene, or null.
SceneEditorPtr sceneEditorOf(const std::shared_ptr<LevelScene>& scene);

} // namespace stagewright
