#include "SoundPreview.h"

#include "SoundList.h"

#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/Diagnostics.h>

#include <QAudioOutput>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QSoundEffect>
#include <QUrl>

namespace stagewright {

SoundPreview::SoundPreview(QObject* parent) : QObject(parent) {}

SoundPreview::~SoundPreview() = default;

QString SoundPreview::soundPath(const tessaro::GameSound& sound)
{
    return soundsFolder(workingSpacePath()) + QString::fromStdString(sound.filename) + QLatin1Char('.') +
        QString::fromStdString(sound.fileExtension);
}

void SoundPreview::report(const QString& path, const QString& reason) const
{
    tessaro::diagnostic(
        (QStringLiteral("Sound not played: ") + path + QStringLiteral(" (") + reason + QLatin1Char(')')).toStdString());
}

bool SoundPreview::play(const tessaro::GameSound& sound)
{
    stop();
    const QString path = soundPath(sound);
    const QString filename = QString::fromStdString(sound.filename);
    const QString extension = QString::fromStdString(sound.fileExtension);
    if (!isPlainFileName(filename) || !isPlainFileName(extension)) {
        report(path, QStringLiteral("not a file name"));
        return false;
    }
    bool readable = false;
    const QString workspace = workingSpacePath();
    PermissionManager::shared().withAccess(workspace.isEmpty() ? QFileInfo(path).absolutePath() : workspace, [&] {
        const QFileInfo file(path);
        readable = file.isFile() && file.isReadable();
    });
    if (!readable) {
        report(path,
               QFileInfo::exists(path) ? QStringLiteral("the file cannot be read") : QStringLiteral("no such file"));
        return false;
    }

    m_playing = path;
    const float volume = float(std::clamp(shownVolume(sound), 0.0, 1.0));
    if (extension == QLatin1String("wav")) {
        // Short effects play without the media framework.
        if (!m_effect) {
            m_effect = new QSoundEffect(this);
            connect(m_effect, &QSoundEffect::statusChanged, this, [this] {
                if (m_effect->status() == QSoundEffect::Error)
                    report(m_playing, QStringLiteral("the file is not a sound it can play"));
            });
        }
        m_effect->setSource(QUrl::fromLocalFile(path));
        m_effect->setVolume(volume);
        m_effect->play();
        return true;
    }
    if (!m_player) {
        m_player = new QMediaPlayer(this);
        m_output = new QAudioOutput(this);
        m_player->setAudioOutput(m_output);
        connect(m_player, &QMediaPlayer::errorOccurred, this,
                [this](QMediaPlayer::Error, const QString& text) { report(m_playing, text); });
    }
    m_output->setVolume(volume);
    m_player->setSource(QUrl::fromLocalFile(path));
    m_player->play();
    return true;
}

void SoundPreview::stop()
{
    if (m_effect)
        m_effect->stop();
    if (m_player)
        m_player->stop();
}

} // namespace stagewright
