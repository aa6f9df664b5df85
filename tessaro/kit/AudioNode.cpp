#include "AudioNode.h"

#include "Scene.h"
#include "Texture.h"

#include <QAudioOutput>
#include <QCoreApplication>
#include <QFile>
#include <QMediaPlayer>
#include <QSoundEffect>

#include <cstring>

namespace tessaro::kit {

namespace {
bool g_audioEnabled = true;

bool canPlay()
{
    return g_audioEnabled && QCoreApplication::instance() != nullptr;
}
} // namespace

struct AudioNode::Player {
    QAudioOutput output;
    QMediaPlayer player;
    Player() { player.setAudioOutput(&output); }
};

AudioNode::AudioNode() = default;

AudioNode::AudioNode(const QUrl& url) : m_url(url) {}

AudioNode::~AudioNode() = default;

std::shared_ptr<AudioNode> AudioNode::audioNodeWithFileNamed(const QString& name)
{
    const QString path = resources::locate(name,
                                           {QStringLiteral("wav"), QStringLiteral("mp3"), QStringLiteral("m4a"),
                                            QStringLiteral("ogg"), QStringLiteral("caf")});
    if (path.isEmpty())
        return nullptr;
    return std::make_shared<AudioNode>(QUrl::fromLocalFile(path));
}

void AudioNode::setAudioEnabled(bool enabled)
{
    g_audioEnabled = enabled;
}

bool AudioNode::isAudioEnabled()
{
    return g_audioEnabled;
}

void AudioNode::setVolume(float volume)
{
    m_volume = std::clamp(volume, 0.0f, 1.0f);
    if (m_player)
        m_player->output.setVolume(m_volume);
}

void AudioNode::ensurePlayer()
{
    if (m_player || !canPlay())
        return;
    m_player = std::make_unique<Player>();
    m_player->output.setVolume(m_volume);
    m_player->player.setSource(m_url);
}

void AudioNode::play()
{
    m_playing = true;
    ensurePlayer();
    if (!m_player)
        return;
    m_player->player.setLoops(m_autoplayLooped ? QMediaPlayer::Infinite : QMediaPlayer::Once);
    m_player->player.play();
}

void AudioNode::stop()
{
    m_playing = false;
    if (m_player)
        m_player->player.stop();
}

void AudioNode::startAutoplayIfShown()
{
    if (m_autoplayLooped && !m_playing && scene() && scene()->view())
        play();
}

void AudioNode::didEnterScene(Scene&)
{
    startAutoplayIfShown();
}

void AudioNode::willLeaveScene(Scene&)
{
    stop();
}

void playSoundFile(const QString& path)
{
    if (!canPlay() || path.isEmpty())
        return;
    if (path.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive)) {
        auto* effect = new QSoundEffect(QCoreApplication::instance());
        QObject::connect(effect, &QSoundEffect::playingChanged, effect, [effect] {
            if (!effect->isPlaying())
                effect->deleteLater();
        });
        effect->setSource(QUrl::fromLocalFile(path));
        effect->play();
        return;
    }
    auto* output = new QAudioOutput(QCoreApplication::instance());
    auto* player = new QMediaPlayer(output);
    player->setAudioOutput(output);
    QObject::connect(player, &QMediaPlayer::playbackStateChanged, output, [output](QMediaPlayer::PlaybackState s) {
        if (s == QMediaPlayer::StoppedState)
            output->deleteLater();
    });
    player->setSource(QUrl::fromLocalFile(path));
    player->play();
}

double wavFileDuration(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray head = file.read(12);
    if (head.size() < 12 || !head.startsWith("RIFF") || head.mid(8, 4) != "WAVE")
        return 0;
    auto le32 = [](const QByteArray& b, int at) {
        return quint32(quint8(b[at])) | (quint32(quint8(b[at + 1])) << 8) | (quint32(quint8(b[at + 2])) << 16) |
            (quint32(quint8(b[at + 3])) << 24);
    };
    quint32 byteRate = 0;
    while (!file.atEnd()) {
        const QByteArray chunk = file.read(8);
        if (chunk.size() < 8)
            break;
        const quint32 size = le32(chunk, 4);
        if (chunk.startsWith("fmt ")) {
            const QByteArray fmt = file.read(size);
            if (fmt.size() >= 12)
                byteRate = le32(fmt, 8);
            if (size % 2)
                file.read(1);
        } else if (chunk.startsWith("data")) {
            return byteRate > 0 ? double(size) / byteRate : 0;
        } else {
            file.seek(file.pos() + size + (size % 2));
        }
    }
    return 0;
}

} // namespace tessaro::kit
