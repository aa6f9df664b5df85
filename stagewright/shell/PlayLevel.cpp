#include "PlayLevel.h"

#include "Dialogs.h"

#include <stagewright/state/LevelScene.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/LevelFiles.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUndoStack>

#include <algorithm>
#include <cstdio>

namespace stagewright {

namespace {

/// Whether `path` lies in `folder` or below it.
bool isInside(const QString& path, const QString& folder)
{
    if (folder.isEmpty())
        return false;
    const QString inner = QDir::cleanPath(QFileInfo(path).absoluteFilePath()) + QLatin1Char('/');
    const QString outer = QDir::cleanPath(QFileInfo(folder).absoluteFilePath()) + QLatin1Char('/');
    return inner.startsWith(outer);
}

/// A file name made of `name` that every file system takes.
QString safeFileName(const QString& name)
{
    QString safe;
    for (const QChar c : name)
        safe += (c.isLetterOrNumber() || c == QLatin1Char(' ') || c == QLatin1Char('-') || c == QLatin1Char('_'))
            ? c
            : QLatin1Char('_');
    safe = safe.trimmed();
    return safe.isEmpty() ? QStringLiteral("Level") : safe;
}

/// A fresh private folder for the temporary project, outside `workspace`.
std::unique_ptr<QTemporaryDir> temporaryFolderOutside(const QString& workspace)
{
    const QStringList bases{QDir::tempPath(), QStandardPaths::writableLocation(QStandardPaths::CacheLocation),
                            QDir::homePath()};
    for (const QString& base : bases) {
        if (base.isEmpty() || isInside(base + QStringLiteral("/x"), workspace))
            continue;
        QDir().mkpath(base);
        auto folder = std::make_unique<QTemporaryDir>(base + QStringLiteral("/stagewright-play-XXXXXX"));
        if (folder->isValid())
            return folder;
    }
    return nullptr;
}

} // namespace

QIcon playLevelIcon()
{
    QIcon icon = QIcon::fromTheme(QStringLiteral("media-playback-start"));
    if (!icon.isNull())
        return icon;
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath triangle;
    triangle.moveTo(9, 6);
    triangle.lineTo(26, 16);
    triangle.lineTo(9, 26);
    triangle.closeSubpath();
    painter.fillPath(triangle, QColor(60, 140, 70));
    painter.end();
    return QIcon(pixmap);
}

QString PlayLevel::gameProgramName()
{
    return QStringLiteral("tessaro-play");
}

QString PlayLevel::findGame(const QString& editorFolder)
{
    const QString name = gameProgramName();
    for (const QString& folder : {editorFolder, editorFolder + QStringLiteral("/../") + name}) {
        const QFileInfo candidate(QDir(folder).filePath(name));
        if (candidate.isFile() && candidate.isExecutable())
            return QDir::cleanPath(candidate.absoluteFilePath());
    }
    return QStandardPaths::findExecutable(name);
}

PlayLevel::PlayLevel(ShellDialogs& dialogs, QObject* parent)
    : QObject(parent),
      m_dialogs(dialogs),
      m_program(findGame(QCoreApplication::applicationDirPath()))
{
    m_editsSettle.setSingleShot(true);
    m_editsSettle.setInterval(kEditDelay);
    connect(&m_editsSettle, &QTimer::timeout, this, &PlayLevel::sendEdits);
}

PlayLevel::~PlayLevel()
{
    stop();
}

bool PlayLevel::isRunning() const
{
    return m_process && m_process->state() != QProcess::NotRunning;
}

void PlayLevel::fail(const QString& detail)
{
    tessaro::diagnostic(("Play Level: " + detail).toStdString());
    m_dialogs.reportFailure(tr("The level cannot be played."), detail);
}

void PlayLevel::stop()
{
    if (!m_process)
        return;
    QProcess* process = std::exchange(m_process, nullptr);
    process->disconnect(this);
    if (process->state() != QProcess::NotRunning) {
        process->terminate();
        if (!process->waitForFinished(1000)) {
            process->kill();
            process->waitForFinished(1000);
        }
    }
    delete process;
    cleanUp();
}

void PlayLevel::cleanUp()
{
    disconnect(m_edits);
    m_editsSettle.stop();
    m_tab = nullptr;
    m_folder.reset();
    m_projectFile.clear();
}

bool PlayLevel::writeProject(const std::vector<tessaro::Level>& levels)
{
    // Replaced in one step: the game never reads half a project.
    return tessaro::saveLevels(levels, m_projectFile.toStdString());
}

void PlayLevel::sendEdits()
{
    if (!isRunning() || !m_tab)
        return;
    if (const auto& scene = m_tab->currentScene())
        scene->writeBack(m_tab->levelSelected());
    if (!writeProject(m_tab->levelConfig()))
        tessaro::diagnostic("Play Level: the edits could not be written to " + m_projectFile.toStdString());
}

bool PlayLevel::play(ProjectTab* tab, const QString& workspace)
{
    if (!tab) {
        fail(tr("There is no level open."));
        return false;
    }
    // The scene holds the level's latest state; the tab's copy catches up,
    // as it does before a save, but nothing is written to the user's file.
    if (const auto& scene = tab->currentScene())
        scene->writeBack(tab->levelSelected());
    const std::vector<tessaro::Level>& levels = tab->levelConfig();
    const auto selected = std::find_if(levels.begin(), levels.end(),
                                       [&](const tessaro::Level& level) { return level.id == tab->levelSelected(); });
    if (selected == levels.end()) {
        fail(tr("The project has no selected level."));
        return false;
    }
    const QString name = tab->filePath() ? QFileInfo(*tab->filePath()).completeBaseName() : tab->name();
    if (!play(levels, int(selected - levels.begin()) + 1, name, workspace))
        return false;
    if (m_tab != tab) {
        disconnect(m_edits);
        m_tab = tab;
        m_edits = connect(&tab->undoStack(), &QUndoStack::indexChanged, this, [this] { m_editsSettle.start(); });
    }
    return true;
}

bool PlayLevel::play(const std::vector<tessaro::Level>& levels, int levelNumber, const QString& projectName,
                     const QString& workspace)
{
    if (isRunning() && projectName == m_projectName && levelNumber == m_levelNumber &&
        m_arguments.value(0) == workspace) {
        // The game on show: it takes the levels as they are and starts over.
        m_editsSettle.stop();
        if (!writeProject(levels)) {
            fail(tr("The level could not be written to %1.").arg(m_projectFile));
            return false;
        }
        m_process->write("restart\n");
        return true;
    }
    stop();
    if (m_program.isEmpty()) {
        fail(tr("The game program %1 was found neither beside StageWright nor on the PATH.").arg(gameProgramName()));
        return false;
    }
    m_folder = temporaryFolderOutside(workspace);
    if (!m_folder) {
        fail(tr("No temporary folder could be made for the level."));
        return false;
    }
    const QString file = QDir(m_folder->path()).filePath(safeFileName(projectName) + QStringLiteral(".plist"));
    m_projectFile = file;
    if (!writeProject(levels)) {
        cleanUp();
        fail(tr("The level could not be written to %1.").arg(file));
        return false;
    }
    m_projectName = projectName;
    m_levelNumber = levelNumber;
    m_arguments = {workspace, file, QStringLiteral("--level"), QString::number(levelNumber), QStringLiteral("--watch")};

    m_process = new QProcess(this);
    // The game's lines appear where the editor's do; the last one tells
    // the user why a game stopped with a failure.
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    m_lastLine.clear();
    QProcess* process = m_process;
    connect(process, &QProcess::readyReadStandardOutput, this, [this, process] {
        const QByteArray output = process->readAllStandardOutput();
        std::fwrite(output.constData(), 1, size_t(output.size()), stdout);
        std::fflush(stdout);
        for (const QByteArray& line : output.split('\n'))
            if (!line.trimmed().isEmpty())
                m_lastLine = QString::fromLocal8Bit(line.trimmed());
    });
    connect(process, &QProcess::errorOccurred, this, [this, process](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart || process != m_process)
            return;
        const QString reason = process->errorString();
        m_process = nullptr;
        process->deleteLater();
        cleanUp();
        fail(tr("%1 could not be started: %2").arg(m_program, reason));
    });
    connect(process, &QProcess::finished, this, [this, process](int exitCode, QProcess::ExitStatus status) {
        if (process != m_process)
            return;
        m_process = nullptr;
        process->deleteLater();
        cleanUp();
        if (status == QProcess::CrashExit)
            fail(tr("The game stopped unexpectedly."));
        else if (exitCode != 0)
            fail(m_lastLine.isEmpty() ? tr("The game stopped with status %1.").arg(exitCode) : m_lastLine);
        emit finished(exitCode);
    });
    m_process->start(m_program, m_arguments);
    return m_process != nullptr; // a start that failed at once has been told
}

} // namespace stagewright
