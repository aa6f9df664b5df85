// Benchmarks of the physics sheet:
// - one frame of dragging a vertex of a polygon of 64 vertices on a picture of
//   2048 by 2048: the session moves the vertex, the canvas takes the change
//   and draws the part of the picture a sheet shows (must stay under 8 ms);
// - the conversions of 1,000 shapes to the stored record and back (each must
//   stay under 5 ms).
#include <stagewright/editors/PhysicsCanvas.h>
#include <stagewright/editors/PhysicsSession.h>

#include <tessaro/kit/Renderer.h>
#include <tessaro/model/ConfigFiles.h>

#include <bench/common/BenchmarkMain.h>

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <cmath>

using namespace stagewright;
using tessaro::PointValue;

namespace {

constexpr int pictureSide = 2048;
/// The canvas a sheet of 1100 by 600 shows beside its side column.
const QSize shownCanvas(660, 512);

std::vector<PhysicsElement> shapes(int count, int vertices)
{
    std::vector<PhysicsElement> list;
    for (int i = 0; i < count; ++i) {
        const auto type = PhysicsType(i % 4);
        PhysicsElement element = PhysicsElement::make(type, {double(i), double(-i)});
        element.framesAffected = i % 3 == 0 ? "0,1" : "";
        element.size = {double(10 + i % 50), double(20 + i % 30)};
        element.center = {double(i % 100), double(i % 70)};
        element.radius = 5 + i % 40;
        element.startPoint = {-9999, double(i)};
        element.endPoint = {9999, double(-i)};
        for (int v = 1; type == PhysicsType::polygon && v < vertices; ++v) {
            const double angle = 2 * M_PI * v / vertices;
            element.points.push_back({tessaro::Uuid::create(), {600 * std::cos(angle), 600 * std::sin(angle)}});
        }
        list.push_back(std::move(element));
    }
    return list;
}

void BM_PolygonHandleDragFrame(benchmark::State& state)
{
    QTemporaryDir folder;
    QImage picture(pictureSide, pictureSide, QImage::Format_ARGB32);
    picture.fill(QColor(90, 160, 220));
    {
        QPainter painter(&picture);
        painter.setBrush(QColor(240, 200, 60));
        painter.drawEllipse(QRect(200, 200, 1600, 1600));
    }
    const QString path = folder.filePath(QStringLiteral("big.png"));
    picture.save(path);

    // One pixel per point: the picture is 2048 points wide on the canvas.
    tessaro::globalAppConfig().base.defaultImageScale = tessaro::imageScaling::x1;
    // A sheet that takes dropped pictures, showing the big one.
    ImagePhysicsSession session(PhysicsEditMode::base, nullptr, nullptr);
    session.dropImageFiles({path});
    PhysicsElement polygon = PhysicsElement::make(PhysicsType::polygon, {600, 0});
    for (int v = 1; v < 64; ++v) {
        const double angle = 2 * M_PI * v / 64;
        polygon.points.push_back({tessaro::Uuid::create(), {600 * std::cos(angle), 600 * std::sin(angle)}});
    }
    polygon.points.push_back({tessaro::Uuid::create(), polygon.points.front().point});
    session.restoreElements({polygon});
    session.selectRow(polygon.id);

    PhysicsCanvasScene scene(session);
    QObject::connect(&session, &ImagePhysicsSession::changed, [&scene] { scene.refresh(); });
    const QSizeF content = scene.contentSize();
    scene.setSize(content);
    tessaro::kit::Renderer renderer;
    QImage shown(shownCanvas, QImage::Format_ARGB32_Premultiplied);

    // Press on vertex 16, then one drag event and one drawn frame per iteration.
    const PointValue start = polygon.points[16].point;
    session.pointerDown(start);
    int step = 0;
    for (auto _ : state) {
        const PointValue p{std::round(start.x + 40 * std::sin(step * 0.1)), std::round(start.y + 3 * (step % 20))};
        ++step;
        session.pointerDragged(p);
        // The scroll area shows the part of the canvas round the pointer.
        const QPointF at = scene.sceneToViewTransform(content).map(scene.scenePoint(p));
        const QPointF corner(at.x() - shownCanvas.width() / 2.0, at.y() - shownCanvas.height() / 2.0);
        QPainter painter(&shown);
        renderer.render(scene, painter, QRectF(-corner, content));
    }
    session.pointerUp(start);
    if (!qEnvironmentVariableIsEmpty("PHYSICS_BENCH_FRAME"))
        shown.save(qEnvironmentVariable("PHYSICS_BENCH_FRAME"));
    state.counters["vertices"] = double(polygon.points.size());
}
BENCHMARK(BM_PolygonHandleDragFrame)->Unit(benchmark::kMillisecond);

void BM_ShapesToRecord1000(benchmark::State& state)
{
    const std::vector<PhysicsElement> list = shapes(1000, 8);
    for (auto _ : state)
        benchmark::DoNotOptimize(buildPhysicsProperty(list));
}
BENCHMARK(BM_ShapesToRecord1000)->Unit(benchmark::kMillisecond);

void BM_RecordToShapes1000(benchmark::State& state)
{
    const std::optional<tessaro::PhysicsProperty> record = buildPhysicsProperty(shapes(1000, 8));
    for (auto _ : state)
        benchmark::DoNotOptimize(loadPhysicsElements(record));
}
BENCHMARK(BM_RecordToShapes1000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return tessaro::bench::runQtBenchmarks(argc, argv);
}
