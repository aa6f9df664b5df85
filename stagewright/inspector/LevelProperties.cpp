#include "LevelProperties.h"

#include "LevelPropertyCommand.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/ConfigFiles.h>

#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <type_traits>

namespace stagewright {

using K = tessaro::sceneObjectType;

namespace {

/// The repeat distance: a point to the sheet, point text in the record.
template <class Text>
struct pointText {
    Text& text;
};

/// Calls `f` with the field that `selector` names in the kind's sub-record of
/// `level`; false when there is no such field (the sub-record is absent). The
/// repeat distance is handed as a point, or as its text when `asStored`.
template <class LevelT, class F>
bool withField(LevelT& level, K kind, int selector, bool asStored, F&& f)
{
    const auto give = [&](auto&& field) {
        f(field);
        return true;
    };
    const auto sounds = [&](auto& record) {
        return record && selector == levelField::soundEffects && give(record->soundEffects);
    };
    switch (kind) {
    case K::checkpoint:
        if (level.checkpoints && selector == levelField::image)
            return give(level.checkpoints->image);
        if (level.checkpoints && selector == levelField::animateFromImage)
            return give(level.checkpoints->animateFromImage);
        return sounds(level.checkpoints);
    case K::coin:
        if (level.coins && selector == levelField::startCoinNumber)
            return give(level.coins->startCoinNumber);
        if (level.coins && selector == levelField::image)
            return give(level.coins->image);
        if (level.coins && selector == levelField::repeatDistance)
            return asStored ? give(level.coins->repeatDistance) : give(pointText{level.coins->repeatDistance});
        return sounds(level.coins);
    case K::shield:
        if (level.shields && selector == levelField::image)
            return give(level.shields->image);
        return sounds(level.shields);
    case K::artifact:
        if (level.artifacts && selector == levelField::startArtifactNumber)
            return give(level.artifacts->startArtifactNumber);
        if (level.artifacts && selector == levelField::image)
            return give(level.artifacts->image);
        return sounds(level.artifacts);
    case K::background: return sounds(level.background);
    case K::levelEnd: return sounds(level.levelEnd);
    case K::phaseEnd: return sounds(level.phaseEnd);
    default: return false;
    }
}

template <class T>
std::optional<levelPropertyValue> read(const std::optional<T>& field)
{
    return field ? std::optional<levelPropertyValue>(*field) : std::nullopt;
}

std::optional<levelPropertyValue> read(const std::string& field)
{
    return field;
}

template <class Text>
std::optional<levelPropertyValue> read(const pointText<Text>& field)
{
    return field.text ? std::optional<levelPropertyValue>(tessaro::pointFromText(*field.text)) : std::nullopt;
}

template <class T>
bool write(std::optional<T>& field, const std::optional<levelPropertyValue>& value)
{
    if (!value) {
        field.reset();
        return true;
    }
    const T* typed = std::get_if<T>(&*value);
    if (!typed)
        return false;
    field = *typed;
    return true;
}

bool write(std::string& field, const std::optional<levelPropertyValue>& value)
{
    // The checkpoints' image is always there; taken out, it is empty.
    const std::string* typed = value ? std::get_if<std::string>(&*value) : nullptr;
    if (value && !typed)
        return false;
    field = typed ? *typed : std::string();
    return true;
}

bool write(pointText<std::optional<std::string>> field, const std::optional<levelPropertyValue>& value)
{
    if (!value) {
        field.text.reset();
        return true;
    }
    const tessaro::PointValue* typed = std::get_if<tessaro::PointValue>(&*value);
    if (!typed)
        return false;
    field.text = tessaro::textFromPoint(*typed);
    return true;
}

} // namespace

std::optional<std::optional<levelPropertyValue>> levelProperty(const tessaro::Level& level, K kind, int selector)
{
    std::optional<std::optional<levelPropertyValue>> result;
    withField(level, kind, selector, false, [&](const auto& field) { result = read(field); });
    return result;
}

bool writeLevelProperty(tessaro::Level& level, K kind, int selector, const std::optional<levelPropertyValue>& value)
{
    bool written = false;
    withField(level, kind, selector, false, [&](auto&& field) { written = write(field, value); });
    return written;
}

std::optional<std::optional<levelPropertyValue>> storedLevelProperty(const tessaro::Level& level, K kind, int selector)
{
    std::optional<std::optional<levelPropertyValue>> result;
    withField(level, kind, selector, true, [&](const auto& field) { result = read(field); });
    return result;
}

bool restoreLevelProperty(tessaro::Level& level, K kind, int selector, const std::optional<levelPropertyValue>& stored)
{
    bool written = false;
    withField(level, kind, selector, true, [&](auto&& field) { written = write(field, stored); });
    return written;
}

void updateLevelProperty(projectTab& tab, K kind, int selector, levelPropertyValue value)
{
    const std::vector<tessaro::Level>& levels = tab.levelConfig();
    if (levels.empty())
        return;
    const tessaro::Level* level = tab.findLevel(tab.levelSelected());
    const tessaro::Uuid levelId = level ? tab.levelSelected() : levels.front().id.value_or(tessaro::Uuid());
    pushStep(tab.undoStack(), new LevelPropertyCommand(tab, levelId, kind, selector, std::move(value)));
}

levelTabValues levelTabValuesOf(const tessaro::Level& level, K kind)
{
    levelTabValues values;
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

std::vector<levelImageChoice> levelImageChoices(tessaro::sceneObjectType kind, const std::vector<fileItem>& images)
{
    const auto pictureOf = [&](const std::optional<std::string>& image) {
        for (const fileItem& item : images)
            if (image && item.sceneObjectType == kind && item.name == QString::fromStdString(*image))
                return item.path();
        return QString();
    };
    std::vector<levelImageChoice> choices;
    if (kind == tessaro::sceneObjectType::checkpoint) {
        for (const tessaro::GenericObject& record : tessaro::objectCatalogue())
            if (record.elementName && record.sceneObjectType == tessaro::caseText(kind))
                choices.push_back({QString::fromStdString(*record.elementName), pictureOf(record.image)});
        std::stable_sort(choices.begin(), choices.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
        return choices;
    }
    for (const fileItem& item : images)
        if (item.sceneObjectType == kind)
            choices.push_back({item.name, item.path()});
    return choices;
}

const std::vector<levelPropertiesTab>& levelPropertiesTabs()
{
    static const std::vector<levelPropertiesTab> tabs{
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

std::vector<levelPropertyRow> levelPropertyRows(K kind)
{
    using C = levelPropertyControl;
    const levelPropertyRow image{"Image", C::image, 0, 0, levelField::image};
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
