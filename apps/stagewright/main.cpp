// StageWright, the level editor: `stagewright [FILE...]`.
//
// `--quit-after-start` starts as usual, shows the main window and quits once
// the event loop runs, with status 0 only if the window is on screen: a smoke
// test of an installation (the tests start the installed editor with it).
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/MainWindow.h>
#include <stagewright/shell/ShellContent.h>
#include <stagewright/shell/StageWrightApp.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QTimer>

#include <cstdio>

namespace {

void nameTheApplication()
{
    stagewright::setApplicationIdentity();
    QCoreApplication::setApplicationVersion(QStringLiteral(STAGEWRIGHT_VERSION));
    stagewright::setApplicationBuildVersion(QStringLiteral(STAGEWRIGHT_BUILD));
}

} // namespace

int main(int argc, char** argv)
{
    QStringList files;
    bool quitAfterStart = false;
    {
        // The command line is read before the window system is needed, so
        // that --help and --version work without a display.
        QCoreApplication commandLine(argc, argv);
        nameTheApplication();
        QCommandLineParser parser;
        parser.setApplicationDescription(QCoreApplication::translate("main", "Level editor for Tessaro games."));
        parser.addHelpOption();
        parser.addVersionOption();
        parser.addPositionalArgument(QStringLiteral("files"),
                                     QCoreApplication::translate("main", "Project files (.plist) to open."),
                                     QStringLiteral("[FILE...]"));
        const QCommandLineOption quitOption(
            QStringLiteral("quit-after-start"),
            QCoreApplication::translate("main", "Quit as soon as the main window is shown (checks an installation)."));
        parser.addOption(quitOption);
        parser.process(commandLine);
        files = parser.positionalArguments();
        quitAfterStart = parser.isSet(quitOption);
    }

    QApplication app(argc, argv);
    nameTheApplication();
    // For window managers that do not find the icon through the desktop entry.
    QApplication::setWindowIcon(QIcon(stagewright::shellContentPath(QStringLiteral("app/appicon.svg"))));
    stagewright::StageWrightApp stageWright(files, stagewright::makeSceneEditorFactory);
    stageWright.show();
    if (quitAfterStart) {
        QTimer::singleShot(0, &app, [&stageWright] {
            const bool shown = stageWright.mainWindow().isVisible();
            if (!shown)
                std::fprintf(stderr, "stagewright: the main window did not appear\n");
            QCoreApplication::exit(shown ? 0 : 1);
        });
    }
    return app.exec();
}
