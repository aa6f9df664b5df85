// Benchmarks of the application state: scanning a large workspace into the
// file lists, and opening a large project end to end.
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>

#include <bench/common/BenchmarkMain.h>
#include <bench/common/SyntheticProject.h>
#include <tests/support/PrivateHome.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>

#include <memory>

using namespace stagewright;

namespace {

/// A private home with a started application state, shared by the benchmarks.
struct Environment {
    QTemporaryDir scratch;
    std::unique_ptr<SceneSettings> settings;
    QString imageWorkspace;
    QString projectPath;
    qint64 projectBytes = 0;

    Environment()
    {
        tessaro::setDiagnosticSink([](std::string_view) {});
        settings = std::make_unique<SceneSettings>(PermissionManager::shared());
        settings->mainWindowAppeared();
    }

    /// A workspace holding `count` tiny PNGs spread over the kinds' folders.
    const QString& workspaceWithImages(int count)
    {
        if (!imageWorkspace.isEmpty())
            return imageWorkspace;
        imageWorkspace = scratch.path() + QStringLiteral("/images/");
        createWorkspace(imageWorkspace, PermissionManager::shared());
        QImage pixel(4, 4, QImage::Format_ARGB32);
        pixel.fill(Qt::green);
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        pixel.save(&buffer, "PNG");
        const auto kinds = tessaro::allCases<tessaro::sceneObjectType>();
        for (int i = 0; i < count; ++i) {
            const auto kind = kinds[std::size_t(i) % (kinds.size() - 1)]; // every kind but none
            QFile file(kindImageFolder(imageWorkspace, kind) +
                       QStringLiteral("image_%1.png").arg(i, 5, 10, QLatin1Char('0')));
            if (file.open(QIODevice::WriteOnly))
                file.write(png);
        }
        return imageWorkspace;
    }

    /// The synthetic project of 20 levels of 500 obstacles, written once.
    const QString& bigProject()
    {
        if (!projectPath.isEmpty())
            return projectPath;
        projectPath = scratch.path() + QStringLiteral("/synthetic.plist");
        tessaro::saveLevels(tessaro::bench::makeSyntheticProject(), projectPath.toStdString());
        projectBytes = QFileInfo(projectPath).size();
        return projectPath;
    }
};

Environment& environment()
{
    static Environment* instance = new Environment;
    return *instance;
}

void BM_LoadFileLists5000Images(benchmark::State& state)
{
    Environment& env = environment();
    env.settings->setWorkingSpace(env.workspaceWithImages(5000));
    for (auto _ : state) {
        env.settings->loadFileLists();
        benchmark::DoNotOptimize(env.settings->imageList().data());
    }
    state.counters["images"] = double(env.settings->imageList().size());
    state.SetItemsProcessed(state.iterations() * std::int64_t(env.settings->imageList().size()));
}
BENCHMARK(BM_LoadFileLists5000Images)->Unit(benchmark::kMillisecond);

void BM_OpenSyntheticProject(benchmark::State& state)
{
    Environment& env = environment();
    const QString path = env.bigProject();
    for (auto _ : state) {
        env.settings->openProject(path);
        state.PauseTiming();
        if (env.settings->selectedProjectTab()->levelConfig().size() != 20)
            state.SkipWithError("the synthetic project did not open");
        env.settings->closeProject(env.settings->selectedProjectTab()->id());
        state.ResumeTiming();
    }
    state.counters["fileMB"] = double(env.projectBytes) / 1e6;
    state.SetBytesProcessed(state.iterations() * env.projectBytes);
}
BENCHMARK(BM_OpenSyntheticProject)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    // A private home: nothing of the run reaches the user's own folders.
    testing_support::PrivateHome home;
    return tessaro::bench::runQtBenchmarks(argc, argv);
}
