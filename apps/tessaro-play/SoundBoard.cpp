#include "SoundBoard.h"

#include <tessaro/kit/AudioNode.h>
#include <tessaro/kit/Texture.h>
#include <tessaro/model/Diagnostics.h>

#include <QUrl>

#include <algorithm>

namespace play {

using namespace tessaro;

namespace {

bool isOfType(const GameSound& sound, soundBiteType type)
{
    return caseFromText<soundBiteType>(sound.type) == type;
}

std::string fileName(const GameSound& sound)
{
    return sound.filename + "." + sound.fileExtension;
}

} // namespace

void SoundBoard::play(const std::vector<GameSound>& sounds, soundBiteType type)
{
    if (!m_scene.soundFxEnabled())
        return;
    for (const GameSound& sound : sounds) {
        if (!isOfType(sound, type))
            continue;
        const QString path = fileOf(sound);
        if (path.isEmpty())
            continue;
        kit::playSoundFile(path);
        count(fileName(sound));
    }
}

void SoundBoard::loop(const std::vector<GameSound>& sounds, kit::Node& holder)
{
    if (!m_scene.soundFxEnabled())
        return;
    for (const GameSound& sound : sounds) {
        if (!isOfType(sound, soundBiteType::background))
            continue;
        const QString path = fileOf(sound);
        if (path.isEmpty())
            continue;
        auto audio = std::make_shared<kit::AudioNode>(QUrl::fromLocalFile(path));
        audio->setName(QStringLiteral("audio_background_") + QString::fromStdString(sound.filename));
        audio->setPositional(false);
        audio->setAutoplayLooped(true);
        if (sound.volume)
            audio->setVolume(float(*sound.volume));
        holder.addChild(audio);
        count(fileName(sound));
    }
}

QString SoundBoard::fileOf(const GameSound& sound)
{
    const QString path =
        kit::resources::locate(QString::fromStdString(sound.filename), {QString::fromStdString(sound.fileExtension)});
    if (path.isEmpty() && m_missing.insert(fileName(sound)).second)
        diagnostic("Sound file not found: " + fileName(sound));
    return path;
}

void SoundBoard::count(const std::string& name)
{
    const auto found = std::find_if(m_started.begin(), m_started.end(), [&](const auto& e) { return e.first == name; });
    if (found == m_started.end())
        m_started.emplace_back(name, 1);
    else
        ++found->second;
}

} // namespace play
