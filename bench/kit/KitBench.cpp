// Scene kit benchmarks: drawing many sprites, hit testing a large tree, and
// the cost of the kit's physics over a bare Box2D world stepping the same
// bodies.
//   bench-kit [--benchmark_filter=...]
#include <tessaro/kit/Renderer.h>
#include <tessaro/kit/Scene.h>
#include <tessaro/kit/SpriteNode.h>

#include <bench/common/BenchmarkMain.h>

#include <benchmark/benchmark.h>
#include <box2d/box2d.h>

#include <QGuiApplication>
#include <QPainter>
#include <QRandomGenerator>

#include <cmath>

using namespace tessaro::kit;

namespace {

std::vector<TexturePtr> ballTextures(int count, int size)
{
    std::vector<TexturePtr> list;
    for (int i = 0; i < count; ++i) {
        QImage img(size, size, QImage::Format_ARGB32_Premultiplied);
        img.fill(Qt::transparent);
        QPainter p(&img);
        p.setRenderHint(QPainter::Antialiasing);
        p.setBrush(QColor::fromHsv(i * 360 / count, 200, 230));
        p.setPen(Qt::NoPen);
        p.drawEllipse(QRectF(1, 1, size - 2, size - 2));
        p.end();
        list.push_back(Texture::fromImage(img));
    }
    return list;
}

// 5,000 sprites over a 1920x1080 scene in ten layers; `turned` of every
// hundred are rotated and scaled, the rest upright.
std::shared_ptr<Scene> spriteScene(int sprites, int turnedPerHundred)
{
    auto scene = Scene::sceneWithSize({1920, 1080});
    scene->setScaleMode(SceneScaleMode::AspectFit);
    QRandomGenerator rng(42);
    const auto textures = ballTextures(8, 32);
    std::vector<NodePtr> layers;
    for (int i = 0; i < 10; ++i) {
        auto layer = Node::create();
        layer->setZPosition(i % 3);
        scene->addChild(layer);
        layers.push_back(layer);
    }
    for (int i = 0; i < sprites; ++i) {
        auto sprite = SpriteNode::create(textures[size_t(i % 8)]);
        sprite->setPosition(rng.bounded(1920.0) - 960, rng.bounded(1080.0) - 540);
        sprite->setZPosition(rng.bounded(5));
        if (int(rng.bounded(100)) < turnedPerHundred) {
            sprite->setZRotation(rng.bounded(6.28));
            sprite->setScale(0.75 + rng.bounded(0.5));
        }
        layers[size_t(i % 10)]->addChild(sprite);
    }
    return scene;
}

void BM_RenderSprites(benchmark::State& state)
{
    auto scene = spriteScene(int(state.range(0)), int(state.range(1)));
    QImage target(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    Renderer renderer;
    for (auto _ : state) {
        QPainter painter(&target);
        renderer.render(*scene, painter, QRectF(0, 0, 1920, 1080));
        painter.end();
        benchmark::DoNotOptimize(target.constBits());
    }
    state.counters["nodes"] = renderer.lastNodeCount();
}
BENCHMARK(BM_RenderSprites)->Args({5000, 0})->Args({5000, 10})->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_HitTest(benchmark::State& state)
{
    auto scene = Scene::sceneWithSize({4000, 4000});
    QRandomGenerator rng(7);
    const int total = int(state.range(0));
    for (int l = 0; l < 100; ++l) {
        auto layer = Node::create();
        layer->setZPosition(1);
        scene->addChild(layer);
        for (int i = 0; i < total / 100 - 1; ++i) {
            auto sprite = SpriteNode::create(Qt::red, {40 + rng.bounded(60.0), 40 + rng.bounded(60.0)});
            sprite->setPosition(rng.bounded(4000.0) - 2000, rng.bounded(4000.0) - 2000);
            sprite->setZPosition(rng.bounded(100));
            sprite->setUserInteractionEnabled(i % 7 == 0);
            layer->addChild(sprite);
        }
    }
    std::vector<QPointF> points;
    for (int i = 0; i < 256; ++i)
        points.emplace_back(rng.bounded(4000.0) - 2000, rng.bounded(4000.0) - 2000);
    size_t i = 0, hits = 0;
    for (auto _ : state) {
        const auto found = scene->nodesAtPoint(points[i++ % points.size()]);
        hits += found.size();
        benchmark::DoNotOptimize(found.data());
    }
    state.counters["nodes"] = double(scene->nodesWithName("//*").size());
    state.counters["hits_per_query"] = double(hits) / double(state.iterations());
}
BENCHMARK(BM_HitTest)->Arg(10000)->Unit(benchmark::kMicrosecond);

// --- physics: the same world, bare and through the kit ---------------------------

constexpr int kSteps = 120; // two seconds of simulation per iteration
constexpr float kPpm = float(kPointsPerMeter);

// Bodies in a grid above a floor, alternately boxes and balls, in points.
struct Layout {
    QPointF position;
    bool box;
};

std::vector<Layout> layout(int count)
{
    std::vector<Layout> out;
    const int perRow = 50;
    for (int i = 0; i < count; ++i)
        out.push_back(
            {QPointF(-1000 + (i % perRow) * 40 + (i / perRow % 2) * 10, -300 + (i / perRow) * 40), i % 2 == 0});
    return out;
}

void BM_PhysicsBareBox2D(benchmark::State& state)
{
    const auto bodies = layout(int(state.range(0)));
    const bool kinematicFloor = state.range(1) != 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto world = std::make_unique<b2World>(b2Vec2(0, -9.8f));
        b2BodyDef floorDef;
        floorDef.type = kinematicFloor ? b2_kinematicBody : b2_staticBody;
        floorDef.position.Set(0, -500 / kPpm);
        b2Body* floor = world->CreateBody(&floorDef);
        b2PolygonShape floorShape;
        floorShape.SetAsBox(1200 / kPpm, 20 / kPpm);
        b2FixtureDef floorFixture;
        floorFixture.shape = &floorShape;
        floorFixture.friction = 0.2f;
        floorFixture.restitution = 0.2f;
        floor->CreateFixture(&floorFixture);
        for (const Layout& l : bodies) {
            b2BodyDef def;
            def.type = b2_dynamicBody;
            def.position.Set(float(l.position.x()) / kPpm, float(l.position.y()) / kPpm);
            def.linearDamping = 0.1f;
            def.angularDamping = 0.1f;
            b2Body* b = world->CreateBody(&def);
            b2FixtureDef fd;
            b2PolygonShape box;
            b2CircleShape ball;
            if (l.box) {
                box.SetAsBox(14 / kPpm, 14 / kPpm);
                fd.shape = &box;
            } else {
                ball.m_radius = 14 / kPpm;
                fd.shape = &ball;
            }
            fd.density = 1;
            fd.friction = 0.2f;
            fd.restitution = 0.2f;
            b->CreateFixture(&fd);
        }
        state.ResumeTiming();
        for (int i = 0; i < kSteps; ++i)
            world->Step(1.0f / 60, 8, 3);
        state.PauseTiming();
        world.reset();
        state.ResumeTiming();
    }
    state.counters["steps"] = kSteps;
}
BENCHMARK(BM_PhysicsBareBox2D)->Args({2000, 0})->Args({2000, 1})->Unit(benchmark::kMillisecond)->UseRealTime();

struct Contacts : PhysicsContactDelegate {
    int begins = 0;
    void didBeginContact(const PhysicsContact&) override { ++begins; }
};

void BM_PhysicsKit(benchmark::State& state)
{
    const auto bodies = layout(int(state.range(0)));
    const bool reportContacts = state.range(1) != 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto scene = Scene::sceneWithSize({2400, 1200});
        Contacts contacts;
        scene->physicsWorld().setContactDelegate(&contacts);
        auto floor = SpriteNode::create(Qt::gray, {2400, 40});
        floor->setPosition(0, -500);
        floor->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({2400, 40}));
        floor->physicsBody()->setDynamic(false);
        floor->physicsBody()->setCategoryBitMask(0x2);
        scene->addChild(floor);
        for (const Layout& l : bodies) {
            auto node = SpriteNode::create(Qt::red, {28, 28});
            node->setPosition(l.position);
            node->setPhysicsBody(l.box ? PhysicsBody::bodyWithRectangleOfSize({28, 28})
                                       : PhysicsBody::bodyWithCircleOfRadius(14));
            node->physicsBody()->setCategoryBitMask(0x1);
            node->physicsBody()->setContactTestBitMask(reportContacts ? 0x2 : 0);
            scene->addChild(node);
        }
        scene->processFrame(0);
        state.ResumeTiming();
        for (int i = 1; i <= kSteps; ++i)
            scene->processFrame(i / 60.0);
        state.PauseTiming();
        benchmark::DoNotOptimize(contacts.begins);
        scene.reset();
        state.ResumeTiming();
    }
    state.counters["steps"] = kSteps;
}
BENCHMARK(BM_PhysicsKit)->Args({2000, 0})->Args({2000, 1})->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    return tessaro::bench::runQtBenchmarks(argc, argv);
}
