#include "GroundPlan.h"

#include "DrawableNumbers.h"
#include "HazardTiles.h"
#include "ImageNames.h"
#include "LayoutContext.h"

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace tessaro::layout {

namespace {

/// More pictures than this in one section are a typing slip; the record keeps
/// its number, the layout shows this many.
constexpr std::int64_t kMostPicturesShown = 10000;

std::int64_t shownCount(std::int64_t count, const std::string& what)
{
    if (count <= kMostPicturesShown)
        return count;
    diagnostic("Ground section " + what + " of " + std::to_string(count) + " is shown with " +
               std::to_string(kMostPicturesShown) + " pictures; the section keeps its value.");
    return kMostPicturesShown;
}

bool hasArea(SizeValue size)
{
    return size.width > 0 && size.height > 0;
}

/// `columns` copies of a picture of `unit` side by side; a picture without
/// area stays as it is.
SizeValue sideBySide(SizeValue unit, std::int64_t columns)
{
    if (columns <= 1 || !hasArea(unit))
        return unit;
    return {unit.width * double(columns), unit.height};
}

class GroundLayout {
public:
    explicit GroundLayout(const LayoutContext& context) : m_context(context), m_runningX(context.view.left) {}

    void lay(const GroundSection& section, std::size_t index)
    {
        GroundPiece piece;
        piece.section = index;
        const double z = section.zPosition.value_or(defaultGroundZPosition);
        if (!section.isVisible.value_or(true)) {
            piece.hidden = true;
            piece.z = z + 50;
            piece.centre = {m_runningX, m_context.view.bottom};
            m_plan.pieces.push_back(std::move(piece));
            return;
        }
        const PointValue offset =
            drawablePoint(m_context.deviceValue<fieldList::offset>(section.devices), "ground offset");
        const SizeValue size = drawableSize(m_context.deviceValue<fieldList::size>(section.devices), "ground size");
        piece.tileSize = size;
        const std::optional<groundBaseType> type = caseFromText<groundBaseType>(section.groundType.value_or("Ground"));
        if (type != groundBaseType::Ground)
            layHazard(section, type, offset, z, piece);
        else
            layTiles(section, offset, z, piece);
        m_plan.endX = m_runningX;
        m_plan.pieces.push_back(std::move(piece));
    }

    GroundPlan finish() { return std::move(m_plan); }

private:
    /// The size an image is drawn at: the section's tile size, else its own.
    SizeValue tileOf(const std::string& image, SizeValue size) const
    {
        return hasArea(size) ? size : m_context.naturalSize(sceneObjectType::ground, image);
    }

    void layHazard(const GroundSection& section, std::optional<groundBaseType> type, PointValue offset, double z,
                   GroundPiece& piece)
    {
        piece.hazard = true;
        piece.z = z + 47;
        piece.images = {hazardTileName(type)};
        piece.columns = 0;
        const double distance =
            drawablePosition(sizeFromText(section.distance.value_or(std::string())).width, "ground distance");
        if (distance > 0) {
            const SizeValue tile = tileOf(piece.images.front(), piece.tileSize);
            // Tiles are added until twice the offset and the picture reach the distance.
            std::int64_t count = 1;
            if (tile.width > 0)
                count = std::max<std::int64_t>(1, std::int64_t(std::ceil((distance - 2 * offset.x) / tile.width)));
            piece.columns = int(shownCount(count, "tile count"));
            piece.size = sideBySide(hasArea(tile) ? tile : SizeValue{}, piece.columns);
        }
        piece.centre = {m_runningX + offset.x + piece.size.width / 2, m_context.view.bottom};
        m_plan.floorTop = piece.centre.y + piece.size.height / 2;
        m_plan.lastCentreY = piece.centre.y;
        m_runningX += distance;
        m_plan.length += distance;
    }

    void layTiles(const GroundSection& section, PointValue offset, double z, GroundPiece& piece)
    {
        const std::int64_t repeatCount = section.repeatCount.value_or(0);
        const bool stacked = section.stack.value_or(false);
        const std::string image = section.image.value_or(std::string());
        piece.z = z + 50;
        SizeValue unit;
        if (stacked) {
            piece.images = trimmedNamesFromText(image);
            if (piece.images.empty())
                piece.images.emplace_back();
            // A column is as wide as its first image and as tall as all of them.
            for (std::size_t i = 0; i < piece.images.size(); ++i) {
                SizeValue tile = tileOf(piece.images[i], piece.tileSize);
                if (!hasArea(tile))
                    tile = {};
                unit = i == 0 ? tile : SizeValue{unit.width, unit.height + tile.height};
            }
            piece.columns = int(shownCount(std::max<std::int64_t>(repeatCount, 0) + 1, "repeat count"));
        } else {
            piece.images = {firstImageName(image)};
            unit = tileOf(piece.images.front(), piece.tileSize);
            if (!hasArea(unit))
                unit = {};
            piece.columns = repeatCount >= 1 ? int(shownCount(repeatCount, "repeat count")) : 1;
            piece.repeatedRow = repeatCount >= 1;
        }
        piece.size = sideBySide(unit, piece.columns);

        m_runningX += offset.x;
        const double width = piece.size.width;
        const double height = piece.size.height;
        piece.centre = {m_runningX + width / 2, offset.y + height / 2 + m_context.view.bottom};
        m_plan.floorTop = piece.centre.y + height / 2;
        m_plan.lastCentreY = piece.centre.y;
        const std::vector<groundPhysicsAngleType> angles =
            listFromText<groundPhysicsAngleType>(section.groundPhysicsAngleType.value_or(std::string()));
        addFloor(width, std::find(angles.begin(), angles.end(), groundPhysicsAngleType::angle) != angles.end());
        m_runningX += width;
        m_plan.length += width;
    }

    void addFloor(double width, bool sloped)
    {
        std::vector<FloorStretch>& floors = m_plan.floors;
        // A stretch grows only by a section that starts where it ends: after a
        // hazard or an offset gap the floor starts anew, so the gap has no
        // floor and the section beyond it has its own.
        if (!floors.empty()) {
            FloorStretch& last = floors.back();
            const bool touches = std::abs(last.x + last.width - m_runningX) < 1e-6;
            if (touches && (last.top == m_plan.floorTop || sloped)) {
                last.width += width;
                return;
            }
        }
        floors.push_back({m_runningX, m_plan.floorTop, width});
    }

    const LayoutContext& m_context;
    GroundPlan m_plan;
    double m_runningX;
};

} // namespace

double GroundPlan::groundHeight(double x) const
{
    double height = 0;
    for (const FloorStretch& floor : floors)
        if (floor.x <= x && x <= floor.x + floor.width)
            height = floor.top;
    return height;
}

GroundPlan layGround(const std::vector<GroundSection>& sections, const LayoutContext& context)
{
    GroundLayout layout(context);
    for (std::size_t i = 0; i < sections.size(); ++i)
        layout.lay(sections[i], i);
    return layout.finish();
}

} // namespace tessaro::layout
