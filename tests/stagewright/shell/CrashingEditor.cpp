// The editor as a user runs it, driven by a script: it opens the project
// named first on its command line, moves the obstacles of the shown level in
// two bursts (fifty steps, then seven), waits until the recovery copy holds
// the last of them, writes what a save of its state would write into the file
// named second, prints "ready", and then waits to be killed.
#include <stagewright/inspector/EditRouting.h>
#include <stagewright/scene/ElementNode.h>
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/Commands.h>
#include <stagewright/shell/StageWrightApp.h>
#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/Autosave.h>
#include <stagewright/state/SceneSettings.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QSettings>

#include <cstdio>

using namespace stagewright;

namespace {

/// Lets the application run until `done` holds; false after ten seconds.
bool runUntil(const std::function<bool()>& done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > 10000)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    setApplicationIdentity();
    tessaro::setDiagnosticSink([](std::string_view) {});
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    const QString project = arguments[1];
    const QString expected = arguments[2];

    // No welcome sheet, and a timed copy every second.
    QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright"))
        .setValue(QStringLiteral("firstTimeViewDisplayed"), true);
    QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright")).setValue(autosaveIntervalKey, 1);

    StageWrightApp editor({project}, makeSceneEditorFactory);
    editor.show();
    const std::shared_ptr<ProjectTab> tab = editor.settings().selectedProjectTab();
    auto* scene = tab ? dynamic_cast<SceneEditor*>(tab->currentScene().get()) : nullptr;
    if (!scene || tab->filePath() != project)
        return 3;
    const std::vector<ElementNodePtr> obstacles = SceneEditor::elementsOf(scene->obstacleNodes());
    if (obstacles.empty())
        return 4;

    int copies = 0;
    QObject::connect(&editor.autosave(), &Autosave::tabWritten, [&](const tessaro::Uuid&, bool ok) { copies += ok; });
    EditRouting routing(*tab, &editor.settings().clipboard());
    int step = 0;
    const auto move = [&](int count) {
        for (int i = 0; i < count; ++i, ++step) {
            ElementNode& node = *obstacles[std::size_t(step) % obstacles.size()];
            routing.moveElement(node, {node.position().x() + 7, node.position().y() + 3}, false);
        }
    };
    move(50); // copied at once
    if (!runUntil([&] { return copies == 1; }))
        return 5;
    move(7); // copied by the timer
    if (!runUntil([&] { return copies == 2; }))
        return 6;
    // What "Save" would write now, taken from the scene here and not from the copy.
    scene->writeBack(tab->levelSelected());
    if (!tessaro::saveLevels(tab->levelConfig(), expected.toStdString()))
        return 7;
    std::printf("ready\n");
    std::fflush(stdout);
    return app.exec();
}
