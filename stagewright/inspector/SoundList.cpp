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

namespace {

template <class Level>
auto* soundsOf(Level& level, SoundPropertyType type)
{
    using Sounds = decltype(&level.coins->soundEffects);
    auto of = [](auto& record) -> Sounds { return record ? &record->soundEffects : nullptr; };
    switch (type) {
    case SoundPropertyType::object: break;
    case SoundPropertyType::background: return of(level.background);
    case SoundPropertyType::coin: return of(level.coins);
    case SoundPropertyType::artifact: return of(level.artifacts);
    case SoundPropertyType::shield: return of(level.shields);
    case SoundPropertyType::checkpoint: return of(level.checkpoints);
    case SoundPropertyType::levelEnd: return of(level.levelEnd);
    case SoundPropertyType::phaseEnd: return of(level.phaseEnd);
    }
    return Sounds(nullptr);
}

} // namespace

std::optional<std::vector<GameSound>>* levelSounds(tessaro::Level& level, SoundPropertyType type)
{
    return soundsOf(level, type);
}

const std::optional<std::vector<GameSound>>* levelSounds(const tessaro::Level& level, SoundPropertyType type)
{
    return soundsOf(level, type);
}

std::optional<tessaro::FieldPath> levelSoundsPath(SoundPropertyType type)
{
    const char* record = nullptr;
    switch (type) {
    case SoundPropertyType::object: return std::nullopt;
    case SoundPropertyType::background: record = "background"; break;
    case SoundPropertyType::coin: record = "coins"; break;
    case SoundPropertyType::artifact: record = "artifacts"; break;
    case SoundPropertyType::shield: record = "shields"; break;
    case SoundPropertyType::checkpoint: record = "checkpoints"; break;
    case SoundPropertyType::levelEnd: record = "levelEnd"; break;
    case SoundPropertyType::phaseEnd: record = "phaseEnd"; break;
    }
    return tessaro::FieldPath(record) / "soundEffects";
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
