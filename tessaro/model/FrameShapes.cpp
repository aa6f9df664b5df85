#include "FrameShapes.h"

namespace tessaro {

namespace {

template <class Shape>
void part(const std::optional<std::vector<Shape>>& from, std::optional<std::vector<Shape>>& whole,
          std::optional<std::vector<Shape>>& frames)
{
    if (!from)
        return;
    for (const Shape& shape : *from) {
        auto& to = isFrameShape(shape.framesAffected) ? frames : whole;
        if (!to)
            to.emplace();
        to->push_back(shape);
    }
}

template <class Shape>
void append(std::optional<std::vector<Shape>>& to, const std::optional<std::vector<Shape>>& from)
{
    if (!from || from->empty())
        return;
    if (!to)
        to.emplace();
    to->insert(to->end(), from->begin(), from->end());
}

template <class Shape>
bool any(const std::optional<std::vector<Shape>>& list)
{
    return list && !list->empty();
}

} // namespace

bool isFrameShape(const std::optional<std::string>& framesAffected)
{
    return framesAffected && !framesAffected->empty();
}

SplitShapes splitFrameShapes(const PhysicsProperty& physics)
{
    SplitShapes split;
    split.whole.id = physics.id;
    split.frames.id = Uuid::create();
    part(physics.edges, split.whole.edges, split.frames.edges);
    part(physics.radiuses, split.whole.radiuses, split.frames.radiuses);
    part(physics.rectangles, split.whole.rectangles, split.frames.rectangles);
    part(physics.polygons, split.whole.polygons, split.frames.polygons);
    return split;
}

PhysicsProperty joinedShapes(PhysicsProperty base, const PhysicsProperty& more)
{
    append(base.edges, more.edges);
    append(base.radiuses, more.radiuses);
    append(base.rectangles, more.rectangles);
    append(base.polygons, more.polygons);
    return base;
}

bool hasShapes(const PhysicsProperty& physics)
{
    return any(physics.edges) || any(physics.radiuses) || any(physics.rectangles) || any(physics.polygons);
}

} // namespace tessaro
