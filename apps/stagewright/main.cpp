// StageWright, the level editor: `stagewright [FILE...]`.
#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/StageWrightApp.h>

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    stagewright::setApplicationIdentity();
    QCoreApplication::setApplicationVersion(QStringLiteral(STAGEWRIGHT_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate("main", "Level editor for Tessaro games."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("files"),
                                 QCoreApplication::translate("main", "Project files (.plist) to open."),
                                 QStringLiteral("[FILE...]"));
    parser.process(app);

    stagewright::StageWrightApp stageWright(parser.positionalArguments(), stagewright::makeSceneEditorFactory());
    stageWright.show();
    return app.exec();
}
