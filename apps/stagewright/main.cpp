// StageWright, the level editor: `stagewright [FILE...]`.
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/StageWrightApp.h>

#include <QApplication>
#include <QCommandLineParser>

namespace {

void nameTheApplication()
{
    stagewright::setApplicationIdentity();
    QCoreApplication::setApplicationVersion(QStringLiteral(STAGEWRIGHT_VERSION));
}

} // namespace

int main(int argc, char** argv)
{
    QStringList files;
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
        parser.process(commandLine);
        files = parser.positionalArguments();
    }

    QApplication app(argc, argv);
    nameTheApplication();
    stagewright::StageWrightApp stageWright(files, stagewright::makeSceneEditorFactory());
    stageWright.show();
    return app.exec();
}
