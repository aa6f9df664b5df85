// Polygon helpers behind texture bodies and polygon bodies: tracing the
// outline of an alpha mask, simplifying it, and splitting a simple polygon
// into convex pieces small enough for the physics engine.
#pragma once

#include <QImage>
#include <QPointF>

#include <vector>

namespace tessaro::kit::geometry {

using Polygon = std::vector<QPointF>;

/// Signed area (positive for counter-clockwise in a y-up space).
double signedArea(const Polygon& p);
/// True when no two edges cross or touch apart from neighbours at their
/// shared vertex, and no vertex repeats.
bool isSimple(const Polygon& p);
bool isConvex(const Polygon& p);
/// Drops repeated vertices and vertices on the line through their neighbours.
Polygon removeCollinear(const Polygon& p, double epsilon = 1e-9);
/// Douglas-Peucker on a closed polygon: every dropped vertex lies within
/// `tolerance` of the result.
Polygon simplifyClosed(const Polygon& p, double tolerance);

/// The outer boundaries of the regions of `image` whose alpha is above
/// threshold * 255, in pixel-corner coordinates (x right, y down), one
/// polygon per 4-connected region; holes are ignored. Each polygon is simple
/// and follows the pixel edges.
std::vector<Polygon> traceAlphaOutlines(const QImage& image, float threshold);

/// Splits a simple polygon into convex pieces of at most `maxVertices`
/// vertices (ear clipping, then merging neighbours while they stay convex).
/// The pieces are counter-clockwise in the polygon's own orientation sense.
std::vector<Polygon> convexDecomposition(const Polygon& polygon, int maxVertices = 8);

/// The whole pipeline for a texture: trace, simplify to within `tolerance`
/// pixels, decompose. Coordinates are in pixels (y down). Tiny regions of
/// fewer than `minArea` square pixels are dropped.
std::vector<Polygon> alphaOutlinePieces(const QImage& image, float threshold, double tolerance = 1.0,
                                        double minArea = 2.0);

} // namespace tessaro::kit::geometry
