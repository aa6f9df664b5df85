// tessaro-play: plays one level of a project, made with StageWright, as a
// small game on the Tessaro library.
//
//   tessaro-play WORKSPACE PROJECT [--level N]            a window; arrows or
//                                                         A/D run, Space jumps,
//                                                         Esc quits
//   tessaro-play WORKSPACE PROJECT [--level N] --watch    the same, built again
//                                                         when the project or
//                                                         a catalogue changes
//   tessaro-play WORKSPACE PROJECT --headless --frames N --report
//
// It uses only the library's public interface, as any game would: the
// workspace becomes the game's resources, the project is read with the
// model, and the level is built by PlayRules through the library's
// factories.
#include "HeadlessRun.h"
#include "PlayOptions.h"
#include "PlayScene.h"
#include "PlaySession.h"

#include <tessaro/kit/AudioNode.h>
#include <tessaro/runtime/GameResources.h>

#include <QApplication>
#include <QTextStream>

#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    if (arguments.contains(QLatin1String("--help")) || arguments.contains(QLatin1String("-h"))) {
        std::fputs(qPrintable(play::playUsage()), stdout);
        return 0;
    }
    QString error;
    const std::optional<play::PlayOptions> options = play::parsePlayOptions(arguments, error);
    if (!options) {
        std::fprintf(stderr, "tessaro-play: %s\n%s", qPrintable(error), qPrintable(play::playUsage()));
        return 1;
    }
    // A run without a window needs no display, and makes no sound.
    if (options->headless && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tessaro-play"));

    if (options->headless) {
        if (!tessaro::loadWorkspace(options->workspace))
            return 1;
        const std::optional<tessaro::Level> level = play::levelToPlay(*options);
        if (!level)
            return 1;
        tessaro::kit::AudioNode::setAudioEnabled(false);
        auto scene = std::make_shared<play::PlayScene>(*level);
        scene->rules().setAutopilot(options->autopilot);
        const play::HeadlessResult result = play::runHeadless(*scene, options->frames, options->screenshot);
        if (options->report) {
            QTextStream out(stdout);
            for (const QString& line : play::reportLines(*scene, result))
                out << line << '\n';
        }
        return 0;
    }

    play::PlaySession session(*options);
    if (!session.start())
        return 1;
    return QApplication::exec();
}
