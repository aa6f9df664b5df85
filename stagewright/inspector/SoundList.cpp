#include "SoundList.h"

#include "LevelProperties.h"

namespace stagewright {

using tessaro::GameSound;
using tessaro::sceneObjectType;

GameSound newGameSound()
{
    GameSound sound;
    sound.id = tessaro::Uuid::create();
    sound.type = std::string(tessaro::caseText(tessaro::soundBiteType::none));
    sound.filename = "[NEW]";
    sound.fileExtension = std::string(tessaro::caseText(tessaro::soundType::wav));
    sound.volume = 0.5;
    sound.waitForCompletion = true;
    return sound;
}

void appendNewSound(std::vector<GameSound>& sounds)
{
    sounds.push_back(newGameSound());
}

bool removeSound(std::vector<GameSound>& sounds, std::size_t index)
{
    if (index >= sounds.size())
        return false;
    sounds.erase(sounds.begin() + std::ptrdiff_t(index));
    return true;
}

bool setSoundField(std::vector<GameSound>& sounds, std::size_t index, SoundField field, const SoundFieldValue& value)
{
    if (index >= sounds.size())
        return false;
    GameSound& sound = sounds[index];
    const std::string* text = std::get_if<std::string>(&value);
    switch (field) {
    case SoundField::filename:
        if (!text)
            return false;
        sound.filename = *text;
        return true;
    case SoundField::fileExtension:
        if (!text)
            return false;
        sound.fileExtension = *text;
        return true;
    case SoundField::type:
        if (!text)
            return false;
        sound.type = *text;
        return true;
    case SoundField::volume:
        if (const double* number = std::get_if<double>(&value)) {
            sound.volume = *number;
            return true;
        }
        return false;
    case SoundField::waitForCompletion:
        if (const bool* flag = std::get_if<bool>(&value)) {
            sound.waitForCompletion = *flag;
            return true;
        }
        return false;
    }
    return false;
}

double shownVolume(const GameSound& sound)
{
    return sound.volume.value_or(1.0);
}

bool shownWaitForCompletion(const GameSound& sound)
{
    return sound.waitForCompletion.value_or(true);
}

std::optional<tessaro::FieldPath> levelSoundsPath(SoundPropertyType type)
{
    for (sceneObjectType kind :
         {sceneObjectType::background, sceneObjectType::coin, sceneObjectType::artifact, sceneObjectType::shield,
          sceneObjectType::checkpoint, sceneObjectType::levelEnd, sceneObjectType::phaseEnd})
        if (soundPropertyTypeOf(kind) == type)
            return levelFieldPath(kind, levelField::soundEffects);
    return std::nullopt;
}

std::optional<std::vector<GameSound>> levelSoundList(const tessaro::Level& level, SoundPropertyType type)
{
    const std::optional<tessaro::FieldPath> path = levelSoundsPath(type);
    tessaro::FieldValue stored;
    if (!path || !tessaro::readField(level, *path, stored))
        return std::nullopt;
    const auto* sounds = std::any_cast<std::vector<GameSound>>(&stored);
    return sounds ? *sounds : std::vector<GameSound>{};
}

SoundPropertyType soundPropertyTypeOf(sceneObjectType kind)
{
    switch (kind) {
    case sceneObjectType::checkpoint: return SoundPropertyType::checkpoint;
    case sceneObjectType::coin: return SoundPropertyType::coin;
    case sceneObjectType::shield: return SoundPropertyType::shield;
    case sceneObjectType::artifact: return SoundPropertyType::artifact;
    case sceneObjectType::background: return SoundPropertyType::background;
    case sceneObjectType::levelEnd: return SoundPropertyType::levelEnd;
    case sceneObjectType::phaseEnd: return SoundPropertyType::phaseEnd;
    case sceneObjectType::obstacles:
    case sceneObjectType::character:
    case sceneObjectType::ground:
    case sceneObjectType::none: break;
    }
    return SoundPropertyType::object;
}

bool keepsOwnSounds(sceneObjectType kind)
{
    return kind == sceneObjectType::obstacles || kind == sceneObjectType::character;
}

QStringList soundFilenameChoices(const std::vector<FileItem>& audioList, const QString& current)
{
    QStringList names;
    for (const FileItem& item : audioList)
        if (!names.contains(item.name))
            names.append(item.name);
    if (!names.contains(current))
        names.prepend(current);
    return names;
}

namespace {

template <tessaro::Enumeration E>
QStringList caseTexts()
{
    QStringList texts;
    for (E value : tessaro::allCases<E>()) {
        const std::string_view text = tessaro::caseText(value);
        texts.append(QString::fromUtf8(text.data(), qsizetype(text.size())));
    }
    return texts;
}

} // namespace

QStringList soundExtensionChoices()
{
    return caseTexts<tessaro::soundType>();
}

QStringList soundTypeChoices()
{
    return caseTexts<tessaro::soundBiteType>();
}

} // namespace stagewright
