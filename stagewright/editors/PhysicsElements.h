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

enum class PhysicsType { STAGEWRIGHT_PHYSICS_TYPE(TESSARO_ENUM_CASE) };
/// The drawing tool of the editor.
enum class InsertType { STAGEWRIGHT_INSERT_TYPE(TESSARO_ENUM_CASE) };

} // namespace stagewright

template <>
struct tessaro::EnumCases<stagewright::PhysicsType> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_PHYSICS_TYPE(TESSARO_ENUM_TEXT)};
};
template <>
struct tessaro::EnumCases<stagewright::InsertType> {
    static constexpr std::string_view names[] = {STAGEWRIGHT_INSERT_TYPE(TESSARO_ENUM_TEXT)};
};

namespace stagewright {

/// One vertex of a polygon while the editor is open.
struct PointInternal {
    tessaro::Uuid id = tessaro::Uuid::create();
    tessaro::PointValue point;
    bool operator==(const PointInternal&) const = default;
};

/// One shape while the editor is open; `id` is never stored.
struct PhysicsElement {
    tessaro::Uuid id = tessaro::Uuid::create();
    PhysicsType type = PhysicsType::none;
    std::vector<tessaro::actionType> action{tessaro::actionType::all};
    tessaro::pathDirection direction = tessaro::pathDirection::none;
    std::string framesAffected;
    tessaro::PointValue startPoint;
    tessaro::PointValue endPoint;
    tessaro::SizeValue size;
    tessaro::PointValue center;
    double radius = 0;
    std::vector<PointInternal> points;

    bool operator==(const PhysicsElement&) const = default;

    /// A new shape of `type`; a polygon starts with its first vertex at `first`.
    static PhysicsElement make(PhysicsType type, tessaro::PointValue first = {});
};

/// The stored shapes as the editor's list: edges, polygons, circles, then
/// rectangles, each kind in its stored order. No record gives an empty list.
std::vector<PhysicsElement> loadPhysicsElements(const std::optional<tessaro::PhysicsProperty>& record);
/// Appends the stored form of `element` to its list in `record`.
void appendPhysicsRecord(const PhysicsElement& element, tessaro::PhysicsProperty& record);
/// The stored form of the whole list; a kind without shapes has no list.
tessaro::PhysicsProperty buildPhysicsProperty(const std::vector<PhysicsElement>& elements);

/// A pointer location (window coordinates, y upward) as shape coordinates,
/// given the frames of the editor's content and of its image area.
tessaro::PointValue physicsPointFromEvent(QPointF location, QRectF outerFrame, QRectF imageFrame);

} // namespace stagewright
