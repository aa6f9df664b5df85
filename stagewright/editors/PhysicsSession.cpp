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
std::optional<DefaultViewRecord> baseRecord(const ProjectTab& tab)
{
    const SelectedObjectModel& object = tab.selectedObject();
    return findCatalogueRecord(object.type, baseFieldText(BaseField::elementName, object.defaultViewProperties));
}

/// The template's shapes; an obstacle's shapes of single frames are kept in
/// its animation and shown beside the others.
std::optional<tessaro::PhysicsProperty> physicsOf(const DefaultViewRecord& record)
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
void storePhysics(DefaultViewRecord& record, const tessaro::PhysicsProperty& stored)
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
std::vector<PhysicsElement> shapesOf(const DefaultViewRecord& record)
{
    std::vector<PhysicsElement> shapes = loadPhysicsElements(physicsOf(record));
    for (PhysicsElement& shape : shapes) {
        shape.id = {};
        for (PointInternal& vertex : shape.points)
            vertex.id = {};
    }
    return shapes;
}

tessaro::SizeValue deviceSizeOf(const DefaultViewRecord& record)
{
    return std::visit([](const auto& r) { return tessaro::deviceValue<tessaro::fieldList::size>(r.devices); }, record);
}

std::string imageOf(const DefaultViewRecord& record)
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

ImagePhysicsSession::ImagePhysicsSession(PhysicsEditMode mode, ProjectTab* tab, CatalogueDocument* catalogues,
                                         QObject* parent)
    : QObject(parent),
      m_mode(mode),
      m_tab(tab),
      m_catalogues(catalogues)
{
    connect(&m_history, &QUndoStack::indexChanged, this, &ImagePhysicsSession::historyChanged);
    if (QUndoStack* catalogue = catalogueHistory()) {
        connect(catalogue, &QUndoStack::indexChanged, this, &ImagePhysicsSession::historyChanged);
        // A template's list follows the catalogue while it holds no edits of its own.
        connect(m_catalogues, &CatalogueDocument::recordChanged, this, [this] {
            if (m_history.index() == 0)
                reloadTemplateShapes();
        });
    }
}

ImagePhysicsSession::~ImagePhysicsSession()
{
    // The history empties itself as it goes and says so; the views that
    // listen may be half gone by then.
    m_history.disconnect(this);
}

// ---- Opening ------------------------------------------------------------------------------

void ImagePhysicsSession::loadPhysicsSession()
{
    m_elements.clear();
    m_imageList.clear();
    m_imageIdSelected = 0;
    m_imageSize = {0, 0};
    if (!m_tab)
        return;
    const SelectedObjectModel& object = m_tab->selectedObject();
    std::string image = object.image;
    std::optional<tessaro::PhysicsProperty> source;
    tessaro::SizeValue size;

    switch (m_mode) {
    case PhysicsEditMode::base:
        if (const std::optional<DefaultViewRecord> record = baseRecord(*m_tab)) {
            source = physicsOf(*record);
            size = deviceSizeOf(*record);
            if (!imageOf(*record).empty())
                image = imageOf(*record);
        }
        break;
    case PhysicsEditMode::animation: {
        const SelectedAnimationModel& animation = m_tab->selectedAnimationObject();
        source = animation.End_physics;
        // The end animation is shown at its own size when it has one.
        size = animation.End_size;
        if (!animation.End_atlasName.empty())
            image = animation.End_atlasName;
        break;
    }
    case PhysicsEditMode::element: {
        source = object.physics;
        const SelectedDeviceModel& device = m_tab->selectedDeviceObject();
        if (std::find(device.inherited.begin(), device.inherited.end(), PublishedElementList::size) !=
            device.inherited.end())
            size = device.size;
        else if (device.devicesDefaultBase && device.devicesDefaultBase->size)
            size = tessaro::sizeFromText(*device.devicesDefaultBase->size);
        const bool sizedByCatalogue =
            object.type == tessaro::sceneObjectType::obstacles || object.type == tessaro::sceneObjectType::character;
        if (size == tessaro::SizeValue{} && sizedByCatalogue)
            if (const std::optional<DefaultViewRecord> record = baseRecord(*m_tab))
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

void ImagePhysicsSession::setInspectorPresented(bool presented)
{
    m_isInspectorPresented = presented;
    emit changed();
}

void ImagePhysicsSession::setActiveType(InsertType type)
{
    if (type != InsertType::none && !canChooseTool())
        return;
    endShape();
    m_activeType = type;
    emit changed();
}

void ImagePhysicsSession::setImageViewHovered(bool hovered)
{
    m_imageViewHovered = hovered;
}

void ImagePhysicsSession::setAlphaValue(const QString& value)
{
    m_alphaValue = value;
    emit changed();
}

void ImagePhysicsSession::setScaleValue(const QString& value)
{
    m_scaleValue = value;
    if (!canChooseTool()) {
        // Shapes are drawn at 100% only.
        endShape();
        m_activeType = InsertType::none;
    }
    emit changed();
}

void ImagePhysicsSession::setFlipImageHorizontal(bool flip)
{
    m_flipHorizontal = flip;
    emit changed();
}

void ImagePhysicsSession::setFlipImageVertical(bool flip)
{
    m_flipVertical = flip;
    emit changed();
}

void ImagePhysicsSession::setDisplayOnlySelectedPhysics(bool only)
{
    m_displayOnlySelected = only;
    emit changed();
}

void ImagePhysicsSession::selectRow(const Uuid& id)
{
    m_selectedRow = id;
    emit changed();
}

// ---- Frames -------------------------------------------------------------------------------

void ImagePhysicsSession::selectImage(int index)
{
    if (index < 0 || index >= m_imageList.size())
        return;
    m_imageIdSelected = index;
    reloadImage();
    emit changed();
}

void ImagePhysicsSession::removeImage(int index)
{
    if (index < 0 || index >= m_imageList.size())
        return;
    m_imageList.removeAt(index);
    if (m_imageIdSelected >= m_imageList.size() || index < m_imageIdSelected)
        m_imageIdSelected = std::max(0, m_imageIdSelected - 1);
    reloadImage();
    emit changed();
}

bool ImagePhysicsSession::dropImageFiles(const QStringList& paths)
{
    if (!allowDropImages() || paths.isEmpty())
        return false;
    tessaro::diagnostic("Dropped file URL: " + paths.front().toStdString());
    m_imageList.append(paths.front());
    reloadImage();
    emit changed();
    return true;
}

const WorkspaceImage& ImagePhysicsSession::currentImage() const
{
    return m_image;
}

QSizeF ImagePhysicsSession::shownImageSize() const
{
    return m_image.image.isNull() ? m_imageSize : m_image.size;
}

void ImagePhysicsSession::reloadImage()
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

const PhysicsElement* ImagePhysicsSession::element(const Uuid& id) const
{
    const auto found = std::find_if(m_elements.begin(), m_elements.end(),
                                    [&](const PhysicsElement& element) { return element.id == id; });
    return found == m_elements.end() ? nullptr : &*found;
}

PhysicsElement* ImagePhysicsSession::find(const Uuid& id)
{
    return const_cast<PhysicsElement*>(std::as_const(*this).element(id));
}

bool ImagePhysicsSession::isDrawn(const PhysicsElement& element) const
{
    if (m_displayOnlySelected && element.id != m_selectedRow)
        return false;
    if (m_imageList.size() > 1 && !element.framesAffected.empty() &&
        !framesInclude(element.framesAffected, m_imageIdSelected))
        return false;
    return true;
}

double ImagePhysicsSession::handleTolerance() const
{
    const double s = std::abs(scale());
    return s > 0 ? 5.0 / s : 5.0;
}

const ShapeTool* ImagePhysicsSession::toolOf(const PhysicsElement& element) const
{
    return shapeToolFor(element.type);
}

void ImagePhysicsSession::restoreElements(std::vector<PhysicsElement> elements)
{
    m_elements = std::move(elements);
    m_gesture = gesture::none;
    endShape();
    emit changed();
}

void ImagePhysicsSession::appendSorted(PhysicsElement element)
{
    // Shapes stay in the order of their kinds; a new one goes last among its own.
    const auto place = std::upper_bound(m_elements.begin(), m_elements.end(), element.type,
                                        [](PhysicsType type, const PhysicsElement& e) { return type < e.type; });
    m_elements.insert(place, std::move(element));
}

void ImagePhysicsSession::markFrame(PhysicsElement& element) const
{
    if (m_imageList.size() > 1)
        element.framesAffected = std::to_string(m_imageIdSelected);
}

void ImagePhysicsSession::endShape()
{
    m_pathCurrentlyOpen = false;
    m_activePhysicsId = Uuid::create();
}

void ImagePhysicsSession::commit(std::vector<PhysicsElement> before, const QString& text)
{
    if (before == m_elements)
        return;
    pushStep(m_history, new ShapeListCommand(*this, std::move(before), m_elements, text));
}

// ---- The mouse ----------------------------------------------------------------------------

void ImagePhysicsSession::pointerMoved(PointValue p)
{
    m_yValues =
        QStringLiteral("**X:** %1  **Y:** %2").arg(QString::asprintf("%.0f", p.x), QString::asprintf("%.0f", p.y));
    emit readOutChanged();
}

void ImagePhysicsSession::pointerDown(PointValue p)
{
    if (m_activeType == InsertType::none) {
        pressWithSelection(p);
        return;
    }
    if (!m_imageViewHovered)
        return;
    const ShapeTool* tool = shapeToolFor(m_activeType);
    std::optional<PhysicsElement> started = tool ? tool->begin(p) : std::nullopt;
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

void ImagePhysicsSession::pressWithSelection(PointValue p)
{
    const QSizeF size = shownImageSize();
    const double tolerance = handleTolerance();
    const auto start = [&](const PhysicsElement& element, gesture kind) {
        m_gesture = kind;
        m_gestureBefore = m_elements;
        m_gestureStart = element;
        m_pressPoint = p;
    };
    // The handles of the selected shape come first, then the front-most shape.
    if (const PhysicsElement* selected = element(m_selectedRow); selected && isDrawn(*selected))
        if (const std::optional<std::size_t> handle = toolOf(*selected)->handleAt(*selected, p, tolerance, size)) {
            m_handle = *handle;
            start(*selected, gesture::reshaping);
            return;
        }
    for (auto it = m_elements.rbegin(); it != m_elements.rend(); ++it) {
        const ShapeTool* tool = toolOf(*it);
        if (tool && isDrawn(*it) && tool->hits(*it, p, tolerance, size)) {
            start(*it, gesture::moving);
            selectRow(it->id);
            return;
        }
    }
    m_gesture = gesture::none;
    selectRow(Uuid::create());
}

void ImagePhysicsSession::pointerDragged(PointValue p)
{
    if (m_activeType == InsertType::none) {
        if (!isDraggingShape())
            return;
        PhysicsElement* live = find(m_gestureStart.id);
        if (!live)
            return;
        const ShapeTool* tool = toolOf(m_gestureStart);
        // Each drag works from the shape as the press found it, so nothing drifts.
        PhysicsElement changed = m_gestureStart;
        if (m_gesture == gesture::moving)
            tool->translate(changed, {p.x - m_pressPoint.x, p.y - m_pressPoint.y}, shownImageSize());
        else
            tool->moveHandle(changed, m_handle, p, shownImageSize());
        *live = std::move(changed);
        emit this->changed();
        return;
    }
    if (!m_imageViewHovered || m_activeType == InsertType::polygon)
        return;
    PhysicsElement* drawn = find(m_activePhysicsId);
    if (!drawn)
        return;
    shapeToolFor(m_activeType)->drawTo(*drawn, p);
    emit changed();
}

void ImagePhysicsSession::pointerUp(PointValue p)
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
    if (m_activeType == InsertType::polygon && m_imageViewHovered)
        releasePolygon(p);
}

void ImagePhysicsSession::releasePolygon(PointValue p)
{
    std::vector<PhysicsElement> before = m_elements;
    if (!m_pathCurrentlyOpen) {
        PhysicsElement polygon = PhysicsElement::make(PhysicsType::polygon, p);
        markFrame(polygon);
        m_activePhysicsId = polygon.id;
        m_selectedRow = polygon.id;
        m_pathCurrentlyOpen = true;
        appendSorted(std::move(polygon));
        commit(std::move(before), tr("Draw Polygon"));
        emit changed();
        return;
    }
    PhysicsElement* open = find(m_activePhysicsId);
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

void ImagePhysicsSession::edit(const Uuid& id, int field, const std::function<void(PhysicsElement&)>& change,
                               std::size_t vertex)
{
    PhysicsElement* target = find(id);
    if (!target)
        return;
    std::vector<PhysicsElement> before = m_elements;
    change(*target);
    if (before == m_elements)
        return;
    pushStep(m_history,
             new ShapeListCommand(*this, std::move(before), m_elements, tr("Change Shape"), field, id, vertex));
    emit changed();
}

void ImagePhysicsSession::removeElement(const Uuid& id)
{
    std::vector<PhysicsElement> before = m_elements;
    std::erase_if(m_elements, [&](const PhysicsElement& element) { return element.id == id; });
    if (before == m_elements)
        return;
    if (id == m_activePhysicsId)
        endShape();
    pushStep(m_history, new ShapeListCommand(*this, std::move(before), m_elements, tr("Delete Shape")));
    emit changed();
}

void ImagePhysicsSession::setAction(const Uuid& id, std::vector<tessaro::actionType> action)
{
    edit(id, actionField, [&](PhysicsElement& e) { e.action = std::move(action); });
}

void ImagePhysicsSession::setFramesAffected(const Uuid& id, const std::string& frames)
{
    edit(id, framesField, [&](PhysicsElement& e) { e.framesAffected = frames; });
}

void ImagePhysicsSession::setStartPoint(const Uuid& id, PointValue p)
{
    edit(id, startField, [&](PhysicsElement& e) { e.startPoint = p; });
}

void ImagePhysicsSession::setEndPoint(const Uuid& id, PointValue p)
{
    edit(id, endField, [&](PhysicsElement& e) { e.endPoint = p; });
}

void ImagePhysicsSession::setDirection(const Uuid& id, tessaro::pathDirection direction)
{
    edit(id, directionField, [&](PhysicsElement& e) { e.direction = direction; });
}

void ImagePhysicsSession::setPoint(const Uuid& id, std::size_t index, PointValue p)
{
    edit(
        id, pointField,
        [&](PhysicsElement& e) {
            // The closing copy of the first vertex moves with it.
            if (index == 0 && PolygonTool::isClosed(e))
                e.points.back().point = p;
            if (index < e.points.size())
                e.points[index].point = p;
        },
        index);
}

void ImagePhysicsSession::setRadius(const Uuid& id, double radius)
{
    edit(id, radiusField, [&](PhysicsElement& e) { e.radius = radius; });
}

void ImagePhysicsSession::setSize(const Uuid& id, tessaro::SizeValue size)
{
    edit(id, sizeField, [&](PhysicsElement& e) { e.size = size; });
}

void ImagePhysicsSession::setCenter(const Uuid& id, PointValue p)
{
    edit(id, centerField, [&](PhysicsElement& e) { e.center = p; });
}

// ---- Apply --------------------------------------------------------------------------------

bool ImagePhysicsSession::applyPhysics()
{
    if (!m_tab)
        return false;
    const tessaro::PhysicsProperty stored = record();
    switch (m_mode) {
    case PhysicsEditMode::element:
        m_tab->selectedObject().physics = stored;
        EditRouting(*m_tab).apply(ModelType::Primary, PublishedElementList::physics, stored);
        return true;
    case PhysicsEditMode::animation:
        m_tab->selectedAnimationObject().End_physics = stored;
        EditRouting(*m_tab).apply(ModelType::AnimationCycleEnd, PublishedElementList::End_physics, stored);
        return true;
    case PhysicsEditMode::base: {
        const std::optional<DefaultViewRecord> before = m_catalogues ? baseRecord(*m_tab) : std::nullopt;
        if (!before)
            return false;
        DefaultViewRecord after = *before;
        storePhysics(after, stored);
        // The same shapes again are no step, though their ids would be new.
        return shapesOf(after) == shapesOf(*before) || m_catalogues->replaceRecord(after, tr("Change Base Physics"));
    }
    }
    return false;
}

// ---- Undo and redo ------------------------------------------------------------------------

QUndoStack* ImagePhysicsSession::catalogueHistory() const
{
    return m_mode == PhysicsEditMode::base && m_catalogues ? &m_catalogues->history() : nullptr;
}

const QUndoStack* ImagePhysicsSession::historyOfStep(bool back) const
{
    // The sheet's own steps come first; at the start of them, the catalogue's.
    const auto has = [back](const QUndoStack& stack) { return back ? stack.canUndo() : stack.canRedo(); };
    if (has(m_history))
        return &m_history;
    const QUndoStack* catalogue = catalogueHistory();
    return catalogue && m_history.index() == 0 && has(*catalogue) ? catalogue : nullptr;
}

bool ImagePhysicsSession::canUndo() const
{
    return historyOfStep(true);
}

QString ImagePhysicsSession::undoText() const
{
    const QUndoStack* history = historyOfStep(true);
    return (history ? *history : m_history).undoText();
}

void ImagePhysicsSession::undo()
{
    if (const QUndoStack* history = historyOfStep(true))
        const_cast<QUndoStack*>(history)->undo();
}

bool ImagePhysicsSession::canRedo() const
{
    return historyOfStep(false);
}

QString ImagePhysicsSession::redoText() const
{
    const QUndoStack* history = historyOfStep(false);
    return (history ? *history : m_history).redoText();
}

void ImagePhysicsSession::redo()
{
    if (const QUndoStack* history = historyOfStep(false))
        const_cast<QUndoStack*>(history)->redo();
}

void ImagePhysicsSession::reloadTemplateShapes()
{
    const std::optional<DefaultViewRecord> record = m_tab ? baseRecord(*m_tab) : std::nullopt;
    m_history.clear();
    restoreElements(loadPhysicsElements(record ? physicsOf(*record) : std::nullopt));
}

} // namespace stagewright
