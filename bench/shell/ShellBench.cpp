// Benchmarks of the editor's window:
//
// - Start to the first drawn frame of the sample, as a user starts the
//   program: each iteration runs this program anew as the editor (the
//   option --first-frame HOME) and times it from the spawn to the moment the
//   canvas has painted the sample's first level. "FirstStart" begins on an
//   empty home (the workspace and the sample are made on the way),
//   "LaterStart" on a home that has them.
// - Scrolling a big level: the synthetic project's first level (500
//   obstacles, 50 characters, 100 coins, 30 ground sections, 4 background
//   layers) at 100%, moved 12 points a frame as the navigation buttons move
//   it; one iteration is one frame: scroll, the scene's frame step, and a
//   synchronous repaint of the canvas. The argument is the zoom in percent;
//   the target is a steady 60 frames a second at 100.
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/Commands.h>
#include <stagewright/shell/MainWindow.h>
#include <stagewright/shell/StageWrightApp.h>
#include <stagewright/shell/Windows.h>
#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>

#include <bench/common/SyntheticProject.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

using namespace stagewright;

namespace {

QString programPath;

/// Points HOME and the XDG folders into `home`.
void useHome(const QByteArray& home)
{
    qputenv("HOME", home);
    qputenv("XDG_DATA_HOME", home + "/.local/share");
    qputenv("XDG_CONFIG_HOME", home + "/.config");
    qputenv("XDG_CACHE_HOME", home + "/.cache");
}

// ---- The editor, as the child of a start measurement ------------------------------------------

/// Prints "drawn" once the front canvas has painted a level of the sample.
class FirstFrameWatch : public QObject {
public:
    explicit FirstFrameWatch(StageWrightApp& app) : m_app(app) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!m_done && event->type() == QEvent::Paint && qobject_cast<CanvasSceneView*>(watched)) {
            CanvasView* canvas = m_app.mainWindow().frontCanvas();
            const auto tab = m_app.settings().selectedProjectTab();
            if (canvas && canvas->sceneView() == watched && canvas->shownScene() && tab &&
                tab->name() == QStringLiteral("Sample")) {
                m_done = true;
                // After this paint has been delivered.
                QTimer::singleShot(0, qApp, [] {
                    std::puts("drawn");
                    std::fflush(stdout);
                    QCoreApplication::exit(0);
                });
            }
        }
        return false;
    }

private:
    StageWrightApp& m_app;
    bool m_done = false;
};

int runEditorToFirstFrame(int argc, char** argv, const QByteArray& home)
{
    useHome(home);
    QApplication app(argc, argv);
    setApplicationIdentity();
    tessaro::setDiagnosticSink([](std::string_view) {});
    StageWrightApp editor({QString::fromLocal8Bit(home) + QStringLiteral("/StageWrightSpace/Levels/Sample.plist")},
                          makeSceneEditorFactory());
    FirstFrameWatch watch(editor);
    app.installEventFilter(&watch);
    editor.show();
    return app.exec();
}

// ---- Start measurements ---------------------------------------------------------------------------

/// Runs the editor once on `home` and gives the seconds to its first frame.
double timeOneStart(const QString& home)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::SeparateChannels);
    QElapsedTimer clock;
    clock.start();
    child.start(programPath, {QStringLiteral("--first-frame"), home});
    if (!child.waitForStarted(10000) || !child.waitForFinished(60000))
        return -1;
    const double seconds = double(clock.nsecsElapsed()) / 1e9;
    return child.readAllStandardOutput().contains("drawn") ? seconds : -1;
}

void BM_FirstStartToFirstFrame(benchmark::State& state)
{
    for (auto _ : state) {
        QTemporaryDir home;
        const double seconds = timeOneStart(home.path());
        if (seconds < 0) {
            state.SkipWithError("the editor did not draw the sample");
            return;
        }
        state.SetIterationTime(seconds);
    }
}
BENCHMARK(BM_FirstStartToFirstFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_LaterStartToFirstFrame(benchmark::State& state)
{
    QTemporaryDir home;
    timeOneStart(home.path()); // makes the workspace and the sample
    for (auto _ : state) {
        const double seconds = timeOneStart(home.path());
        if (seconds < 0) {
            state.SkipWithError("the editor did not draw the sample");
            return;
        }
        state.SetIterationTime(seconds);
    }
}
BENCHMARK(BM_LaterStartToFirstFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

// ---- Scrolling --------------------------------------------------------------------------------------

/// A started editor window in a private home, showing the big level.
struct BigLevelWindow {
    QTemporaryDir home;
    std::unique_ptr<SceneSettings> settings;
    std::unique_ptr<DesktopDialogs> dialogs;
    std::unique_ptr<AppPreferences> preferences;
    std::unique_ptr<WindowManager> windows;
    std::unique_ptr<Commands> commands;
    std::unique_ptr<MainWindow> window;

    BigLevelWindow()
    {
        useHome(QFile::encodeName(home.path()));
        settings = std::make_unique<SceneSettings>(PermissionManager::shared());
        settings->setSceneFactory(makeSceneEditorFactory());
        dialogs = std::make_unique<DesktopDialogs>();
        preferences = std::make_unique<AppPreferences>(*settings);
        windows = std::make_unique<WindowManager>(*settings, *preferences);
        commands = std::make_unique<Commands>(*settings, *dialogs, windows.get());

        // The synthetic project, named as the seed catalogues name things.
        tessaro::bench::SyntheticShape shape;
        shape.levels = 1;
        shape.obstacleNames = {"Crate", "Spikes", "Barrel", "Platform"};
        shape.characterNames = {"Hero", "Slime"};
        shape.groundImages = {"ground_grass", "ground_dirt"};
        shape.backgroundImages = {"sky", "hills_far", "hills_near", "sky"};
        const QString path = home.path() + QStringLiteral("/Big.plist");
        tessaro::saveLevels(tessaro::bench::makeSyntheticProject(shape), path.toStdString());
        commands->setFilesToOpen({path});

        window = std::make_unique<MainWindow>(*settings, *commands, windows.get());
        window->show();
        QCoreApplication::processEvents();
    }
    ~BigLevelWindow()
    {
        window.reset();
        commands.reset();
        windows.reset();
        preferences.reset();
        settings.reset();
    }
};

void BM_ScrollBigLevelFrame(benchmark::State& state)
{
    static BigLevelWindow* big = new BigLevelWindow; // kept for the run: the state is not made twice
    CanvasView* canvas = big->window->frontCanvas();
    const SceneEditorPtr scene = sceneEditorOf(canvas->shownScene());
    if (!scene) {
        state.SkipWithError("no canvas scene");
        return;
    }
    // The argument is the zoom in percent.
    big->commands->setZoom(QString::number(double(state.range(0)) / 100.0, 'f', 2));
    QCoreApplication::processEvents();
    canvas->sceneView()->setPaused(true); // the benchmark drives the frames
    double x = 0;
    double time = 0;
    double busy = 0;
    std::vector<double> frames;
    frames.reserve(std::size_t(state.max_iterations));
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        x += 12;
        if (x > 7000)
            x = 0;
        scene->moveScene(PublishedElementList::scenePosition, tessaro::PointValue{x, 0});
        time += 1.0 / 60;
        scene->processFrame(time);
        canvas->sceneView()->repaint();
        const double seconds = double(clock.nsecsElapsed()) / 1e9;
        busy += seconds;
        frames.push_back(seconds);
        state.SetIterationTime(seconds);
    }
    // A steady rate needs the slow frames under 16.7 ms too.
    std::sort(frames.begin(), frames.end());
    if (!frames.empty()) {
        state.counters["p95 frame ms"] = frames[std::size_t(double(frames.size() - 1) * 0.95)] * 1000;
        state.counters["worst frame ms"] = frames.back() * 1000;
    }
    state.counters["nodes drawn"] = canvas->sceneView()->renderer().lastNodeCount();
    state.counters["frames per second"] = busy > 0 ? double(state.iterations()) / busy : 0;
}
BENCHMARK(BM_ScrollBigLevelFrame)->Arg(100)->Arg(200)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(600);

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--first-frame") == 0)
        return runEditorToFirstFrame(1, argv, QByteArray(argv[2]));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    setApplicationIdentity();
    programPath = QCoreApplication::applicationFilePath();
    tessaro::setDiagnosticSink([](std::string_view) {});
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
