// The ground of a level laid out: sections from the left edge of the view to
// the right. A tile section is one picture of its images (columns of stacked
// images, or copies side by side); a hazard section repeats a fixed tile over
// its distance. The ground fixes the length of the level and the floor
// stretches that elements with gravity stand on.
#pragma once

#include <tessaro/model/Geometry.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tessaro {
struct GroundSection;
}

namespace tessaro::layout {

struct LayoutContext;

/// One section as it is drawn.
struct GroundPiece {
    /// The section's index in the level's ground list.
    std::size_t section = 0;
    /// A hidden section takes no room and shows nothing; it keeps its place
    /// in the list.
    bool hidden = false;
    bool hazard = false;
    /// One column of the picture, top to bottom; a row or a hazard has one image.
    std::vector<std::string> images;
    /// How many times the column stands side by side.
    int columns = 1;
    /// The size each image is drawn at; (0,0) for the image's own size.
    SizeValue tileSize;
    /// Centre and size of the whole picture, and its depth.
    PointValue centre;
    SizeValue size;
    double z = 0;
    /// A row of copies of one image: enemies collide with it too.
    bool repeatedRow = false;
};

/// A stretch of floor at one height; x is its left edge.
struct FloorStretch {
    double x = 0;
    double top = 0;
    double width = 0;
};

struct GroundPlan {
    std::vector<GroundPiece> pieces;
    std::vector<FloorStretch> floors;
    /// The width of all sections laid, offsets left out.
    double length = 0;
    /// Where the last section ends, in level coordinates; 0 without sections.
    double endX = 0;
    /// The top edge and the centre height of the last section laid.
    double floorTop = 0;
    double lastCentreY = 0;

    /// The floor height at x: the last floor stretch that covers x, else 0.
    double groundHeight(double x) const;
};

/// Lays `sections` out. More pictures than a section can sensibly hold are
/// laid as many as are shown, with a line saying so.
GroundPlan layGround(const std::vector<GroundSection>& sections, const LayoutContext& context);

} // namespace tessaro::layout
