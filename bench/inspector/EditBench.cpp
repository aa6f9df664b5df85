// Benchmarks of editing on the big level (2,000 obstacles, 200 characters,
// 500 coins, 100 ground sections), each edit through the history as the
// editor makes it:
// - a click on an obstacle until its selection is published;
// - a selection until the inspector's primary and device panes show it;
// - an edit of the primary list and of the device pane, and the undo of one;
// - an edit that lays the ground again;
// - paste, and its undo and redo;
// - 1,000 nudges that are 1,000 steps, then 1,000 undos, over and over: the
//   memory the process holds must not grow beyond the history's.
#include <stagewright/inspector/DevicePane.h>
#include <stagewright/inspector/EditRouting.h>
#include <stagewright/inspector/InspectorHead.h>
#include <stagewright/inspector/PrimaryPane.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ElementClipboard.h>
#include <stagewright/state/ProjectTab.h>

#include <bench/common/BenchmarkMain.h>
#include <bench/scene/BigLevel.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <unistd.h>

using namespace stagewright;
using tessaro::sceneObjectType;

namespace {

/// The big level on a canvas of its tab, with editing installed.
struct Editing {
    tessaro::bench::BigLevel level;
    std::shared_ptr<SceneEditor> scene;
    ElementClipboard clipboard;

    Editing()
    {
        scene = level.loadedScene(editingHooks(nullptr));
        level.tab->setCurrentScene(scene);
        scene->processFrame(0); // the canvas has been shown once
    }
    ProjectTab& tab() { return *level.tab; }
    EditRouting edits() { return EditRouting(tab(), &clipboard); }
    /// An obstacle that a click selects without the menu, and the point of the click.
    std::pair<ElementNodePtr, QPointF> loneObstacle()
    {
        for (const ElementNodePtr& node : scene->storedOrder(sceneObjectType::obstacles)) {
            int elements = 0;
            for (const tessaro::kit::NodePtr& hit : scene->nodesAtPoint(node->position()))
                if (auto element = std::dynamic_pointer_cast<ElementNode>(hit))
                    elements += element->kind() != sceneObjectType::background;
            if (elements == 1)
                return {node, node->position()};
        }
        return {};
    }
    void select(const ElementNodePtr& node)
    {
        scene->deselect();
        scene->selectNode(node);
    }
};

Editing& editing()
{
    static Editing instance;
    return instance;
}

/// The memory the process holds, in KiB.
double residentKiB()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toDouble() * double(sysconf(_SC_PAGESIZE)) / 1024 : 0;
}

void BM_ClickToSelection(benchmark::State& state)
{
    Editing& e = editing();
    const auto [node, at] = e.loneObstacle();
    if (!node) {
        state.SkipWithError("no obstacle stands alone");
        return;
    }
    tessaro::kit::MouseEvent click;
    click.sceneLocation = at;
    for (auto _ : state) {
        e.scene->dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Down, click);
        e.scene->dispatchMouseEvent(tessaro::kit::Scene::MouseKind::Up, click);
    }
    if (e.tab().selectedObject().name != node->name().toStdString())
        state.SkipWithError("the click selected something else");
}
BENCHMARK(BM_ClickToSelection)->Unit(benchmark::kMillisecond);

void BM_SelectionToPanes(benchmark::State& state)
{
    Editing& e = editing();
    const std::vector<ElementNodePtr> obstacles = e.scene->storedOrder(sceneObjectType::obstacles);
    const RowBinding binding{&e.tab(), nullptr, ModelType::Primary, false};
    std::size_t next = 0;
    for (auto _ : state) {
        // Another element each time, as a designer clicks through a level.
        e.select(obstacles[next++ % obstacles.size()]);
        InspectorHead head(binding);
        PrimaryPropertyListView primary(binding);
        DeviceSpecificPropertyView device(binding);
        primary.adjustSize();
        benchmark::DoNotOptimize(device.sizeHint());
    }
}
BENCHMARK(BM_SelectionToPanes)->Unit(benchmark::kMillisecond);

void BM_ApplyPrimary(benchmark::State& state)
{
    Editing& e = editing();
    e.select(e.scene->storedOrder(sceneObjectType::obstacles)[1000]);
    double depth = 10;
    for (auto _ : state)
        e.edits().applyPrimaryProperty(PublishedElementList::zPosition, depth += 1);
    e.tab().undoStack().clear();
}
BENCHMARK(BM_ApplyPrimary)->Unit(benchmark::kMillisecond);

// Only the undo is timed; each one takes back the edit just made.
void BM_UndoPrimary(benchmark::State& state)
{
    Editing& e = editing();
    e.select(e.scene->storedOrder(sceneObjectType::obstacles)[1100]);
    QUndoStack& history = e.tab().undoStack();
    QElapsedTimer clock;
    double depth = 10;
    for (auto _ : state) {
        e.edits().applyPrimaryProperty(PublishedElementList::zPosition, depth += 1);
        clock.start();
        history.undo();
        state.SetIterationTime(double(clock.nsecsElapsed()) / 1e9);
    }
    history.clear();
}
BENCHMARK(BM_UndoPrimary)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_ApplyDevice(benchmark::State& state)
{
    Editing& e = editing();
    e.select(e.scene->storedOrder(sceneObjectType::obstacles)[1200]);
    double x = 0;
    for (auto _ : state)
        e.edits().applyDeviceProperty(PublishedElementList::position, tessaro::PointValue{x += 1, 40});
    e.tab().undoStack().clear();
}
BENCHMARK(BM_ApplyDevice)->Unit(benchmark::kMillisecond);

void BM_GroundRebuild(benchmark::State& state)
{
    Editing& e = editing();
    e.select(e.scene->storedOrder(sceneObjectType::ground)[50]);
    std::int64_t count = 1;
    for (auto _ : state)
        e.edits().applyPrimaryProperty(PublishedElementList::repeatCount, count = 3 - count);
    e.tab().undoStack().clear();
}
BENCHMARK(BM_GroundRebuild)->Unit(benchmark::kMillisecond);

void BM_PasteUndoRedo(benchmark::State& state)
{
    Editing& e = editing();
    e.select(e.scene->storedOrder(sceneObjectType::obstacles)[10]);
    e.edits().copy();
    QUndoStack& history = e.tab().undoStack();
    QElapsedTimer clock;
    double paste = 0, undo = 0, redo = 0;
    for (auto _ : state) {
        clock.start();
        e.edits().paste();
        paste += clock.nsecsElapsed() / 1e6;
        clock.start();
        history.undo();
        undo += clock.nsecsElapsed() / 1e6;
        clock.start();
        history.redo();
        redo += clock.nsecsElapsed() / 1e6;
        history.undo();
    }
    const double n = double(state.iterations());
    state.counters["pasteMs"] = paste / n;
    state.counters["undoMs"] = undo / n;
    state.counters["redoMs"] = redo / n;
    history.clear();
}
BENCHMARK(BM_PasteUndoRedo)->Unit(benchmark::kMillisecond);

void BM_ThousandNudgesThenUndos(benchmark::State& state)
{
    Editing& e = editing();
    // Two elements in turn, so that no nudge joins the one before: 1,000 steps.
    const std::vector<ElementNodePtr> obstacles = e.scene->storedOrder(sceneObjectType::obstacles);
    ElementNode* pair[] = {obstacles[300].get(), obstacles[301].get()};
    QUndoStack& history = e.tab().undoStack();
    double firstRound = 0;
    double peakSteps = 0;
    for (auto _ : state) {
        for (int i = 0; i < 1000; ++i) {
            ElementNode& node = *pair[i % 2];
            const tessaro::PointValue at = node.storedPosition();
            e.edits().moveElement(node, {at.x + 1, at.y}, true);
        }
        peakSteps = std::max(peakSteps, double(history.index()));
        while (history.canUndo())
            history.undo();
        if (firstRound == 0)
            firstRound = residentKiB();
    }
    state.counters["steps"] = peakSteps;
    state.counters["growthKiB"] = residentKiB() - firstRound;
    history.clear();
}
BENCHMARK(BM_ThousandNudgesThenUndos)->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace

int main(int argc, char** argv)
{
    return tessaro::bench::runQtBenchmarks<QApplication>(argc, argv);
}
