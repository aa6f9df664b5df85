// Outline tracing and convex decomposition behind polygon and texture bodies.
#include <tessaro/kit/Geometry.h>

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro::kit::geometry;

namespace {

bool pointInPolygon(const Polygon& poly, QPointF p)
{
    bool in = false;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        const QPointF a = poly[i], b = poly[j];
        if ((a.y() > p.y()) != (b.y() > p.y()) && p.x() < (b.x() - a.x()) * (p.y() - a.y()) / (b.y() - a.y()) + a.x())
            in = !in;
    }
    return in;
}

QPointF centroid(const Polygon& p)
{
    QPointF c;
    for (const QPointF& v : p)
        c += v;
    return c / double(p.size());
}

QImage mask(int w, int h, const std::function<bool(int, int)>& solid)
{
    QImage img(w, h, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (solid(x, y))
                img.setPixel(x, y, qRgba(0, 0, 0, 255));
    return img;
}

} // namespace

TEST(Geometry, ConvexDecompositionTilesRandomStarsExactly)
{
    QRandomGenerator rng(1234);
    for (int round = 0; round < 40; ++round) {
        const int n = 5 + int(rng.bounded(40));
        Polygon star;
        for (int i = 0; i < n; ++i) {
            const double a = 2 * M_PI * i / n;
            const double r = 20 + rng.bounded(80.0);
            star.emplace_back(r * std::cos(a), r * std::sin(a));
        }
        if (round % 2)
            std::reverse(star.begin(), star.end()); // either orientation
        ASSERT_TRUE(isSimple(star));
        const auto pieces = convexDecomposition(star, 8);
        double area = 0;
        for (const Polygon& piece : pieces) {
            EXPECT_TRUE(isConvex(piece));
            EXPECT_LE(piece.size(), 8u);
            EXPECT_GT(signedArea(piece), 0);
            EXPECT_TRUE(pointInPolygon(star, centroid(piece)));
            area += signedArea(piece);
        }
        // Pieces inside the outline whose areas add up to it cannot overlap.
        EXPECT_NEAR(area, std::abs(signedArea(star)), 1e-6 * std::abs(signedArea(star)));
        // Merging keeps the count well below the number of triangles.
        EXPECT_LT(pieces.size(), size_t(n - 2));
    }
}

TEST(Geometry, TracingFollowsPixelEdgesFillsHolesAndSeparatesRegions)
{
    // A ring: one outline, the hole filled.
    const QImage ring = mask(20, 20, [](int x, int y) {
        const bool outer = x >= 2 && x < 18 && y >= 2 && y < 18;
        const bool hole = x >= 6 && x < 14 && y >= 6 && y < 14;
        return outer && !hole;
    });
    auto outlines = traceAlphaOutlines(ring, 0.5f);
    ASSERT_EQ(outlines.size(), 1u);
    EXPECT_DOUBLE_EQ(signedArea(outlines[0]), 16 * 16);
    EXPECT_EQ(outlines[0].size(), 4u); // straight runs collapse to corners

    // Two blobs and two pixels that touch only at a corner: four regions.
    const QImage blobs = mask(30, 10, [](int x, int y) {
        return (x < 5 && y < 5) || (x >= 10 && x < 20 && y >= 2 && y < 8) || (x == 24 && y == 4) || (x == 25 && y == 5);
    });
    outlines = traceAlphaOutlines(blobs, 0.5f);
    ASSERT_EQ(outlines.size(), 4u);
    double total = 0;
    for (const Polygon& p : outlines) {
        EXPECT_TRUE(isSimple(p));
        total += signedArea(p);
    }
    EXPECT_DOUBLE_EQ(total, 25 + 60 + 1 + 1);

    // A ring cut open on the right whose two ends touch only at a corner:
    // the loop is split at that corner, the enclosed cavity is filled, and
    // only the notch on the outside stays empty.
    const QImage c = mask(12, 12, [](int x, int y) {
        const bool onRing = x >= 1 && x < 11 && y >= 1 && y < 11 && !(x >= 3 && x < 9 && y >= 3 && y < 9);
        const bool cut = x >= 9 && y >= 5 && y < 7;
        const bool ends = (x == 9 && y == 5) || (x == 10 && y == 6);
        return (onRing && !cut) || ends;
    });
    outlines = traceAlphaOutlines(c, 0.5f);
    ASSERT_EQ(outlines.size(), 1u);
    EXPECT_TRUE(isSimple(outlines[0]));
    EXPECT_DOUBLE_EQ(signedArea(outlines[0]), 100 - 1);

    // Thresholds: alpha at the threshold is not solid.
    QImage faint(4, 4, QImage::Format_ARGB32);
    faint.fill(qRgba(255, 255, 255, 128));
    EXPECT_EQ(traceAlphaOutlines(faint, 0.6f).size(), 0u);
    EXPECT_EQ(traceAlphaOutlines(faint, 0.4f).size(), 1u);

    // The pipeline: a disc becomes a handful of convex pieces close to it.
    const QImage disc = mask(64, 64, [](int x, int y) {
        const double dx = x + 0.5 - 32, dy = y + 0.5 - 32;
        return dx * dx + dy * dy <= 28 * 28;
    });
    const auto pieces = alphaOutlinePieces(disc, 0.5f);
    double area = 0;
    for (const Polygon& p : pieces) {
        EXPECT_TRUE(isConvex(p));
        EXPECT_LE(p.size(), 8u);
        area += std::abs(signedArea(p));
    }
    EXPECT_NEAR(area, M_PI * 28 * 28, M_PI * 28 * 28 * 0.02);
    EXPECT_LT(pieces.size(), 12u);
}

TEST(Geometry, SimplificationStaysWithinTolerance)
{
    Polygon stairs;
    for (int i = 0; i < 20; ++i) {
        stairs.emplace_back(i, i);
        stairs.emplace_back(i + 1, i);
    }
    stairs.emplace_back(20, 20);
    stairs.emplace_back(0, 20);
    const Polygon simple = simplifyClosed(stairs, 1.0);
    EXPECT_LE(simple.size(), 5u);
    for (const QPointF& p : stairs) {
        double best = 1e9;
        for (size_t i = 0; i < simple.size(); ++i) {
            const QPointF a = simple[i], b = simple[(i + 1) % simple.size()];
            const double len2 = std::pow(b.x() - a.x(), 2) + std::pow(b.y() - a.y(), 2);
            double t = ((p.x() - a.x()) * (b.x() - a.x()) + (p.y() - a.y()) * (b.y() - a.y())) / len2;
            t = std::clamp(t, 0.0, 1.0);
            best = std::min(best, std::hypot(a.x() + t * (b.x() - a.x()) - p.x(), a.y() + t * (b.y() - a.y()) - p.y()));
        }
        EXPECT_LE(best, 1.0 + 1e-9);
    }
    EXPECT_EQ(removeCollinear({{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}).size(), 4u);
}
