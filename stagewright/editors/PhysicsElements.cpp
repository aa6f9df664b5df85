#include "PhysicsElements.h"

#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

using tessaro::actionType;

namespace {

std::vector<actionType> actionsOf(const std::optional<std::string>& text)
{
    return text ? tessaro::listFromText<actionType>(*text) : std::vector<actionType>{};
}

/// Point text with no comma inside a number: "{12.0,-7.0}".
std::string pointText(double first, double second)
{
    const auto number = [](double v) {
        std::string text = tessaro::numberText(v);
        std::erase(text, ',');
        return text;
    };
    return '{' + number(first) + ',' + number(second) + '}';
}

template <class R>
R recordOf(const PhysicsElement& element)
{
    R record;
    record.id = tessaro::Uuid::create();
    record.action = tessaro::textFromList(element.action);
    if (!element.framesAffected.empty())
        record.framesAffected = element.framesAffected;
    return record;
}

template <class R>
void common(PhysicsElement& element, const R& record)
{
    element.action = actionsOf(record.action);
    element.framesAffected = record.framesAffected.value_or(std::string());
}

} // namespace

PhysicsElement PhysicsElement::make(PhysicsType type, tessaro::PointValue first)
{
    PhysicsElement element;
    element.type = type;
    if (type == PhysicsType::polygon) {
        element.direction = tessaro::pathDirection::both;
        element.points.push_back({tessaro::Uuid::create(), first});
    }
    return element;
}

std::vector<PhysicsElement> loadPhysicsElements(const std::optional<tessaro::PhysicsProperty>& record)
{
    std::vector<PhysicsElement> elements;
    if (!record)
        return elements;
    for (const tessaro::EdgePhysics& edge : record->edges.value_or(std::vector<tessaro::EdgePhysics>{})) {
        PhysicsElement& element = elements.emplace_back(PhysicsElement::make(PhysicsType::edge));
        common(element, edge);
        element.startPoint = tessaro::pointFromText(edge.startPoint);
        element.endPoint = tessaro::pointFromText(edge.endPoint);
    }
    for (const tessaro::RectanglePhysics& rect :
         record->rectangles.value_or(std::vector<tessaro::RectanglePhysics>{})) {
        PhysicsElement& element = elements.emplace_back(PhysicsElement::make(PhysicsType::rect));
        common(element, rect);
        element.size = tessaro::sizeFromText(rect.size);
        element.center = rect.center ? tessaro::pointFromText(*rect.center) : tessaro::PointValue{};
    }
    // A circle always sits on the image's centre; a stored centre is not read.
    for (const tessaro::RadiusPhysics& circle : record->radiuses.value_or(std::vector<tessaro::RadiusPhysics>{})) {
        PhysicsElement& element = elements.emplace_back(PhysicsElement::make(PhysicsType::radius));
        common(element, circle);
        element.radius = circle.radius;
    }
    for (const tessaro::PolyPhysics& polygon : record->polygons.value_or(std::vector<tessaro::PolyPhysics>{})) {
        PhysicsElement& element = elements.emplace_back(PhysicsElement::make(PhysicsType::polygon));
        common(element, polygon);
        element.direction =
            tessaro::caseFromText<tessaro::pathDirection>(polygon.direction).value_or(tessaro::pathDirection::none);
        element.points.clear();
        for (const tessaro::Point& point : polygon.points)
            element.points.push_back({tessaro::Uuid::create(), tessaro::pointFromText(point.point)});
    }
    std::stable_sort(elements.begin(), elements.end(),
                     [](const PhysicsElement& a, const PhysicsElement& b) { return a.type < b.type; });
    return elements;
}

void appendPhysicsRecord(const PhysicsElement& element, tessaro::PhysicsProperty& record)
{
    const auto into = [](auto& list) -> auto&
    {
        if (!list)
            list.emplace();
        return *list;
    };
    switch (element.type) {
    case PhysicsType::edge: {
        auto edge = recordOf<tessaro::EdgePhysics>(element);
        edge.startPoint = pointText(element.startPoint.x, element.startPoint.y);
        edge.endPoint = pointText(element.endPoint.x, element.endPoint.y);
        into(record.edges).push_back(std::move(edge));
        break;
    }
    case PhysicsType::rect: {
        auto rect = recordOf<tessaro::RectanglePhysics>(element);
        rect.size = pointText(element.size.width, element.size.height);
        rect.center = pointText(element.center.x, element.center.y);
        into(record.rectangles).push_back(std::move(rect));
        break;
    }
    case PhysicsType::radius: {
        auto circle = recordOf<tessaro::RadiusPhysics>(element);
        circle.radius = element.radius;
        into(record.radiuses).push_back(std::move(circle));
        break;
    }
    case PhysicsType::polygon: {
        auto polygon = recordOf<tessaro::PolyPhysics>(element);
        polygon.direction = std::string(tessaro::caseText(element.direction));
        for (const PointInternal& vertex : element.points) {
            tessaro::Point point;
            point.id = tessaro::Uuid::create();
            point.point = pointText(vertex.point.x, vertex.point.y);
            polygon.points.push_back(std::move(point));
        }
        into(record.polygons).push_back(std::move(polygon));
        break;
    }
    case PhysicsType::none: break;
    }
}

tessaro::PhysicsProperty buildPhysicsProperty(const std::vector<PhysicsElement>& elements)
{
    tessaro::PhysicsProperty record;
    record.id = tessaro::Uuid::create();
    // Only the kinds that have shapes get a list.
    for (const PhysicsElement& element : elements)
        appendPhysicsRecord(element, record);
    return record;
}

tessaro::PointValue physicsPointFromEvent(QPointF location, QRectF outerFrame, QRectF imageFrame)
{
    const auto R = [](double v) { return std::round(v); }; // halves away from zero
    return {R(location.x()) - R(imageFrame.left()) - R(imageFrame.width()) * 0.5,
            R(location.y()) - (outerFrame.height() - imageFrame.height()) - R(imageFrame.height()) * 0.5};
}

} // namespace stagewright
