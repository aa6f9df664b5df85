// Listening to a sound of a row: the file of the sound's name and extension
// in the workspace's sound folder. A missing or unreadable file gives a
// diagnostic line and no sound.
#pragma once

#include <tessaro/model/CommonRecords.h>

#include <QObject>
#include <QString>

class QAudioOutput;
class QMediaPlayer;
class QSoundEffect;

namespace stagewright {

class SoundPreview : public QObject {
    Q_OBJECT
public:
    explicit SoundPreview(QObject* parent = nullptr);
    ~SoundPreview() override;

    /// The file of `sound` in the current workspace's sound folder.
    static QString soundPath(const tessaro::GameSound& sound);

    /// Starts `sound` at its volume, stopping the one playing. False, with the
    /// line "Sound not played: <path> (<reason>)", when the file cannot be
    /// read; a file that turns out not to be a sound gives the line later.
    bool play(const tessaro::GameSound& sound);
    void stop();

private:
    void report(const QString& path, const QString& reason) const;

    QSoundEffect* m_effect = nullptr;
    QMediaPlayer* m_player = nullptr;
    QAudioOutput* m_output = nullptr;
    QString m_playing;
};

} // namespace stagewright
