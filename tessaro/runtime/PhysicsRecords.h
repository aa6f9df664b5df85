// Physics bodies and masks from the stored records of an element.
//
// Stored shapes are in the image's own frame: origin at its centre, y up,
// one unit per image point, which is the frame of a sprite with anchor
// (0.5, 0.5). Edges and polygons may hold -9999 and 9999 for "the edge of
// the sprite": they are replaced from the size the caller gives.
#pragma once

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/model/SubRecords.h>

#include <QPainterPath>
#include <QSizeF>

#include <cstdint>
#include <optional>
#include <string>

namespace tessaro {

/// The three masks of a CollisionDetection record; 0 for an absent text.
struct CollisionMaskBits {
    std::uint32_t category = 0;
    std::uint32_t contact = 0;
    std::uint32_t collision = 0;
};
CollisionMaskBits collisionMaskBits(const boxed<CollisionDetection>& masks);

/// A start x of -9999 becomes -width/2 and a start y of -9999 -height/2; an
/// end x of 9999 becomes width/2 and an end y of 9999 height/2. Only the
/// marker of each sign counts at each end.
kit::PhysicsBodyPtr edgeBody(const EdgePhysics& edge, const QSizeF& spriteSize);
/// A rectangle of the stored size about the stored centre ((0,0) when absent).
kit::PhysicsBodyPtr rectangleBody(const RectanglePhysics& rectangle);
/// A circle of the stored radius about the sprite's centre.
kit::PhysicsBodyPtr circleBody(const RadiusPhysics& circle);
/// The closed outline of a polygon record, its points rounded to one decimal:
/// a move to the first point as stored, then a line to every point in order
/// (the first one again included) in which a coordinate of -9999 becomes
/// minus half the texture's size on that axis.
QPainterPath polygonPath(const PolyPhysics& polygon, const QSizeF& textureSize);

/// Whether a shape takes part in the body of animation frame `frame`: one of
/// the comma-separated tokens is exactly the frame's number. Absent text
/// belongs to no frame.
bool shapeAppliesToFrame(const std::optional<std::string>& framesAffected, int frame);

} // namespace tessaro
