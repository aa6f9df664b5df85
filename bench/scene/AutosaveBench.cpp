// Benchmarks of the recovery copies on the big level: the part of a copy that
// runs on the main thread (the shown level written back from its scene, the
// levels taken), and the part that runs on the writer (the files encoded and
// replaced), for the big level and for the synthetic 20-level project.
#include "BigLevel.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/Autosave.h>
#include <stagewright/state/RecoveryStore.h>

#include <bench/common/BenchmarkMain.h>
#include <bench/common/SyntheticProject.h>

#include <tessaro/model/Diagnostics.h>

#include <benchmark/benchmark.h>

#include <QFileInfo>

using namespace stagewright;

namespace {

tessaro::bench::BigLevel& bigLevel()
{
    static tessaro::bench::BigLevel instance;
    return instance;
}

void BM_SnapshotOnMainThread(benchmark::State& state)
{
    tessaro::bench::BigLevel& env = bigLevel();
    auto scene = env.loadedScene();
    env.tab->setCurrentScene(scene);
    env.tab->setLevelSelected(env.levelId);
    for (auto _ : state) {
        RecoverySnapshot snapshot = recoverySnapshot(*env.tab);
        benchmark::DoNotOptimize(snapshot.levels.data());
    }
    env.tab->setCurrentScene(nullptr);
}
BENCHMARK(BM_SnapshotOnMainThread)->Unit(benchmark::kMillisecond);

void writeCopies(benchmark::State& state, RecoverySnapshot snapshot)
{
    RecoveryStore store(bigLevel().scratch.path() + QStringLiteral("/recovery"));
    const tessaro::Uuid tab = tessaro::Uuid::create();
    for (auto _ : state)
        if (!store.write(tab, snapshot))
            state.SkipWithError("the copy was not written");
    state.counters["MB"] = double(QFileInfo(store.entry(tab)->levelsFile).size()) / 1e6;
    store.closeCleanly();
}

void BM_WriteBigLevelOnWriter(benchmark::State& state)
{
    tessaro::bench::BigLevel& env = bigLevel();
    RecoverySnapshot snapshot;
    snapshot.name = QStringLiteral("Big");
    snapshot.levels = env.tab->levelConfig();
    writeCopies(state, std::move(snapshot));
}
BENCHMARK(BM_WriteBigLevelOnWriter)->Unit(benchmark::kMillisecond);

void BM_WriteSyntheticProjectOnWriter(benchmark::State& state)
{
    RecoverySnapshot snapshot;
    snapshot.name = QStringLiteral("Synthetic");
    snapshot.levels = tessaro::bench::makeSyntheticProject();
    writeCopies(state, std::move(snapshot));
}
BENCHMARK(BM_WriteSyntheticProjectOnWriter)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    tessaro::setDiagnosticSink([](std::string_view) {});
    return tessaro::bench::runQtBenchmarks(argc, argv);
}
