// "Play Level": the level in front, unsaved edits included, runs as a game in
// tessaro-play, a program of its own beside the editor. Nothing of the
// user's is written: the project goes to a private temporary folder outside
// the workspace, which is removed when the game ends. The editor does not
// wait for the game; when the game fails, its last line is shown.
//
// One game keeps running while the designer works: it watches its project,
// and every edit of the tab is written there shortly after it is made, so
// the game shows it. Playing the same level again restarts that game and
// brings its window to the front.
#pragma once

#include <tessaro/model/LevelRecords.h>

#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

class QTemporaryDir;

namespace stagewright {

class ShellDialogs;
class ProjectTab;

/// The icon of the command: the theme's "play", else a drawn triangle.
QIcon playLevelIcon();

class PlayLevel : public QObject {
    Q_OBJECT
public:
    /// The program's file name.
    static QString gameProgramName();
    /// Where the game is looked for: beside the editor, then in the folder
    /// beside the editor's own that a build tree gives it, then on PATH.
    /// Empty when it is nowhere.
    static QString findGame(const QString& editorFolder);

    /// Failures to start are told through `dialogs`.
    explicit PlayLevel(ShellDialogs& dialogs, QObject* parent = nullptr);
    /// Ends a game still running.
    ~PlayLevel() override;

    /// The game to start; by default the one findGame finds beside this
    /// program.
    QString gameProgram() const { return m_program; }
    void setGameProgram(const QString& path) { m_program = path; }

    /// Plays the selected level of `tab`: its scene is written back into the
    /// tab's levels first, so unsaved edits are played too. While the game
    /// runs, the tab's edits follow it. False, with a message to the user,
    /// when there is nothing to play or the game cannot start.
    bool play(ProjectTab* tab, const QString& workspace);
    /// Writes `levels` to a new temporary project named after `projectName`
    /// and starts the game on level `levelNumber` (from 1) of it with the
    /// catalogues and images of `workspace`. A game still running on the
    /// same level of the same project is given the levels and restarted; one
    /// running another level or project is ended first.
    bool play(const std::vector<tessaro::Level>& levels, int levelNumber, const QString& projectName,
              const QString& workspace);

    /// How long edits settle before they are written for the game, in ms.
    static constexpr int kEditDelay = 200;

    /// A game started here runs (or is starting).
    bool isRunning() const;
    /// The temporary project of the running game; empty when none.
    QString projectFile() const { return m_projectFile; }
    /// The arguments of the last start.
    QStringList arguments() const { return m_arguments; }

signals:
    /// The game has ended, with its exit status. A failure has been told to
    /// the user, with the last line the game wrote.
    void finished(int exitCode);

private:
    void fail(const QString& detail);
    void stop();
    void cleanUp();
    /// Writes the levels of the followed tab for the running game.
    void sendEdits();
    bool writeProject(const std::vector<tessaro::Level>& levels);

    ShellDialogs& m_dialogs;
    QString m_program;
    QProcess* m_process = nullptr;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_projectFile;
    QStringList m_arguments;
    QString m_lastLine; // the last line the game wrote
    QString m_projectName;
    int m_levelNumber = 0;
    QPointer<ProjectTab> m_tab; // whose edits the running game follows
    QMetaObject::Connection m_edits;
    QTimer m_editsSettle;
};

} // namespace stagewright
