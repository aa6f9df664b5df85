#include "LevelProperties.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SetFieldCommand.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/FieldPath.h>
#include <tessaro/model/ValueText.h>

#include <QCoreApplication>

#include <algorithm>
#include <type_traits>

namespace stagewright {

using K = tessaro::sceneObjectType;

namespace {

/// A stored field as the sheet shows it: the repeat distance is point text
/// in the record and a point on the sheet.
std::optional<LevelPropertyValue> shownValue(int selector, const tessaro::FieldValue& stored)
{
    if (!stored.has_value())
        return std::nullopt;
    if (const auto* text = std::any_cast<std::string>(&stored))
        return selector == levelField::repeatDistance ? LevelPropertyValue(tessaro::pointFromText(*text))
                                                      : LevelPropertyValue(*text);
    if (const auto* number = std::any_cast<std::int64_t>(&stored))
        return *number;
    if (const auto* sounds = std::any_cast<std::vector<tessaro::GameSound>>(&stored))
        return *sounds;
    return std::nullopt;
}

/// A value of the sheet as the record stores it. The checkpoints' image is
/// always there; taken out, it is empty.
tessaro::FieldValue storedValue(K kind, int selector, const std::optional<LevelPropertyValue>& value)
{
    if (!value)
        return kind == K::checkpoint && selector == levelField::image ? tessaro::FieldValue(std::string())
                                                                      : tessaro::FieldValue();
    return std::visit(
        [&](const auto& typed) -> tessaro::FieldValue {
            using T = std::decay_t<decltype(typed)>;
            // The repeat distance takes a point and nothing else.
            if (selector == levelField::repeatDistance) {
                if constexpr (std::is_same_v<T, tessaro::PointValue>)
                    return tessaro::textFromPoint(typed);
                else
                    return std::monostate{};
            }
            return typed;
        },
        *value);
}

QString fieldTitle(int selector)
{
    switch (selector) {
    case levelField::startArtifactNumber:
        return QCoreApplication::translate("LevelProperties", "Start Artifact Number");
    case levelField::startCoinNumber: return QCoreApplication::translate("LevelProperties", "Start Coin Number");
    case levelField::soundEffects: return QCoreApplication::translate("LevelProperties", "Sounds");
    case levelField::image: return QCoreApplication::translate("LevelProperties", "Image");
    case levelField::repeatDistance: return QCoreApplication::translate("LevelProperties", "Repeat Distance");
    case levelField::animateFromImage: return QCoreApplication::translate("LevelProperties", "Animate at Image");
    default: return {};
    }
}

std::size_t soundCount(const std::optional<LevelPropertyValue>& value)
{
    const auto* sounds = value ? std::get_if<std::vector<tessaro::GameSound>>(&*value) : nullptr;
    return sounds ? sounds->size() : 0;
}

} // namespace

std::optional<tessaro::FieldPath> levelFieldPath(K kind, int selector)
{
    const char* record = nullptr;
    switch (kind) {
    case K::checkpoint: record = "checkpoints"; break;
    case K::coin: record = "coins"; break;
    case K::shield: record = "shields"; break;
    case K::artifact: record = "artifacts"; break;
    case K::background: record = "background"; break;
    case K::levelEnd: record = "levelEnd"; break;
    case K::phaseEnd: record = "phaseEnd"; break;
    default: return std::nullopt;
    }
    const auto in = [&](std::initializer_list<K> kinds) {
        return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
    };
    const char* field = nullptr;
    switch (selector) {
    case levelField::soundEffects: field = "soundEffects"; break;
    case levelField::image: field = in({K::checkpoint, K::coin, K::shield, K::artifact}) ? "image" : nullptr; break;
    case levelField::animateFromImage: field = kind == K::checkpoint ? "animateFromImage" : nullptr; break;
    case levelField::startCoinNumber: field = kind == K::coin ? "startCoinNumber" : nullptr; break;
    case levelField::repeatDistance: field = kind == K::coin ? "repeatDistance" : nullptr; break;
    case levelField::startArtifactNumber: field = kind == K::artifact ? "startArtifactNumber" : nullptr; break;
    default: break;
    }
    if (!field)
        return std::nullopt;
    return tessaro::FieldPath(record) / field;
}

std::optional<std::optional<LevelPropertyValue>> levelProperty(const tessaro::Level& level, K kind, int selector)
{
    const std::optional<tessaro::FieldPath> path = levelFieldPath(kind, selector);
    tessaro::FieldValue stored;
    if (!path || !tessaro::readField(level, *path, stored))
        return std::nullopt;
    return shownValue(selector, stored);
}

bool writeLevelProperty(tessaro::Level& level, K kind, int selector, const std::optional<LevelPropertyValue>& value)
{
    const std::optional<tessaro::FieldPath> path = levelFieldPath(kind, selector);
    return path && tessaro::writeField(level, *path, storedValue(kind, selector, value));
}

void updateLevelProperty(ProjectTab& tab, K kind, int selector, LevelPropertyValue value)
{
    const std::vector<tessaro::Level>& levels = tab.levelConfig();
    if (levels.empty())
        return;
    const tessaro::Level* level = tab.findLevel(tab.levelSelected());
    const tessaro::Uuid levelId = level ? tab.levelSelected() : levels.front().id.value_or(tessaro::Uuid());
    if (!level)
        level = &levels.front();
    // An absent sub-record, or the value already shown (a repeat distance
    // typed as another text of the same point): nothing to write.
    const auto shown = levelProperty(*level, kind, selector);
    if (!shown || *shown == value)
        return;
    // A chosen image, and a sound added or taken out, are steps of their
    // own; numbers and a sound edited in place join while they follow.
    const bool joins = selector != levelField::image &&
        !(selector == levelField::soundEffects && soundCount(value) != soundCount(*shown));
    const QString text = QCoreApplication::translate("LevelProperties", "Change %1 %2")
                             .arg(QString::fromUtf8(tessaro::caseText(kind)), fieldTitle(selector));
    pushStep(tab.undoStack(),
             new SetFieldCommand(tab.document(), levelId, *levelFieldPath(kind, selector),
                                 storedValue(kind, selector, value), text, joins));
}

LevelTabValues levelTabValuesOf(const tessaro::Level& level, K kind)
{
    LevelTabValues values;
    const auto take = [&](int selector, auto& target) {
        using Target = std::remove_reference_t<decltype(target)>;
        const auto field = levelProperty(level, kind, selector);
        if (field && *field)
            if (const Target* value = std::get_if<Target>(&**field))
                target = *value;
    };
    take(levelField::soundEffects, values.sounds);
    take(levelField::image, values.imageName);
    take(levelField::animateFromImage, values.animateFromImage);
    take(levelField::startCoinNumber, values.startCoinNumber);
    take(levelField::repeatDistance, values.repeatDistance);
    take(levelField::startArtifactNumber, values.startArtifactNumber);
    return values;
}

std::vector<LevelImageChoice> levelImageChoices(tessaro::sceneObjectType kind, const std::vector<FileItem>& images)
{
    const auto pictureOf = [&](const std::optional<std::string>& image) {
        for (const FileItem& item : images)
            if (image && item.sceneObjectType == kind && item.name == QString::fromStdString(*image))
                return item.path();
        return QString();
    };
    std::vector<LevelImageChoice> choices;
    if (kind == tessaro::sceneObjectType::checkpoint) {
        for (const tessaro::GenericObject& record : tessaro::objectCatalogue())
            if (record.elementName && record.sceneObjectType == tessaro::caseText(kind))
                choices.push_back({QString::fromStdString(*record.elementName), pictureOf(record.image)});
        std::stable_sort(choices.begin(), choices.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
        return choices;
    }
    for (const FileItem& item : images)
        if (item.sceneObjectType == kind)
            choices.push_back({item.name, item.path()});
    return choices;
}

const std::vector<LevelPropertiesTab>& levelPropertiesTabs()
{
    static const std::vector<LevelPropertiesTab> tabs{
        {"Background", "app.background.dotted", K::background},
        {"Checkpoints", "flag.pattern.checkered", K::checkpoint},
        {"Coins", "bitcoinsign.circle", K::coin},
        {"Shields", "shield", K::shield},
        {"Artifacts", "scroll", K::artifact},
        {"Level end", "moonphase.waning.crescent", K::levelEnd},
        {"Phase end", "moonphase.full.moon", K::phaseEnd},
    };
    return tabs;
}

std::vector<LevelPropertyRow> levelPropertyRows(K kind)
{
    using C = LevelPropertyControl;
    const LevelPropertyRow image{"Image", C::image, 0, 0, levelField::image};
    switch (kind) {
    case K::checkpoint: return {image, {"Animate at image", C::integer, -200, 200, levelField::animateFromImage}};
    case K::coin:
        return {image,
                {"Repeat distance", C::point, 0, 0, levelField::repeatDistance},
                {"Start coin number", C::integer, 0, 1000, levelField::startCoinNumber}};
    case K::shield: return {image};
    case K::artifact: return {image, {"Start artifact number", C::integer, 0, 1000, levelField::startArtifactNumber}};
    default: return {};
    }
}

} // namespace stagewright
