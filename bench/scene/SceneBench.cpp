// Benchmarks of the canvas: loading a large level into a scene (images
// already read once), writing it back, saving it, changing to another level,
// and drawing the whole level to a PNG. The level: 2,000 obstacles, 200
// characters, 500 coins, 100 ground sections and 4 backgrounds.
#include "BigLevel.h"

#include <stagewright/scene/LevelPicture.h>
#include <stagewright/scene/SceneEditor.h>

#include <bench/common/BenchmarkMain.h>

#include <tessaro/model/PlistCodec.h>

#include <benchmark/benchmark.h>

#include <box2d/box2d.h>

#include <QBuffer>
#include <QElapsedTimer>
#include <QImage>

using namespace stagewright;

namespace {

using Environment = tessaro::bench::BigLevel;

Environment& environment()
{
    static Environment instance;
    return instance;
}

void BM_LoadLevel(benchmark::State& state)
{
    Environment& env = environment();
    env.loadedScene(); // reads every image once
    std::size_t nodes = 0;
    double teardown = 0;
    for (auto _ : state) {
        auto scene = env.loadedScene();
        state.PauseTiming();
        nodes = scene->nodesWithName(QStringLiteral("//*")).size();
        // What a change of level adds: the old scene is cleared and dropped.
        QElapsedTimer clock;
        clock.start();
        scene->clearScene(false);
        scene.reset();
        teardown += clock.nsecsElapsed() / 1e6;
        state.ResumeTiming();
    }
    state.counters["nodes"] = double(nodes);
    state.counters["clearMs"] = teardown / double(state.iterations());
}
BENCHMARK(BM_LoadLevel)->Unit(benchmark::kMillisecond);

void BM_WriteBack(benchmark::State& state)
{
    Environment& env = environment();
    auto scene = env.loadedScene();
    for (auto _ : state)
        scene->writeBack(env.levelId);
    state.counters["obstacles"] = double(env.tab->levelConfig().front().obstacles->size());
}
BENCHMARK(BM_WriteBack)->Unit(benchmark::kMillisecond);

// Saving the shown level: written back from its scene, the project encoded
// to the bytes of its file (the disk left out).
void BM_SaveShownLevel(benchmark::State& state)
{
    Environment& env = environment();
    auto scene = env.loadedScene();
    QElapsedTimer clock;
    double writeBack = 0;
    std::size_t bytes = 0;
    for (auto _ : state) {
        clock.start();
        scene->writeBack(env.levelId);
        writeBack += clock.nsecsElapsed() / 1e6;
        bytes = tessaro::encodeRecordList(env.tab->levelConfig()).size();
    }
    state.counters["writeBackMs"] = writeBack / double(state.iterations());
    state.counters["MB"] = double(bytes) / 1e6;
}
BENCHMARK(BM_SaveShownLevel)->Unit(benchmark::kMillisecond);

// A change of level as the tab makes it: the shown level, which has run a
// frame, is written back and dropped with its nodes; the other one is laid
// out in a new scene. The other level is a copy of the big one.
void BM_SwitchLevel(benchmark::State& state)
{
    Environment& env = environment();
    std::vector<tessaro::Level> levels = env.tab->levelConfig();
    const tessaro::Uuid other = tessaro::Uuid::create();
    levels.push_back(levels.front());
    levels.back().id = other;
    env.tab->setLevelConfig(std::move(levels));
    const tessaro::Uuid ids[] = {env.levelId, other};
    std::size_t shown = 0;
    auto scene = env.loadedScene();
    QElapsedTimer clock;
    double drop = 0;
    for (auto _ : state) {
        state.PauseTiming();
        scene->processFrame(0);
        state.ResumeTiming();
        clock.start();
        scene->writeBack(ids[shown]);
        scene->releaseContent();
        scene.reset();
        drop += clock.nsecsElapsed() / 1e6;
        shown = 1 - shown;
        env.tab->setLevelSelected(ids[shown]);
        scene = SceneEditor::create(env.tab.get(), SceneSetup{});
        scene->loadLevel(ids[shown]);
    }
    state.counters["dropMs"] = drop / double(state.iterations());
    scene.reset();
    levels = env.tab->levelConfig();
    std::erase_if(levels, [&](const tessaro::Level& level) { return level.id == other; });
    env.tab->setLevelConfig(std::move(levels));
    env.tab->setLevelSelected(env.levelId);
}
BENCHMARK(BM_SwitchLevel)->Unit(benchmark::kMillisecond);

void BM_RenderLevel(benchmark::State& state)
{
    Environment& env = environment();
    auto scene = env.loadedScene();
    QImage picture;
    qint64 bytes = 0;
    for (auto _ : state) {
        picture = renderWholeLevel(*scene, 0);
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        bytes = png.size();
    }
    state.counters["width"] = picture.width();
    state.counters["height"] = picture.height();
    state.counters["pngBytes"] = double(bytes);
}
BENCHMARK(BM_RenderLevel)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return tessaro::bench::runQtBenchmarks(argc, argv);
}

// The canvas runs frames while shown: the first one pairs every body of the
// level, the ones after it only follow what moved.
void BM_FirstFrames(benchmark::State& state)
{
    Environment& env = environment();
    double first = 0, next = 0;
    int contacts = 0;
    for (auto _ : state) {
        auto scene = env.loadedScene();
        QElapsedTimer clock;
        clock.start();
        scene->processFrame(0);
        first += clock.nsecsElapsed() / 1e6;
        clock.start();
        scene->processFrame(1.0 / 60);
        next += clock.nsecsElapsed() / 1e6;
        state.PauseTiming();
        contacts = scene->physicsWorld().engine().GetContactCount();
        scene->clearScene(false);
        scene.reset();
        state.ResumeTiming();
    }
    state.counters["firstMs"] = first / double(state.iterations());
    state.counters["nextMs"] = next / double(state.iterations());
    state.counters["contacts"] = contacts;
}
BENCHMARK(BM_FirstFrames)->Unit(benchmark::kMillisecond);
