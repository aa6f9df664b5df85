// Game runtime benchmarks on a level of 2,000 obstacles, 200 enemies and
// 500 coins, played by the example game's own rules over the seed
// workspace: building the level, building it again from its files as a
// watching game does, one frame with and without drawing at 1920x1080, and
// the runtime's cost over a bare Box2D world holding the same bodies.
//   bench-runtime [--benchmark_filter=...]
#include <PlayScene.h>

#include <bench/common/BenchmarkMain.h>
#include <bench/common/SyntheticProject.h>
#include <tessaro/kit/AudioNode.h>
#include <tessaro/kit/Renderer.h>
#include <tessaro/model/LevelFiles.h>
#include <tessaro/runtime/GameResources.h>

#include <benchmark/benchmark.h>
#include <box2d/box2d.h>

#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>
#include <ctime>

using namespace tessaro;

namespace {

/// The benchmark's level: the synthetic project's shape, with the seed's
/// own element names, enemies all, and a player at the start.
const Level& benchLevel()
{
    static const Level level = [] {
        bench::SyntheticShape shape;
        shape.levels = 1;
        shape.obstaclesPerLevel = 2000;
        shape.charactersPerLevel = 200;
        shape.coinsPerLevel = 500;
        shape.groundSectionsPerLevel = 80;
        shape.backgroundsPerLevel = 3;
        shape.obstacleNames = {"Crate", "Spikes", "Barrel", "Platform"};
        shape.characterNames = {"Slime"};
        shape.groundImages = {"ground_grass", "ground_dirt"};
        shape.backgroundImages = {"sky", "hills_far", "hills_near"};
        Level made = bench::makeSyntheticProject(shape).front();
        CharacterLevelItem hero;
        hero.elementName = "Hero";
        hero.name = "Hero";
        hero.charClassType = "friendly";
        hero.zPosition = 20;
        DeviceProperties start;
        start.deviceName = "defaultDevice";
        start.position = "{-300,0}";
        hero.properties.emplace().devices = std::vector<DeviceProperties>{start};
        made.characters->insert(made.characters->begin(), hero);
        return made;
    }();
    return level;
}

void openSeedWorkspace()
{
    static const bool opened = [] {
        kit::AudioNode::setAudioEnabled(false);
        return loadWorkspace(QStringLiteral(TESSARO_SEED_WORKSPACE));
    }();
    if (!opened)
        std::abort();
}

/// Milliseconds of processor time of this thread, or of the whole program
/// (Qt may draw with helper threads): other programs on a busy machine do
/// not inflate it, as they do wall-clock time.
double cpuMilliseconds(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}
double threadMilliseconds()
{
    return cpuMilliseconds(CLOCK_THREAD_CPUTIME_ID);
}
double processMilliseconds()
{
    return cpuMilliseconds(CLOCK_PROCESS_CPUTIME_ID);
}
double wallMilliseconds()
{
    return cpuMilliseconds(CLOCK_MONOTONIC);
}

/// The game's scene, timing the physics part of each frame.
class TimedScene : public play::PlayScene {
public:
    using play::PlayScene::PlayScene;
    double physicsMilliseconds = 0;
    void didEvaluateActions() override { m_physicsStart = threadMilliseconds(); }
    void didSimulatePhysics() override { physicsMilliseconds = threadMilliseconds() - m_physicsStart; }

private:
    double m_physicsStart = 0;
};

/// A level built and run for a second, so that the first frames' settling
/// (and texture loading) is not measured; drawn by `renderer` into
/// `picture` when one is given, as a player would see it.
std::shared_ptr<TimedScene> runningLevel(double& time, bool autopilot, kit::Renderer* renderer = nullptr,
                                         QImage* picture = nullptr)
{
    openSeedWorkspace();
    auto scene = std::make_shared<TimedScene>(benchLevel());
    scene->rules().setAutopilot(autopilot);
    scene->didMoveToView(nullptr);
    for (time = 0; time < 1.0; time += 1.0 / 60) {
        scene->processFrame(time);
        if (renderer && picture) {
            QPainter painter(picture);
            renderer->render(*scene, painter, QRectF(QPointF(), picture->size()));
        }
    }
    return scene;
}

void reportFrameTimes(benchmark::State& state, std::vector<double> ms)
{
    std::sort(ms.begin(), ms.end());
    if (ms.empty())
        return;
    state.counters["min_ms"] = ms.front();
    state.counters["median_ms"] = ms[ms.size() / 2];
    state.counters["p99_ms"] = ms[std::min(ms.size() - 1, ms.size() * 99 / 100)];
    state.counters["max_ms"] = ms.back();
}

void BM_CreateLevel(benchmark::State& state)
{
    openSeedWorkspace();
    std::map<std::string, int> made;
    std::vector<double> ms;
    for (auto _ : state) {
        const double start = threadMilliseconds();
        auto scene = std::make_shared<play::PlayScene>(benchLevel());
        ms.push_back(threadMilliseconds() - start);
        state.PauseTiming();
        made = scene->rules().stats().made;
        scene.reset();
        state.ResumeTiming();
    }
    for (const auto& [kind, count] : made)
        state.counters[kind] = count;
    reportFrameTimes(state, ms);
}
BENCHMARK(BM_CreateLevel)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

/// What a watching game does when its files change: read the catalogues and
/// the project again and build the level anew, the player put back.
void BM_ReloadLevel(benchmark::State& state)
{
    openSeedWorkspace();
    QTemporaryDir folder;
    const std::string project = folder.filePath(QStringLiteral("Big.plist")).toStdString();
    if (!saveLevels({benchLevel()}, project))
        std::abort();
    std::vector<double> ms;
    for (auto _ : state) {
        const double start = threadMilliseconds();
        if (!loadWorkspace(QStringLiteral(TESSARO_SEED_WORKSPACE)))
            std::abort();
        const LevelsReadResult read = readLevels(project);
        auto scene = std::make_shared<play::PlayScene>(read.levels.front());
        scene->rules().placePlayer({400, 0});
        ms.push_back(threadMilliseconds() - start);
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
    reportFrameTimes(state, ms);
}
BENCHMARK(BM_ReloadLevel)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

/// One frame as a player sees it: rules, actions, enemies, physics, and the
/// picture drawn at 1920x1080, after the first second.
void BM_FrameDrawn(benchmark::State& state)
{
    double time = 0;
    kit::Renderer renderer;
    QImage picture(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    auto scene = runningLevel(time, true, &renderer, &picture);
    std::vector<double> ms, wall;
    for (auto _ : state) {
        const double start = processMilliseconds(), startWall = wallMilliseconds();
        scene->processFrame(time += 1.0 / 60);
        QPainter painter(&picture);
        renderer.render(*scene, painter, QRectF(0, 0, 1920, 1080));
        painter.end();
        ms.push_back(processMilliseconds() - start);
        wall.push_back(wallMilliseconds() - startWall);
    }
    reportFrameTimes(state, ms);
    std::sort(wall.begin(), wall.end());
    state.counters["wall_median_ms"] = wall[wall.size() / 2];
    state.counters["bodies"] = double(scene->physicsWorld().bodies().size());
    state.counters["drawn"] = renderer.lastNodeCount();
}
BENCHMARK(BM_FrameDrawn)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(600);

/// The scene's collision rule in a bare world: a dynamic body is pushed by
/// the bodies whose category its collision mask holds. Pairs that only
/// report contacts are no physics, so the bare world does not make them.
class MaskFilter : public b2ContactFilter {
public:
    struct Masks {
        std::uint32_t category = 0;
        std::uint32_t collision = 0;
    };
    std::vector<Masks> masks;

    bool ShouldCollide(b2Fixture* a, b2Fixture* b) override
    {
        const Masks& ma = of(a);
        const Masks& mb = of(b);
        return (a->GetBody()->GetType() == b2_dynamicBody && (ma.collision & mb.category)) ||
            (b->GetBody()->GetType() == b2_dynamicBody && (mb.collision & ma.category));
    }

private:
    const Masks& of(b2Fixture* f) const { return masks[f->GetBody()->GetUserData().pointer]; }
};

/// A copy of every body of the kit's world in a world of its own: same
/// type, place, shapes, masks and material.
std::unique_ptr<b2World> bareCopy(b2World& source, MaskFilter& filter)
{
    auto world = std::make_unique<b2World>(source.GetGravity());
    world->SetContactFilter(&filter);
    filter.masks.assign(1, {});
    for (b2Body* body = source.GetBodyList(); body; body = body->GetNext()) {
        // The kit keeps its body description in the engine body's user data.
        const auto* described = reinterpret_cast<const kit::PhysicsBody*>(body->GetUserData().pointer);
        filter.masks.push_back(described
                                   ? MaskFilter::Masks{described->categoryBitMask(), described->collisionBitMask()}
                                   : MaskFilter::Masks{});
        b2BodyDef def;
        def.type = body->GetType();
        def.position = body->GetPosition();
        def.angle = body->GetAngle();
        def.linearVelocity = body->GetLinearVelocity();
        def.angularVelocity = body->GetAngularVelocity();
        def.linearDamping = body->GetLinearDamping();
        def.angularDamping = body->GetAngularDamping();
        def.fixedRotation = body->IsFixedRotation();
        def.bullet = body->IsBullet();
        def.awake = body->IsAwake();
        def.gravityScale = body->GetGravityScale();
        def.userData.pointer = filter.masks.size() - 1;
        b2Body* copy = world->CreateBody(&def);
        for (b2Fixture* fixture = body->GetFixtureList(); fixture; fixture = fixture->GetNext()) {
            b2FixtureDef fd;
            fd.shape = fixture->GetShape();
            fd.density = fixture->GetDensity();
            fd.friction = fixture->GetFriction();
            fd.restitution = fixture->GetRestitution();
            fd.isSensor = fixture->IsSensor();
            fd.filter = fixture->GetFilterData();
            copy->CreateFixture(&fd);
        }
    }
    return world;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

/// The physics of a frame (bodies following their nodes, the step, nodes
/// following their bodies, contacts to the game) against a bare step of
/// the same bodies, interleaved so that both see the same machine. The
/// whole frame without drawing is reported beside it.
void BM_RuntimeOverBareBox2D(benchmark::State& state)
{
    // Nobody steers the player here: the bare world cannot be steered, and
    // both worlds must simulate the same thing.
    double time = 0;
    auto scene = runningLevel(time, false);
    MaskFilter filter;
    auto bare = bareCopy(scene->physicsWorld().engine(), filter);
    std::vector<double> frame, physics, box2d;
    for (auto _ : state) {
        double start = threadMilliseconds();
        scene->processFrame(time += 1.0 / 60);
        frame.push_back(threadMilliseconds() - start);
        physics.push_back(scene->physicsMilliseconds);
        start = threadMilliseconds();
        bare->Step(1.0f / 60, 8, 3);
        box2d.push_back(threadMilliseconds() - start);
    }
    const double p = median(physics), b = median(box2d);
    state.counters["frame_undrawn_median_ms"] = median(frame);
    state.counters["physics_median_ms"] = p;
    state.counters["box2d_median_ms"] = b;
    state.counters["overhead_pct"] = (p - b) / b * 100;
    state.counters["bodies"] = double(bare->GetBodyCount());
    state.counters["awake"] = [&] {
        int awake = 0;
        for (b2Body* body = bare->GetBodyList(); body; body = body->GetNext())
            awake += body->IsAwake() && body->GetType() == b2_dynamicBody;
        return double(awake);
    }();
}
BENCHMARK(BM_RuntimeOverBareBox2D)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(600);

} // namespace

int main(int argc, char** argv)
{
    return tessaro::bench::runQtBenchmarks(argc, argv);
}
