// "Play Level": the level in front, unsaved edits included, runs as a game in
// tessaro-play, a program of its own beside the editor. Nothing of the
// user's is written: the project goes to a private temporary folder outside
// the workspace, which is removed when the game ends. The editor does not
// wait for the game; when the game fails, its last line is shown.
#pragma once

#include <tessaro/model/LevelRecords.h>

#include <QIcon>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QTemporaryDir;

namespace stagewright {

class ShellDialogs;
class projectTab;

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
    /// tab's levels first, so unsaved edits are played too. A game still
    /// running from an earlier start is ended. False, with a message to the
    /// user, when there is nothing to play or the game cannot start.
    bool play(projectTab* tab, const QString& workspace);
    /// Writes `levels` to a new temporary project named after `projectName`
    /// and starts the game on level `levelNumber` (from 1) of it with the
    /// catalogues and images of `workspace`.
    bool play(const std::vector<tessaro::Level>& levels, int levelNumber, const QString& projectName,
              const QString& workspace);

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

    ShellDialogs& m_dialogs;
    QString m_program;
    QProcess* m_process = nullptr;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_projectFile;
    QStringList m_arguments;
    QString m_lastLine; // the last line the game wrote
};

} // namespace stagewright
