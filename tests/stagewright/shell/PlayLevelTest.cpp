// "Play Level": the level in front, edits included, goes to a temporary
// project outside the workspace and a game program is started on it without
// the editor waiting. The game here is a small script that notes what it was
// given, found on the PATH as the real one would be.
#include "ShellTestSupport.h"

#include <stagewright/shell/PlayLevel.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <QAction>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QToolBar>
#include <QUndoCommand>

namespace stagewright::test {

namespace {

/// Writes an executable shell script named tessaro-play into `folder`.
QString gameScript(const QString& folder, const QString& body)
{
    QDir().mkpath(folder);
    const QString path = folder + QStringLiteral("/tessaro-play");
    QFile script(path);
    EXPECT_TRUE(script.open(QIODevice::WriteOnly));
    script.write((QStringLiteral("#!/bin/sh\n") + body).toUtf8());
    script.close();
    script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
    return path;
}

/// A stand-in for tessaro-play: writes its arguments, one a line, and a copy
/// of the project it was given into `notes`, then waits `seconds`.
QString fakeGame(const QString& folder, const QString& notes, int seconds)
{
    return gameScript(folder,
                      QStringLiteral("cp \"$2\" \"%1/project.plist\"\n"
                                     "printf '%s\\n' \"$@\" > \"%1/arguments.tmp\"\n"
                                     "mv \"%1/arguments.tmp\" \"%1/arguments\"\n"
                                     "sleep %2\n")
                          .arg(notes)
                          .arg(seconds));
}

/// A stand-in for a watching tessaro-play: notes its arguments and the
/// project's path in `notes`, then writes each line it is sent to
/// "commands" until its input closes.
QString watchingGame(const QString& folder, const QString& notes)
{
    return gameScript(folder,
                      QStringLiteral("printf '%s\\n' \"$@\" > \"%1/arguments.tmp\"\n"
                                     "mv \"%1/arguments.tmp\" \"%1/arguments\"\n"
                                     "while read -r line; do echo \"$line\" >> \"%1/commands\"; done\n")
                          .arg(notes));
}

QStringList lines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/// PATH with `folder` in front while it lives.
struct PathWith {
    QByteArray saved = qgetenv("PATH");
    explicit PathWith(const QString& folder) { qputenv("PATH", folder.toLocal8Bit() + ':' + saved); }
    ~PathWith() { qputenv("PATH", saved); }
};

using PlayLevelTest = ShellFixture;

} // namespace

TEST_F(PlayLevelTest, PlaysTheFrontLevelWithItsUnsavedEditsWithoutTouchingTheUsersFiles)
{
    const QString notes = home->folder(QStringLiteral("notes"));
    PathWith path(QFileInfo(fakeGame(home->folder(QStringLiteral("bin")), notes, 2)).path());
    const QString file = project(QStringLiteral("Forest.plist"), 3);
    const QByteArray before = fileBytes(file);
    ASSERT_FALSE(before.isEmpty());
    settings->openProject(file);
    settle();
    ASSERT_EQ(front().levelConfig().size(), 3u);

    // The second level, with an edit that is not saved.
    commands->showScene(*front().levelConfig()[1].id);
    std::vector<tessaro::Level> edited = front().levelConfig();
    edited[1].settings.size = "{4321,600}";
    front().setLevelConfig(edited);
    front().setProjectDirty(true);
    sceneLog->clear();

    QAction* play = action(QStringLiteral("Play Level"));
    ASSERT_NE(play, nullptr);
    EXPECT_EQ(play->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
    EXPECT_TRUE(window->findChild<QToolBar*>()->actions().contains(play)) << "a toolbar button too";

    QElapsedTimer clock;
    clock.start();
    play->trigger();
    EXPECT_LT(clock.elapsed(), 1500) << "the editor does not wait for the game";
    EXPECT_EQ(sceneLog->value(0), QStringLiteral("write 1")) << "the scene's latest state is played";
    EXPECT_TRUE(dialogs.failures.isEmpty()) << dialogs.failures.join(QLatin1Char('\n')).toStdString();

    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(notes + QStringLiteral("/arguments")), 10000);
    const QStringList given = lines(notes + QStringLiteral("/arguments"));
    ASSERT_EQ(given.size(), 5);
    EXPECT_EQ(given[0], workingSpacePath());
    EXPECT_EQ(QFileInfo(given[1]).fileName(), QStringLiteral("Forest.plist"));
    EXPECT_FALSE(given[1].startsWith(workingSpacePath())) << "nothing is written into the workspace";
    EXPECT_NE(QFileInfo(given[1]).absoluteFilePath(), QFileInfo(file).absoluteFilePath());
    EXPECT_EQ(given.mid(2), QStringList({QStringLiteral("--level"), QStringLiteral("2"), QStringLiteral("--watch")}));

    const std::vector<tessaro::Level> played = readProject(notes + QStringLiteral("/project.plist"));
    ASSERT_EQ(played.size(), 3u);
    EXPECT_EQ(played[1].settings.size, std::optional<std::string>("{4321,600}"));
    EXPECT_EQ(played[1].id, edited[1].id);

    // The user's project is as it was, and still has unsaved changes.
    EXPECT_EQ(fileBytes(file), before);
    EXPECT_TRUE(front().isProjectDirty());

    // When the game ends its temporary project goes with it.
    QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(given[1]), 10000);
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(given[1]).path()));
}

TEST_F(PlayLevelTest, AGameThatCannotStartIsToldAndANewPlayEndsTheRunningGame)
{
    PlayLevel player(dialogs);
    QSignalSpy ended(&player, &PlayLevel::finished);
    const std::vector<tessaro::Level> levels = makeLevels(1);

    // No program at all.
    player.setGameProgram(QString());
    EXPECT_FALSE(player.play(levels, 1, QStringLiteral("Nowhere"), workingSpacePath()));
    ASSERT_EQ(dialogs.failures.size(), 1);
    EXPECT_TRUE(dialogs.failures[0].startsWith(QStringLiteral("The level cannot be played. The game program "
                                                              "tessaro-play was found neither")))
        << dialogs.failures[0].toStdString();
    EXPECT_TRUE(player.projectFile().isEmpty());

    // A file that is no program: the failure comes while the editor runs on.
    const QString notProgram = home->folder(QStringLiteral("bin")) + QStringLiteral("/not-a-program");
    QFile text(notProgram);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("just text\n");
    text.close();
    player.setGameProgram(notProgram);
    player.play(levels, 1, QStringLiteral("Broken"), workingSpacePath());
    QTRY_COMPARE_WITH_TIMEOUT(dialogs.failures.size(), 2, 10000);
    EXPECT_TRUE(dialogs.failures[1].contains(QStringLiteral("could not be started")))
        << dialogs.failures[1].toStdString();
    EXPECT_FALSE(player.isRunning());
    EXPECT_TRUE(player.projectFile().isEmpty()) << "its temporary project is gone";

    // A game that stops with a failure: its last line is shown.
    const QString failing = home->folder(QStringLiteral("bin")) + QStringLiteral("/failing-game");
    QFile script(failing);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho 'Loading'\necho 'Configuration error (ObjectList): No such file.'\nexit 1\n");
    script.close();
    script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
    player.setGameProgram(failing);
    ASSERT_TRUE(player.play(levels, 1, QStringLiteral("Failing"), workingSpacePath()));
    QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, 10000);
    EXPECT_EQ(ended[0][0].toInt(), 1);
    ASSERT_EQ(dialogs.failures.size(), 3);
    EXPECT_EQ(dialogs.failures[2],
              QStringLiteral("The level cannot be played. Configuration error (ObjectList): No such file."));

    // A second play while a game runs ends the first one and its project.
    const QString notes = home->folder(QStringLiteral("notes"));
    player.setGameProgram(fakeGame(home->folder(QStringLiteral("bin")), notes, 60));
    ASSERT_TRUE(player.play(levels, 1, QStringLiteral("First: a/b"), workingSpacePath()));
    const QString first = player.projectFile();
    EXPECT_EQ(QFileInfo(first).fileName(), QStringLiteral("First_ a_b.plist")) << "a name any folder takes";
    EXPECT_TRUE(player.isRunning());
    ASSERT_TRUE(player.play(levels, 1, QStringLiteral("Second"), workingSpacePath()));
    EXPECT_FALSE(QFile::exists(first));
    EXPECT_TRUE(player.isRunning());
    EXPECT_EQ(ended.size(), 1) << "a game ended by a new play is not reported";
    EXPECT_EQ(dialogs.failures.size(), 3);

    // Finding the game: beside the editor first, then in a build tree's
    // neighbouring folder.
    const QString editor = home->folder(QStringLiteral("apps/stagewright"));
    EXPECT_EQ(PlayLevel::findGame(editor), QStandardPaths::findExecutable(QStringLiteral("tessaro-play")));
    fakeGame(home->folder(QStringLiteral("apps/tessaro-play")), notes, 0);
    EXPECT_EQ(PlayLevel::findGame(editor), home->folder(QStringLiteral("apps/tessaro-play")) + "/tessaro-play");
    fakeGame(editor, notes, 0);
    EXPECT_EQ(PlayLevel::findGame(editor), editor + "/tessaro-play");
}

TEST_F(PlayLevelTest, TheRunningGameFollowsTheTabsEditsAndPlayingAgainRestartsIt)
{
    const QString notes = home->folder(QStringLiteral("notes"));
    PathWith path(QFileInfo(watchingGame(home->folder(QStringLiteral("bin")), notes)).path());
    const QString file = project(QStringLiteral("Meadow.plist"), 2);
    const QByteArray before = fileBytes(file);
    ASSERT_FALSE(before.isEmpty());
    settings->openProject(file);
    settle();
    QAction* play = action(QStringLiteral("Play Level"));
    ASSERT_NE(play, nullptr);
    play->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(notes + QStringLiteral("/arguments")), 10000);
    const QStringList given = lines(notes + QStringLiteral("/arguments"));
    ASSERT_EQ(given.size(), 5);
    const QString temporary = given[1];

    // An edit, as a step of the tab's history, reaches the game's project.
    std::vector<tessaro::Level> edited = front().levelConfig();
    edited[0].settings.size = "{2345,700}";
    front().setLevelConfig(edited);
    front().undoStack().push(new QUndoCommand(QStringLiteral("Resize")));
    const auto playedSize = [&] {
        const std::vector<tessaro::Level> played = readProject(temporary);
        return played.empty() ? std::nullopt : played.front().settings.size;
    };
    QTRY_COMPARE_WITH_TIMEOUT(playedSize(), std::optional<std::string>("{2345,700}"), 5000);

    // Playing again restarts the same game rather than starting another.
    QFile::remove(notes + QStringLiteral("/arguments"));
    play->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(lines(notes + QStringLiteral("/commands")), QStringList{QStringLiteral("restart")}, 5000);
    QTest::qWait(200);
    EXPECT_FALSE(QFile::exists(notes + QStringLiteral("/arguments"))) << "no second game";
    EXPECT_TRUE(dialogs.failures.isEmpty()) << dialogs.failures.join(QLatin1Char('\n')).toStdString();

    // None of this touched the user's file.
    EXPECT_EQ(fileBytes(file), before);
}

} // namespace stagewright::test
