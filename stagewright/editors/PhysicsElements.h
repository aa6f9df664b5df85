// The physics editor's own form of an image's shapes: one flat list of
// elements with numeric geometry, converted from the stored record when the
// editor opens and back when the user applies it. Shapes are stored centred
// on the image, x to the right and y upward, in image points.
#pragma once

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>
#include <tessaro/model/SubRecords.h>
#include <tessaro/model/Uuid.h>

#include <QPointF>
#include <QRectF>

#include <optional>
#include <string>
#include <vector>

// The order matters: the list is sorted by it.
#define STAGEWRIGHT_PHYSICS_TYPE(X) X(edge) X(polygon) X(radius) X(rect) X(none)
#define STAGEWRIGHT_INSERT_TYPE(X) X(rectangle) X(radius) X(edge) X(polygon) X(none)

namespace stagewright {

enum class physicsType { STAGEWRIGHT_PHYSICS_TYPE(TESSARO_ENUM_CASE) };
/// The drawing tool of the editor.
enum class insertType { STAGEWRIGHT_INSERT_TYPE(TESSARO_ENUM_CASE) };

} // namespace stagewright

template <>
struct tessaro::EnumCases<stagewright::physicsType> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_PHYSICS_TYPE(TESSARO_ENUM_TEXT)};
};
template <>
struct tessaro::EnumCases<stagewright::insertType> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_INSERT_TYPE(TESSARO_ENUM_TEXT)};
};

namespace stagewright {

/// One vertex of a polygon while the editor is open.
struct pointInternal {
    tessaro::Uuid id = tessaro::Uuid::create();
    tessaro::PointValue point;
    bool operator==(const pointInternal&) const = default;
};

/// One shape while the editor is open; `id` is never stored.
struct physicsElement {
    tessaro::Uuid id = tessaro::Uuid::create();
    physicsType type = physicsType::none;
    std::vector<tessaro::actionType> action{tessaro::actionType::all};
    tessaro::pathDirection direction = tessaro::pathDirection::none;
    std::string framesAffected;
    tessaro::PointValue startPoint;
    tessaro::PointValue endPoint;
    tessaro::SizeValue size;
    tessaro::PointValue center;
    double radius = 0;
    std::vector<pointInternal> points;

    bool operator==(const physicsElement&) const = default;

    /// A new shape of `type`; a polygon starts with its first vertex at `first`.
    static physicsElement make(physicsType type, tessaro::PointValue first = {});
};

/// The stored shapes as the editor's list: edges, polygons, circles, then
/// rectangles, each kind in its stored order. No record gives an empty list.
std::vector<physicsElement> loadPhysicsElements(const std::optional<tessaro::PhysicsProperty>& record);
/// Appends the stored form of `element` to its list in `record`.
void appendPhysicsRecord(const physicsElement& element, tessaro::PhysicsProperty& record);
/// The stored form of the whole list; a kind without shapes has no list.
tessaro::PhysicsProperty buildPhysicsProperty(const std::vector<physicsElement>& elements);

/// A pointer location (window coordinates, y upward) as shape coordinates,
/// given the frames of the editor's content and of its image area.
tessaro::PointValue physicsPointFromEvent(QPointF location, QRectF outerFrame, QRectF imageFrame);

} // namespace stagewright
