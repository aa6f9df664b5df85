#include "PlayOptions.h"

namespace play {

namespace {

std::optional<int> wholeNumberFrom(const QString& text, int lowest)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < lowest)
        return std::nullopt;
    return value;
}

} // namespace

QString playUsage()
{
    return QStringLiteral(
        "usage: tessaro-play WORKSPACE PROJECT [--level N] [--autopilot] [--watch]\n"
        "       tessaro-play WORKSPACE PROJECT [--level N] --headless [--frames N] [--report] [--autopilot]\n"
        "                    [--screenshot FILE.png]\n"
        "  Plays level N (from 1) of the project with the workspace's catalogues and images.\n"
        "  Keys: arrows or A/D to run, Space to jump, Esc to quit.\n"
        "  --headless runs N frames (600 by default) of 1/60 s without a window; --report prints\n"
        "  what was made and counted and the frame times; --autopilot runs right and jumps.\n"
        "  --watch builds the level again, the player where it was, when the project or a\n"
        "  catalogue of the workspace changes; a line \"restart\" on standard input starts it over.\n");
}

std::optional<PlayOptions> parsePlayOptions(const QStringList& arguments, QString& error)
{
    PlayOptions options;
    QStringList positional;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        auto value = [&]() -> std::optional<QString> {
            if (i + 1 >= arguments.size())
                return std::nullopt;
            return arguments[++i];
        };
        if (argument == QLatin1String("--level") || argument == QLatin1String("--frames")) {
            const auto text = value();
            const auto number = text ? wholeNumberFrom(*text, 1) : std::nullopt;
            if (!number) {
                error = argument + QStringLiteral(" needs a whole number from 1");
                return std::nullopt;
            }
            (argument == QLatin1String("--level") ? options.level : options.frames) = *number;
        } else if (argument == QLatin1String("--screenshot")) {
            const auto file = value();
            if (!file) {
                error = QStringLiteral("--screenshot needs a file name");
                return std::nullopt;
            }
            options.screenshot = *file;
        } else if (argument == QLatin1String("--headless")) {
            options.headless = true;
        } else if (argument == QLatin1String("--report")) {
            options.report = true;
        } else if (argument == QLatin1String("--autopilot")) {
            options.autopilot = true;
        } else if (argument == QLatin1String("--watch")) {
            options.watch = true;
        } else if (argument.startsWith(QLatin1String("--"))) {
            error = QStringLiteral("unknown option ") + argument;
            return std::nullopt;
        } else {
            positional << argument;
        }
    }
    if (positional.size() != 2) {
        error = QStringLiteral("a workspace folder and a project file are needed");
        return std::nullopt;
    }
    options.workspace = positional[0].endsWith(QLatin1Char('/')) ? positional[0] : positional[0] + QLatin1Char('/');
    options.project = positional[1];
    return options;
}

} // namespace play
