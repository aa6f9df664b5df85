#include "PhysicsSession.h"

#include "PhysicsFrames.h"
#include "ShapeListCommand.h"
#include "ShapeTools.h"

#include <stagewright/inspector/EditRouting.h>
#include <stagewright/inspector/PropertyRules.h>
#include <stagewright/scene/ScenePictures.h>
#include <stagewright/state/CatalogueCommands.h>
#include <stagewright/state/CatalogueDocument.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/FrameShapes.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

using tessaro::PointValue;
using tessaro::Uuid;

namespace {

/// The fields of a row whose steps join while the same field is typed.
enum rowField {
    actionField = 1,
    framesField,
    startField,
    endField,
    directionField,
    pointField,
    radiusField,
    sizeField,
    centerField
};

QSizeF qtSize(tessaro::SizeValue size)
{
    return {size.width, size.height};
}

/// The catalogue template behind the selected element.
std::optional<defaultViewRecord> baseRecord(const projectTab& tab)
{
    const selectedObjectModel& object = tab.selectedObject();
    return findCatalogueRecord(object.type, baseFieldText(baseField::elementName, object.defaultViewProperties));
}

/// The template's shapes; an obstacle's shapes of single frames are kept in
/// its animation and shown beside the others.
std::optional<tessaro::PhysicsProperty> physicsOf(const defaultViewRecord& record)
{
    std::optional<tessaro::PhysicsProperty> physics =
        std::visit([](const auto& r) { return r.physics ? std::optional(*r.physics) : std::nullopt; }, record);
    if (const auto* obstacle = std::get_if<tessaro::Obstacle>(&record))
        if (obstacle->animation && obstacle->animation->physics)
            physics =
                tessaro::joinedShapes(physics.value_or(tessaro::PhysicsProperty{}), *obstacle->animation->physics);
    return physics;
}

/// Stores the sheet's shapes in a template: an obstacle's shapes of single
/// frames go to its animation, which then changes its body frame by frame.
void storePhysics(defaultViewRecord& record, const tessaro::PhysicsProperty& stored)
{
    auto* obstacle = std::get_if<tessaro::Obstacle>(&record);
    if (!obstacle) {
        std::visit([&](auto& r) { r.physics = stored; }, record);
        return;
    }
    tessaro::SplitShapes split = tessaro::splitFrameShapes(stored);
    obstacle->physics = std::move(split.whole);
    if (tessaro::hasShapes(split.frames)) {
        tessaro::AnimationProperty& animation =
            obstacle->animation ? *obstacle->animation : obstacle->animation.emplace();
        animation.physics = std::move(split.frames);
        animation.changePhysics = true;
    } else if (obstacle->animation) {
        obstacle->animation->physics.reset();
    }
}

/// The template's shapes as the sheet edits them, without the ids that every
/// reading and writing makes anew: two templates with the same shapes give
/// the same list.
std::vector<physicsElement> shapesOf(const defaultViewRecord& record)
{
    std::vector<physicsElement> shapes = loadPhysicsElements(physicsOf(record));
    for (physicsElement& shape : shapes) {
        shape.id = {};
        for (pointInternal& vertex : shape.points)
            vertex.id = {};
    }
    return shapes;
}

tessaro::SizeValue deviceSizeOf(const defaultViewRecord& record)
{
    return std::visit([](const auto& r) { return tessaro::deviceValue<tessaro::fieldList::size>(r.devices); }, record);
}

std::string imageOf(const defaultViewRecord& record)
{
    return std::visit([](const auto& r) { return r.image.value_or(std::string()); }, record);
}

} // namespace

const QStringList& physicsAlphaValues()
{
    static const QStringList values{"0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9", "1.0"};
    return values;
}

const QStringList& physicsScaleValues()
{
    static const QStringList values{"0.50", "0.75", "1.00", "1.25", "1.50", "1.75", "2.00", "3.00"};
    return values;
}

double physicsPickerNumber(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? tessaro::roundedValue(value, 2) : 0.0;
}

imagePhysicsSession::imagePhysicsSession(physicsEditMode mode, projectTab* tab, CatalogueDocument* catalogues,
                                         QObject* parent)
    : QObject(parent),
      m_mode(mode),
      m_tab(tab),
      m_catalogues(catalogues)
{
    connect(&m_history, &QUndoStack::indexChanged, this, &imagePhysicsSession::historyChanged);
    if (QUndoStack* catalogue = catalogueHistory()) {
        connect(catalogue, &QUndoStack::indexChanged, this, &imagePhysicsSession::historyChanged);
        // A template's list follows the catalogue while it holds no edits of its own.
        connect(m_catalogues, &CatalogueDocument::recordChanged, this, [this] {
            if (m_history.index() == 0)
                reloadTemplateShapes();
        });
    }
}

imagePhysicsSession::~imagePhysicsSession() = default;

// ---- Opening ------------------------------------------------------------------------------

void imagePhysicsSession::loadPhysicsSession()
{
    m_elements.clear();
    m_imageList.clear();
    m_imageIdSelected = 0;
    m_imageSize = {0, 0};
    if (!m_tab)
        return;
    const selectedObjectModel& object = m_tab->selectedObject();
    std::string image = object.image;
    std::optional<tessaro::PhysicsProperty> source;
    tessaro::SizeValue size;

    switch (m_mode) {
    case physicsEditMode::base:
        if (const std::optional<defaultViewRecord> record = baseRecord(*m_tab)) {
            source = physicsOf(*record);
            size = deviceSizeOf(*record);
            if (!imageOf(*record).empty())
                image = imageOf(*record);
        }
        break;
    case physicsEditMode::animation: {
        const selectedAnimationModel& animation = m_tab->selectedAnimationObject();
        source = animation.End_physics;
        // The end animation is shown at its own size when it has one.
        size = animation.End_size;
        if (!animation.End_atlasName.empty())
            image = animation.End_atlasName;
        break;
    }
    case physicsEditMode::element: {
        source = object.physics;
        const selectedDeviceModel& device = m_tab->selectedDeviceObject();
        if (std::find(device.inherited.begin(), device.inherited.end(), publishedElementList::size) !=
            device.inherited.end())
            size = device.size;
        else if (device.devicesDefaultBase && device.devicesDefaultBase->size)
            size = tessaro::sizeFromText(*device.devicesDefaultBase->size);
        const bool sizedByCatalogue =
            object.type == tessaro::sceneObjectType::obstacles || object.type == tessaro::sceneObjectType::character;
        if (size == tessaro::SizeValue{} && sizedByCatalogue)
            if (const std::optional<defaultViewRecord> record = baseRecord(*m_tab))
                size = deviceSizeOf(*record);
        break;
    }
    }
    m_imageSize = qtSize(size);
    m_imageList = physicsImageFrames(firstImageName(image), object.type);
    m_elements = loadPhysicsElements(source);
    m_history.clear();
    endShape();
    reloadImage();
    emit changed();
}

// ---- Settings -----------------------------------------------------------------------------

void imagePhysicsSession::setInspectorPresented(bool presented)
{
    m_isInspectorPresented = presented;
    emit changed();
}

void imagePhysicsSession::setActiveType(insertType type)
{
    if (type != insertType::none && !canChooseTool())
        return;
    endShape();
    m_activeType = type;
    emit changed();
}

void imagePhysicsSession::setImageViewHovered(bool hovered)
{
    m_imageViewHovered = hovered;
}

void imagePhysicsSession::setAlphaValue(const QString& value)
{
    m_alphaValue = value;
    emit changed();
}

void imagePhysicsSession::setScaleValue(const QString& value)
{
    m_scaleValue = value;
    if (!canChooseTool()) {
        // Shapes are drawn at 100% only.
        endShape();
        m_activeType = insertType::none;
    }
    emit changed();
}

void imagePhysicsSession::setFlipImageHorizontal(bool flip)
{
    m_flipHorizontal = flip;
    emit changed();
}

void imagePhysicsSession::setFlipImageVertical(bool flip)
{
    m_flipVertical = flip;
    emit changed();
}

void imagePhysicsSession::setDisplayOnlySelectedPhysics(bool only)
{
    m_displayOnlySelected = only;
    emit changed();
}

void imagePhysicsSession::selectRow(const Uuid& id)
{
    m_selectedRow = id;
    emit changed();
}

// ---- Frames -------------------------------------------------------------------------------

void imagePhysicsSession::selectImage(int index)
{
    if (index < 0 || index >= m_imageList.size())
        return;
    m_imageIdSelected = index;
    reloadImage();
    emit changed();
}

void imagePhysicsSession::removeImage(int index)
{
    if (index < 0 || index >= m_imageList.size())
        return;
    m_imageList.removeAt(index);
    if (m_imageIdSelected >= m_imageList.size() || index < m_imageIdSelected)
        m_imageIdSelected = std::max(0, m_imageIdSelected - 1);
    reloadImage();
    emit changed();
}

bool imagePhysicsSession::dropImageFiles(const QStringList& paths)
{
    if (!allowDropImages() || paths.isEmpty())
        return false;
    tessaro::diagnostic("Dropped file URL: " + paths.front().toStdString());
    m_imageList.append(paths.front());
    reloadImage();
    emit changed();
    return true;
}

const WorkspaceImage& imagePhysicsSession::currentImage() const
{
    return m_image;
}

QSizeF imagePhysicsSession::shownImageSize() const
{
    return m_image.image.isNull() ? m_imageSize : m_image.size;
}

void imagePhysicsSession::reloadImage()
{
    const QString path = m_imageList.value(m_imageIdSelected);
    if (path == m_imageLoadedFrom && !path.isEmpty())
        return;
    m_imageLoadedFrom = path;
    m_image = {};
    if (path.isEmpty())
        return;
    // Without a size of its own the image is shown at its size in points.
    const bool ownSize = m_imageSize.isEmpty();
    if (std::optional<WorkspaceImage> loaded = loadImagePreview(path, ownSize, ownSize ? QSizeF() : m_imageSize))
        m_image = std::move(*loaded);
    else
        tessaro::diagnostic("loadNSImagePreview: The file \"" + path.toStdString() + "\" could not be read.");
}

// ---- Shapes -------------------------------------------------------------------------------

const physicsElement* imagePhysicsSession::element(const Uuid& id) const
{
    const auto found = std::find_if(m_elements.begin(), m_elements.end(),
                                    [&](const physicsElement& element) { return element.id == id; });
    return found == m_elements.end() ? nullptr : &*found;
}

physicsElement* imagePhysicsSession::find(const Uuid& id)
{
    return const_cast<physicsElement*>(std::as_const(*this).element(id));
}

bool imagePhysicsSession::isDrawn(const physicsElement& element) const
{
    if (m_displayOnlySelected && element.id != m_selectedRow)
        return false;
    if (m_imageList.size() > 1 && !element.framesAffected.empty() &&
        !framesInclude(element.framesAffected, m_imageIdSelected))
        return false;
    return true;
}

double imagePhysicsSession::handleTolerance() const
{
    const double s = std::abs(scale());
    return s > 0 ? 5.0 / s : 5.0;
}

const shapeTool* imagePhysicsSession::toolOf(const physicsElement& element) const
{
    return shapeToolFor(element.type);
}

void imagePhysicsSession::restoreElements(std::vector<physicsElement> elements)
{
    m_elements = std::move(elements);
    m_gesture = gesture::none;
    endShape();
    emit changed();
}

void imagePhysicsSession::appendSorted(physicsElement element)
{
    // Shapes stay in the order of their kinds; a new one goes last among its own.
    const auto place = std::upper_bound(m_elements.begin(), m_elements.end(), element.type,
                                        [](physicsType type, const physicsElement& e) { return type < e.type; });
    m_elements.insert(place, std::move(element));
}

void imagePhysicsSession::markFrame(physicsElement& element) const
{
    if (m_imageList.size() > 1)
        element.framesAffected = std::to_string(m_imageIdSelected);
}

void imagePhysicsSession::endShape()
{
    m_pathCurrentlyOpen = false;
    m_activePhysicsId = Uuid::create();
}

void imagePhysicsSession::commit(std::vector<physicsElement> before, const QString& text)
{
    if (before == m_elements)
        return;
    pushStep(m_history, new shapeListCommand(*this, std::move(before), m_elements, text));
}

// ---- The mouse ----------------------------------------------------------------------------

void imagePhysicsSession::pointerMoved(PointValue p)
{
    m_yValues =
        QStringLiteral("**X:** %1  **Y:** %2").arg(QString::asprintf("%.0f", p.x), QString::asprintf("%.0f", p.y));
    emit readOutChanged();
}

void imagePhysicsSession::pointerDown(PointValue p)
{
    if (m_activeType == insertType::none) {
        pressWithSelection(p);
        return;
    }
    if (!m_imageViewHovered)
        return;
    const shapeTool* tool = shapeToolFor(m_activeType);
    std::optional<physicsElement> started = tool ? tool->begin(p) : std::nullopt;
    if (!started)
        return;
    m_gestureBefore = m_elements;
    m_gesture = gesture::drawing;
    markFrame(*started);
    m_activePhysicsId = started->id;
    m_selectedRow = started->id;
    appendSorted(std::move(*started));
    emit changed();
}

void imagePhysicsSession::pressWithSelection(PointValue p)
{
    const QSizeF size = shownImageSize();
    const double tolerance = handleTolerance();
    const auto start = [&](const physicsElement& element, gesture kind) {
        m_gesture = kind;
        m_gestureBefore = m_elements;
        m_gestureStart = element;
        m_pressPoint = p;
    };
    // The handles of the selected shape come first, then the front-most shape.
    if (const physicsElement* selected = element(m_selectedRow); selected && isDrawn(*selected))
        if (const std::optional<std::size_t> handle = toolOf(*selected)->handleAt(*selected, p, tolerance, size)) {
            m_handle = *handle;
            start(*selected, gesture::reshaping);
            return;
        }
    for (auto it = m_elements.rbegin(); it != m_elements.rend(); ++it) {
        const shapeTool* tool = toolOf(*it);
        if (tool && isDrawn(*it) && tool->hits(*it, p, tolerance, size)) {
            start(*it, gesture::moving);
            selectRow(it->id);
            return;
        }
    }
    m_gesture = gesture::none;
    selectRow(Uuid::create());
}

void imagePhysicsSession::pointerDragged(PointValue p)
{
    if (m_activeType == insertType::none) {
        if (!isDraggingShape())
            return;
        physicsElement* live = find(m_gestureStart.id);
        if (!live)
            return;
        const shapeTool* tool = toolOf(m_gestureStart);
        // Each drag works from the shape as the press found it, so nothing drifts.
        physicsElement changed = m_gestureStart;
        if (m_gesture == gesture::moving)
            tool->translate(changed, {p.x - m_pressPoint.x, p.y - m_pressPoint.y}, shownImageSize());
        else
            tool->moveHandle(changed, m_handle, p, shownImageSize());
        *live = std::move(changed);
        emit this->changed();
        return;
    }
    if (!m_imageViewHovered || m_activeType == insertType::polygon)
        return;
    physicsElement* drawn = find(m_activePhysicsId);
    if (!drawn)
        return;
    shapeToolFor(m_activeType)->drawTo(*drawn, p);
    emit changed();
}

void imagePhysicsSession::pointerUp(PointValue p)
{
    const gesture finished = m_gesture;
    m_gesture = gesture::none;
    if (finished == gesture::moving || finished == gesture::reshaping) {
        commit(std::move(m_gestureBefore), finished == gesture::moving ? tr("Move Shape") : tr("Reshape Shape"));
        return;
    }
    if (finished == gesture::drawing) {
        // The shape drawn is one step, wherever the button comes up.
        commit(std::move(m_gestureBefore), tr("Draw Shape"));
        m_activePhysicsId = Uuid::create();
        emit changed();
        return;
    }
    if (m_activeType == insertType::polygon && m_imageViewHovered)
        releasePolygon(p);
}

void imagePhysicsSession::releasePolygon(PointValue p)
{
    std::vector<physicsElement> before = m_elements;
    if (!m_pathCurrentlyOpen) {
        physicsElement polygon = physicsElement::make(physicsType::polygon, p);
        markFrame(polygon);
        m_activePhysicsId = polygon.id;
        m_selectedRow = polygon.id;
        m_pathCurrentlyOpen = true;
        appendSorted(std::move(polygon));
        commit(std::move(before), tr("Draw Polygon"));
        emit changed();
        return;
    }
    physicsElement* open = find(m_activePhysicsId);
    if (!open || open->points.empty()) {
        // The polygon was deleted while it was drawn.
        endShape();
        emit changed();
        return;
    }
    const PointValue first = open->points.front().point;
    const double tolerance = handleTolerance();
    if (std::abs(p.x - first.x) <= tolerance && std::abs(p.y - first.y) <= tolerance) {
        // A tap on the first vertex closes the polygon, once it has an area.
        if (open->points.size() < 3)
            return;
        open->points.push_back({Uuid::create(), first});
        endShape();
        commit(std::move(before), tr("Close Polygon"));
        emit changed();
        return;
    }
    open->points.push_back({Uuid::create(), p});
    commit(std::move(before), tr("Add Point"));
    emit changed();
}

// ---- Rows ---------------------------------------------------------------------------------

void imagePhysicsSession::edit(const Uuid& id, int field, const std::function<void(physicsElement&)>& change,
                               std::size_t vertex)
{
    physicsElement* target = find(id);
    if (!target)
        return;
    std::vector<physicsElement> before = m_elements;
    change(*target);
    if (before == m_elements)
        return;
    pushStep(m_history,
             new shapeListCommand(*this, std::move(before), m_elements, tr("Change Shape"), field, id, vertex));
    emit changed();
}

void imagePhysicsSession::removeElement(const Uuid& id)
{
    std::vector<physicsElement> before = m_elements;
    std::erase_if(m_elements, [&](const physicsElement& element) { return element.id == id; });
    if (before == m_elements)
        return;
    if (id == m_activePhysicsId)
        endShape();
    pushStep(m_history, new shapeListCommand(*this, std::move(before), m_elements, tr("Delete Shape")));
    emit changed();
}

void imagePhysicsSession::setAction(const Uuid& id, std::vector<tessaro::actionType> action)
{
    edit(id, actionField, [&](physicsElement& e) { e.action = std::move(action); });
}

void imagePhysicsSession::setFramesAffected(const Uuid& id, const std::string& frames)
{
    edit(id, framesField, [&](physicsElement& e) { e.framesAffected = frames; });
}

void imagePhysicsSession::setStartPoint(const Uuid& id, PointValue p)
{
    edit(id, startField, [&](physicsElement& e) { e.startPoint = p; });
}

void imagePhysicsSession::setEndPoint(const Uuid& id, PointValue p)
{
    edit(id, endField, [&](physicsElement& e) { e.endPoint = p; });
}

void imagePhysicsSession::setDirection(const Uuid& id, tessaro::pathDirection direction)
{
    edit(id, directionField, [&](physicsElement& e) { e.direction = direction; });
}

void imagePhysicsSession::setPoint(const Uuid& id, std::size_t index, PointValue p)
{
    edit(
        id, pointField,
        [&](physicsElement& e) {
            // The closing copy of the first vertex moves with it.
            if (index == 0 && polygonTool::isClosed(e))
                e.points.back().point = p;
            if (index < e.points.size())
                e.points[index].point = p;
        },
        index);
}

void imagePhysicsSession::setRadius(const Uuid& id, double radius)
{
    edit(id, radiusField, [&](physicsElement& e) { e.radius = radius; });
}

void imagePhysicsSession::setSize(const Uuid& id, tessaro::SizeValue size)
{
    edit(id, sizeField, [&](physicsElement& e) { e.size = size; });
}

void imagePhysicsSession::setCenter(const Uuid& id, PointValue p)
{
    edit(id, centerField, [&](physicsElement& e) { e.center = p; });
}

// ---- Apply --------------------------------------------------------------------------------

bool imagePhysicsSession::applyPhysics()
{
    if (!m_tab)
        return false;
    const tessaro::PhysicsProperty stored = record();
    switch (m_mode) {
    case physicsEditMode::element:
        m_tab->selectedObject().physics = stored;
        EditRouting(*m_tab).apply(modelType::Primary, publishedElementList::physics, stored);
        return true;
    case physicsEditMode::animation:
        m_tab->selectedAnimationObject().End_physics = stored;
        EditRouting(*m_tab).apply(modelType::AnimationCycleEnd, publishedElementList::End_physics, stored);
        return true;
    case physicsEditMode::base: {
        const std::optional<defaultViewRecord> before = m_catalogues ? baseRecord(*m_tab) : std::nullopt;
        if (!before)
            return false;
        defaultViewRecord after = *before;
        storePhysics(after, stored);
        // The same shapes again are no step, though their ids would be new.
        return shapesOf(after) == shapesOf(*before) || m_catalogues->replaceRecord(after, tr("Change Base Physics"));
    }
    }
    return false;
}

// ---- Undo and redo ------------------------------------------------------------------------

QUndoStack* imagePhysicsSession::catalogueHistory() const
{
    return m_mode == physicsEditMode::base && m_catalogues ? &m_catalogues->history() : nullptr;
}

bool imagePhysicsSession::canUndo() const
{
    const QUndoStack* catalogue = catalogueHistory();
    return m_history.canUndo() || (catalogue && m_history.index() == 0 && catalogue->canUndo());
}

QString imagePhysicsSession::undoText() const
{
    return m_history.canUndo() || !canUndo() ? m_history.undoText() : catalogueHistory()->undoText();
}

void imagePhysicsSession::undo()
{
    if (m_history.canUndo())
        m_history.undo();
    else if (canUndo())
        catalogueHistory()->undo();
}

bool imagePhysicsSession::canRedo() const
{
    const QUndoStack* catalogue = catalogueHistory();
    return m_history.canRedo() || (catalogue && m_history.index() == 0 && catalogue->canRedo());
}

QString imagePhysicsSession::redoText() const
{
    return m_history.canRedo() || !canRedo() ? m_history.redoText() : catalogueHistory()->redoText();
}

void imagePhysicsSession::redo()
{
    if (m_history.canRedo())
        m_history.redo();
    else if (canRedo())
        catalogueHistory()->redo();
}

void imagePhysicsSession::reloadTemplateShapes()
{
    const std::optional<defaultViewRecord> record = m_tab ? baseRecord(*m_tab) : std::nullopt;
    m_history.clear();
    restoreElements(loadPhysicsElements(record ? physicsOf(*record) : std::nullopt));
}

} // namespace stagewright
