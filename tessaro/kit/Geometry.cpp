#include "Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <unordered_map>

namespace tessaro::kit::geometry {

namespace {

inline double cross(const QPointF& o, const QPointF& a, const QPointF& b)
{
    return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
}

// Distance from p to the segment ab.
double segmentDistance(const QPointF& p, const QPointF& a, const QPointF& b)
{
    const double dx = b.x() - a.x(), dy = b.y() - a.y();
    const double len2 = dx * dx + dy * dy;
    double t = len2 > 0 ? ((p.x() - a.x()) * dx + (p.y() - a.y()) * dy) / len2 : 0;
    t = std::clamp(t, 0.0, 1.0);
    const double qx = a.x() + t * dx - p.x(), qy = a.y() + t * dy - p.y();
    return std::sqrt(qx * qx + qy * qy);
}

bool onSegment(const QPointF& p, const QPointF& a, const QPointF& b)
{
    return std::min(a.x(), b.x()) <= p.x() && p.x() <= std::max(a.x(), b.x()) && std::min(a.y(), b.y()) <= p.y() &&
        p.y() <= std::max(a.y(), b.y());
}

bool segmentsIntersect(const QPointF& a, const QPointF& b, const QPointF& c, const QPointF& d)
{
    const double d1 = cross(c, d, a), d2 = cross(c, d, b), d3 = cross(a, b, c), d4 = cross(a, b, d);
    if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0)))
        return true;
    if (d1 == 0 && onSegment(a, c, d))
        return true;
    if (d2 == 0 && onSegment(b, c, d))
        return true;
    if (d3 == 0 && onSegment(c, a, b))
        return true;
    if (d4 == 0 && onSegment(d, a, b))
        return true;
    return false;
}

void douglasPeucker(const Polygon& p, size_t first, size_t last, double tol, std::vector<bool>& keep)
{
    if (last <= first + 1)
        return;
    double best = -1;
    size_t index = first;
    for (size_t i = first + 1; i < last; ++i) {
        const double d = segmentDistance(p[i], p[first], p[last]);
        if (d > best) {
            best = d;
            index = i;
        }
    }
    if (best > tol) {
        keep[index] = true;
        douglasPeucker(p, first, index, tol, keep);
        douglasPeucker(p, index, last, tol, keep);
    }
}

// Splits a closed loop that passes a vertex more than once into simple loops.
std::vector<Polygon> splitAtRepeatedVertices(const Polygon& loop)
{
    std::vector<Polygon> out;
    Polygon stack;
    std::map<std::pair<double, double>, size_t> where;
    for (const QPointF& v : loop) {
        const auto key = std::make_pair(v.x(), v.y());
        auto it = where.find(key);
        if (it != where.end()) {
            const size_t start = it->second;
            Polygon sub(stack.begin() + long(start), stack.end());
            for (size_t i = start + 1; i < stack.size(); ++i)
                where.erase(std::make_pair(stack[i].x(), stack[i].y()));
            stack.resize(start + 1);
            if (sub.size() >= 3)
                out.push_back(std::move(sub));
            continue;
        }
        where[key] = stack.size();
        stack.push_back(v);
    }
    if (stack.size() >= 3)
        out.push_back(std::move(stack));
    return out;
}

} // namespace

double signedArea(const Polygon& p)
{
    double a = 0;
    const size_t n = p.size();
    for (size_t i = 0; i < n; ++i) {
        const QPointF& u = p[i];
        const QPointF& v = p[(i + 1) % n];
        a += u.x() * v.y() - v.x() * u.y();
    }
    return a * 0.5;
}

bool isSimple(const Polygon& p)
{
    const size_t n = p.size();
    if (n < 3)
        return false;
    for (size_t i = 0; i < n; ++i)
        for (size_t j = i + 1; j < n; ++j)
            if (p[i] == p[j])
                return false;
    for (size_t i = 0; i < n; ++i) {
        const QPointF& a = p[i];
        const QPointF& b = p[(i + 1) % n];
        for (size_t j = i + 1; j < n; ++j) {
            if (j == i + 1 || (i == 0 && j == n - 1))
                continue; // neighbours share a vertex
            if (segmentsIntersect(a, b, p[j], p[(j + 1) % n]))
                return false;
        }
    }
    return true;
}

bool isConvex(const Polygon& p)
{
    const size_t n = p.size();
    if (n < 3)
        return false;
    int sign = 0;
    for (size_t i = 0; i < n; ++i) {
        const double c = cross(p[i], p[(i + 1) % n], p[(i + 2) % n]);
        if (std::abs(c) < 1e-12)
            continue;
        const int s = c > 0 ? 1 : -1;
        if (sign == 0)
            sign = s;
        else if (s != sign)
            return false;
    }
    return sign != 0;
}

Polygon removeCollinear(const Polygon& p, double epsilon)
{
    Polygon out = p;
    bool changed = true;
    while (changed && out.size() >= 3) {
        changed = false;
        for (size_t i = 0; i < out.size() && out.size() >= 3; ++i) {
            const size_t n = out.size();
            const QPointF& prev = out[(i + n - 1) % n];
            const QPointF& cur = out[i];
            const QPointF& next = out[(i + 1) % n];
            const double len = std::hypot(next.x() - prev.x(), next.y() - prev.y());
            if (cur == prev || std::abs(cross(prev, cur, next)) <= epsilon * std::max(1.0, len)) {
                out.erase(out.begin() + long(i));
                changed = true;
                --i;
            }
        }
    }
    return out;
}

Polygon simplifyClosed(const Polygon& p, double tolerance)
{
    const size_t n = p.size();
    if (n < 4 || tolerance <= 0)
        return p;
    // Anchor at the lowest-leftmost vertex and at the vertex farthest from it.
    size_t a = 0;
    for (size_t i = 1; i < n; ++i)
        if (p[i].x() < p[a].x() || (p[i].x() == p[a].x() && p[i].y() < p[a].y()))
            a = i;
    Polygon r(n);
    for (size_t i = 0; i < n; ++i)
        r[i] = p[(a + i) % n];
    size_t far = 0;
    double best = -1;
    for (size_t i = 1; i < n; ++i) {
        const double d = std::hypot(r[i].x() - r[0].x(), r[i].y() - r[0].y());
        if (d > best) {
            best = d;
            far = i;
        }
    }
    Polygon closed = r;
    closed.push_back(r[0]);
    std::vector<bool> keep(closed.size(), false);
    keep[0] = keep[far] = keep[closed.size() - 1] = true;
    douglasPeucker(closed, 0, far, tolerance, keep);
    douglasPeucker(closed, far, closed.size() - 1, tolerance, keep);
    Polygon out;
    for (size_t i = 0; i + 1 < closed.size(); ++i)
        if (keep[i])
            out.push_back(closed[i]);
    return out;
}

std::vector<Polygon> traceAlphaOutlines(const QImage& source, float threshold)
{
    std::vector<Polygon> result;
    if (source.isNull())
        return result;
    const QImage image =
        source.format() == QImage::Format_ARGB32_Premultiplied || source.format() == QImage::Format_ARGB32
        ? source
        : source.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const int W = image.width(), H = image.height();
    const int limit = int(std::clamp(threshold, 0.0f, 1.0f) * 255.0f);
    std::vector<uint8_t> mask(size_t(W) * size_t(H));
    for (int y = 0; y < H; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < W; ++x)
            mask[size_t(y) * size_t(W) + size_t(x)] = qAlpha(line[x]) > limit ? 1 : 0;
    }
    auto solid = [&](int x, int y) {
        return x >= 0 && y >= 0 && x < W && y < H && mask[size_t(y) * size_t(W) + size_t(x)];
    };

    // Directed pixel edges with the solid side on the right (x right, y down).
    struct Edge {
        int fx, fy, tx, ty, dx, dy;
        bool used;
    };
    std::vector<Edge> edges;
    std::unordered_map<int64_t, std::vector<int>> outgoing;
    auto cornerKey = [W](int x, int y) { return int64_t(y) * int64_t(W + 1) + x; };
    auto addEdge = [&](int fx, int fy, int tx, int ty) {
        outgoing[cornerKey(fx, fy)].push_back(int(edges.size()));
        edges.push_back({fx, fy, tx, ty, tx - fx, ty - fy, false});
    };
    for (int y = 0; y < H; ++y) {
        for (int x = 0; x < W; ++x) {
            if (!solid(x, y))
                continue;
            if (!solid(x, y - 1))
                addEdge(x, y, x + 1, y);
            if (!solid(x + 1, y))
                addEdge(x + 1, y, x + 1, y + 1);
            if (!solid(x, y + 1))
                addEdge(x + 1, y + 1, x, y + 1);
            if (!solid(x - 1, y))
                addEdge(x, y + 1, x, y);
        }
    }

    for (size_t start = 0; start < edges.size(); ++start) {
        if (edges[start].used)
            continue;
        Polygon loop;
        int e = int(start);
        while (!edges[size_t(e)].used) {
            Edge& edge = edges[size_t(e)];
            edge.used = true;
            loop.emplace_back(edge.fx, edge.fy);
            const auto& next = outgoing[cornerKey(edge.tx, edge.ty)];
            int chosen = -1;
            if (next.size() == 1) {
                chosen = next[0];
            } else {
                // A saddle: turn right, keeping diagonal pixels apart.
                const int rx = -edge.dy, ry = edge.dx;
                for (int candidate : next) {
                    const Edge& c = edges[size_t(candidate)];
                    if (c.dx == rx && c.dy == ry)
                        chosen = candidate;
                }
                if (chosen < 0)
                    for (int candidate : next)
                        if (!edges[size_t(candidate)].used)
                            chosen = candidate;
            }
            if (chosen < 0)
                break;
            e = chosen;
        }
        for (Polygon& piece : splitAtRepeatedVertices(loop)) {
            piece = removeCollinear(piece, 1e-9);
            if (piece.size() >= 3 && signedArea(piece) > 0) // holes run the other way
                result.push_back(std::move(piece));
        }
    }
    return result;
}

std::vector<Polygon> convexDecomposition(const Polygon& input, int maxVertices)
{
    std::vector<Polygon> out;
    Polygon poly = removeCollinear(input, 1e-9);
    if (poly.size() < 3)
        return out;
    if (signedArea(poly) < 0)
        std::reverse(poly.begin(), poly.end());
    maxVertices = std::max(3, maxVertices);
    if (isConvex(poly) && int(poly.size()) <= maxVertices) {
        out.push_back(poly);
        return out;
    }

    // Ear clipping on indices.
    const size_t n = poly.size();
    std::vector<size_t> idx(n);
    for (size_t i = 0; i < n; ++i)
        idx[i] = i;
    std::vector<std::vector<size_t>> pieces;
    auto inside = [&](const QPointF& p, const QPointF& a, const QPointF& b, const QPointF& c) {
        return cross(a, b, p) >= 0 && cross(b, c, p) >= 0 && cross(c, a, p) >= 0;
    };
    size_t cursor = 0; // resume after the last ear: keeps the clipping near O(n^2)
    while (idx.size() > 3) {
        const size_t m = idx.size();
        bool clipped = false;
        for (size_t t = 0; t < m; ++t) {
            const size_t i = (cursor + t) % m;
            const size_t ip = idx[(i + m - 1) % m], ic = idx[i], in = idx[(i + 1) % m];
            const QPointF &a = poly[ip], &b = poly[ic], &c = poly[in];
            if (cross(a, b, c) <= 1e-12)
                continue;
            bool ear = true;
            for (size_t j = 0; j < m && ear; ++j) {
                const size_t k = idx[j];
                if (k == ip || k == ic || k == in)
                    continue;
                const QPointF& q = poly[k];
                if (q == a || q == b || q == c)
                    continue;
                if (inside(q, a, b, c))
                    ear = false;
            }
            if (!ear)
                continue;
            pieces.push_back({ip, ic, in});
            idx.erase(idx.begin() + long(i));
            cursor = i == 0 ? 0 : i - 1;
            clipped = true;
            break;
        }
        if (!clipped) {
            // Numerically degenerate rest: drop its flattest vertex.
            size_t flattest = 0;
            double least = std::numeric_limits<double>::max();
            for (size_t i = 0; i < m; ++i) {
                const double c = std::abs(cross(poly[idx[(i + m - 1) % m]], poly[idx[i]], poly[idx[(i + 1) % m]]));
                if (c < least) {
                    least = c;
                    flattest = i;
                }
            }
            idx.erase(idx.begin() + long(flattest));
        }
    }
    if (idx.size() == 3 && cross(poly[idx[0]], poly[idx[1]], poly[idx[2]]) > 1e-12)
        pieces.push_back(idx);

    // Merge neighbours across shared diagonals while the result stays convex.
    auto toPolygon = [&](const std::vector<size_t>& piece) {
        Polygon p;
        for (size_t k : piece)
            p.push_back(poly[k]);
        return p;
    };
    bool merged = true;
    while (merged) {
        merged = false;
        for (size_t a = 0; a < pieces.size() && !merged; ++a) {
            for (size_t b = a + 1; b < pieces.size() && !merged; ++b) {
                const auto& pa = pieces[a];
                const auto& pb = pieces[b];
                for (size_t i = 0; i < pa.size() && !merged; ++i) {
                    const size_t u = pa[i], v = pa[(i + 1) % pa.size()];
                    for (size_t j = 0; j < pb.size(); ++j) {
                        if (pb[j] != v || pb[(j + 1) % pb.size()] != u)
                            continue;
                        // pa: ... u v ...; pb: ... v u ... -> pa from v round to u, then pb after u up to before v.
                        std::vector<size_t> joined;
                        for (size_t k = 0; k < pa.size(); ++k)
                            joined.push_back(pa[(i + 1 + k) % pa.size()]); // v ... u
                        for (size_t k = 2; k < pb.size(); ++k)
                            joined.push_back(pb[(j + k) % pb.size()]); // after u, before v
                        Polygon candidate = toPolygon(joined);
                        Polygon reduced = removeCollinear(candidate, 1e-9);
                        if (int(reduced.size()) <= maxVertices && isConvex(reduced)) {
                            // Keep only the indices of the remaining vertices.
                            std::vector<size_t> kept;
                            for (size_t k : joined)
                                if (std::find(reduced.begin(), reduced.end(), poly[k]) != reduced.end())
                                    kept.push_back(k);
                            pieces[a] = kept;
                            pieces.erase(pieces.begin() + long(b));
                            merged = true;
                        }
                        break;
                    }
                }
            }
        }
    }
    for (const auto& piece : pieces) {
        Polygon p = removeCollinear(toPolygon(piece), 1e-9);
        if (p.size() >= 3)
            out.push_back(std::move(p));
    }
    return out;
}

std::vector<Polygon> alphaOutlinePieces(const QImage& image, float threshold, double tolerance, double minArea)
{
    std::vector<Polygon> pieces;
    for (const Polygon& outline : traceAlphaOutlines(image, threshold)) {
        if (std::abs(signedArea(outline)) < minArea)
            continue;
        Polygon simple = outline;
        for (double tol = tolerance; tol >= 0.1; tol *= 0.5) {
            Polygon s = removeCollinear(simplifyClosed(outline, tol), 1e-9);
            if (s.size() >= 3 && isSimple(s)) {
                simple = std::move(s);
                break;
            }
        }
        for (Polygon& piece : convexDecomposition(simple, 8))
            pieces.push_back(std::move(piece));
    }
    return pieces;
}

} // namespace tessaro::kit::geometry
