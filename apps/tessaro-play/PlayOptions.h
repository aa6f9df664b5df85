// The command line of tessaro-play.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace play {

struct PlayOptions {
    QString workspace; // ends in "/"
    QString project;
    int level = 1; // from 1
    bool headless = false;
    int frames = 600;
    bool report = false;
    bool autopilot = false;
    bool watch = false; // build the level again when its files change
    QString screenshot; // a PNG of the last frame, when given
};

/// The options of `arguments` (without the program name), or the reason
/// they cannot be used.
std::optional<PlayOptions> parsePlayOptions(const QStringList& arguments, QString& error);

/// The usage text.
QString playUsage();

} // namespace play
