// A node that plays a sound file through Qt Multimedia.
//
// Nothing touches the audio system until the sound is first played: either
// play() is called, or the node (with autoplayLooped on) is in a scene that
// is shown in a view. Audio can be switched off for the whole process with
// setAudioEnabled(false); the nodes then keep their state without playing.
#pragma once

#include "Node.h"

#include <QUrl>

#include <memory>

namespace tessaro::kit {

class AudioNode : public Node {
public:
    AudioNode();
    explicit AudioNode(const QUrl& url);
    ~AudioNode() override;

    /// A node for the file `name` under the resource search paths (null when
    /// no such file exists).
    static std::shared_ptr<AudioNode> audioNodeWithFileNamed(const QString& name);

    QUrl url() const { return m_url; }
    /// Loops the sound from the moment the node is shown in a view. Default true.
    bool autoplayLooped() const { return m_autoplayLooped; }
    void setAutoplayLooped(bool on) { m_autoplayLooped = on; }
    /// Whether the volume should follow the distance to the listener. Stored
    /// for games; the kit plays all sounds at their volume.
    bool isPositional() const { return m_positional; }
    void setPositional(bool on) { m_positional = on; }
    /// 0 to 1.
    float volume() const { return m_volume; }
    void setVolume(float volume);

    void play();
    void stop();
    /// True between play() and stop().
    bool isPlaying() const { return m_playing; }
    /// True once the audio objects exist (the first real play).
    bool hasPlayer() const { return m_player != nullptr; }

    static void setAudioEnabled(bool enabled);
    static bool isAudioEnabled();

protected:
    void didEnterScene(Scene& scene) override;
    void willLeaveScene(Scene& scene) override;

private:
    friend class Scene;
    void startAutoplayIfShown();
    void ensurePlayer();

    QUrl m_url;
    bool m_autoplayLooped = true;
    bool m_positional = true;
    bool m_playing = false;
    float m_volume = 1.0f;
    struct Player;
    std::unique_ptr<Player> m_player;
};

using AudioNodePtr = std::shared_ptr<AudioNode>;

/// Plays a one-shot sound file (WAV through QSoundEffect, other formats
/// through a media player) unless audio is disabled.
void playSoundFile(const QString& path);
/// The length of a WAV file in seconds, or 0 when unknown.
double wavFileDuration(const QString& path);

} // namespace tessaro::kit
