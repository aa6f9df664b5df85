#include "SoundList.h"

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

bool setSoundField(std::vector<GameSound>& sounds, std::size_t index, soundField field, const soundFieldValue& value)
{
    if (index >= sounds.size())
        return false;
    GameSound& sound = sounds[index];
    const std::string* text = std::get_if<std::string>(&value);
    switch (field) {
    case soundField::filename:
        if (!text)
            return false;
        sound.filename = *text;
        return true;
    case soundField::fileExtension:
        if (!text)
            return false;
        sound.fileExtension = *text;
        return true;
    case soundField::type:
        if (!text)
            return false;
        sound.type = *text;
        return true;
    case soundField::volume:
        if (const double* number = std::get_if<double>(&value)) {
            sound.volume = *number;
            return true;
        }
        return false;
    case soundField::waitForCompletion:
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

namespace {

template <class Level>
auto* soundsOf(Level& level, soundPropertyType type)
{
    using Sounds = decltype(&level.coins->soundEffects);
    auto of = [](auto& record) -> Sounds { return record ? &record->soundEffects : nullptr; };
    switch (type) {
    case soundPropertyType::object: break;
    case soundPropertyType::background: return of(level.background);
    case soundPropertyType::coin: return of(level.coins);
    case soundPropertyType::artifact: return of(level.artifacts);
    case soundPropertyType::shield: return of(level.shields);
    case soundPropertyType::checkpoint: return of(level.checkpoints);
    case soundPropertyType::levelEnd: return of(level.levelEnd);
    case soundPropertyType::phaseEnd: return of(level.phaseEnd);
    }
    return Sounds(nullptr);
}

} // namespace

std::optional<std::vector<GameSound>>* levelSounds(tessaro::Level& level, soundPropertyType type)
{
    return soundsOf(level, type);
}

const std::optional<std::vector<GameSound>>* levelSounds(const tessaro::Level& level, soundPropertyType type)
{
    return soundsOf(level, type);
}

soundPropertyType soundPropertyTypeOf(sceneObjectType kind)
{
    switch (kind) {
    case sceneObjectType::checkpoint: return soundPropertyType::checkpoint;
    case sceneObjectType::coin: return soundPropertyType::coin;
    case sceneObjectType::shield: return soundPropertyType::shield;
    case sceneObjectType::artifact: return soundPropertyType::artifact;
    case sceneObjectType::background: return soundPropertyType::background;
    case sceneObjectType::levelEnd: return soundPropertyType::levelEnd;
    case sceneObjectType::phaseEnd: return soundPropertyType::phaseEnd;
    case sceneObjectType::obstacles:
    case sceneObjectType::character:
    case sceneObjectType::ground:
    case sceneObjectType::none: break;
    }
    return soundPropertyType::object;
}

bool keepsOwnSounds(sceneObjectType kind)
{
    return kind == sceneObjectType::obstacles || kind == sceneObjectType::character;
}

QStringList soundFilenameChoices(const std::vector<fileItem>& audioList, const QString& current)
{
    QStringList names;
    for (const fileItem& item : audioList)
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
