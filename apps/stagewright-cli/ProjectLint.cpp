#include "ProjectLint.h"

#include "LevelWalk.h"

#include <tessaro/model/FileNames.h>
#include <tessaro/model/NameLists.h>
#include <tessaro/model/PlistCodec.h>
#include <tessaro/model/ValueText.h>

#include <filesystem>

namespace stagewright::cli {

using namespace tessaro;

namespace {

std::string inQuotes(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

/// A name that would reach outside its folder. An empty name names no file
/// at all, which is a missing file, not an escape.
bool leadsOut(std::string_view name)
{
    return !name.empty() && !isPlainFileName(name);
}

template <class R>
const R* findByName(const std::vector<R>& catalogue, const std::string& elementName)
{
    for (const R& record : catalogue)
        if (record.elementName == elementName)
            return &record;
    return nullptr;
}

/// The object that stands for a level's coins: "coin" of kind coin, else the
/// first object of kind coin, as the canvas picks it.
const GenericObject* coinObject(const std::vector<GenericObject>& objects)
{
    const GenericObject* first = nullptr;
    for (const GenericObject& record : objects) {
        if (record.sceneObjectType != "coin")
            continue;
        if (record.elementName == "coin")
            return &record;
        if (!first)
            first = &record;
    }
    return first;
}

const GenericObject* checkpointObject(const std::vector<GenericObject>& objects, const std::string& elementName)
{
    for (const GenericObject& record : objects)
        if (record.elementName == elementName && record.sceneObjectType == "checkpoint")
            return &record;
    return nullptr;
}

class LevelLint : public LevelVisitor {
public:
    LevelLint(std::size_t number, const LintCatalogues& catalogues, WorkspaceFiles& files,
              std::vector<LintFinding>& findings)
        : m_number(number),
          m_catalogues(catalogues),
          m_files(files),
          m_findings(findings)
    {
    }

    void run(const Level& level)
    {
        if (!level.ground || level.ground->empty())
            add(LintKind::noGround, "level", "the level has no ground");
        if (!level.levelEnd)
            add(LintKind::noLevelEnd, "level", "the level has no level end window");

        if (level.background)
            forEach(level.background->backgrounds, [&](const BackgroundImage& layer, const std::string& item) {
                images(item, sceneObjectType::background, layer.image, "image");
            });
        forEach(level.ground, [&](const GroundSection& section, const std::string& item) {
            images(item, sceneObjectType::ground, section.image, "image");
            images(item, sceneObjectType::ground, section.imageBottomLayer, "bottom layer image");
        });
        placedItems(level.obstacles, level.characters, {});
        checkpoints(level.checkpoints);
        coins(level.coins);
        if (level.shields) {
            images("shields", sceneObjectType::shield, level.shields->image, "image");
            forEach(level.shields->shields, [&](const Shield& shield, const std::string& item) {
                images(item, sceneObjectType::shield, shield.image, "image");
            });
        }
        if (level.artifacts) {
            images("artifacts", sceneObjectType::artifact, level.artifacts->image, "image");
            forEach(level.artifacts->artifacts, [&](const Artifact& artifact, const std::string& item) {
                images(item, sceneObjectType::artifact, artifact.image, "image");
            });
        }
        endWindow(level.levelEnd, "levelEnd", sceneObjectType::levelEnd);
        endWindow(level.phaseEnd, "phaseEnd", sceneObjectType::phaseEnd);

        walkLevel(level, *this);
    }

    void badValue(const ValuePlace& place, std::string_view text, const std::string& problem) override
    {
        add(LintKind::badValue, place.item, place.field + " " + inQuotes(text) + ": " + problem);
    }

    void sound(const ValuePlace& place, const GameSound& sound) override
    {
        const std::string where = place.field.empty() ? std::string() : place.field + ": ";
        const std::string file = sound.filename + "." + sound.fileExtension;
        if (leadsOut(sound.filename) || leadsOut(sound.fileExtension))
            add(LintKind::escapingName, place.item,
                where + "sound file " + inQuotes(file) + " leads out of " + WorkspaceFiles::soundFolder);
        else if (!caseFromText<soundType>(sound.fileExtension))
            add(LintKind::badValue, place.item,
                (place.field.empty() ? "" : place.field + ".") + "fileExtension " + inQuotes(sound.fileExtension) +
                    ": not a case of soundType");
        else if (sound.filename.empty())
            add(LintKind::missingSound, place.item, where + "the sound names no file");
        else if (!m_files.hasSound(sound.filename, sound.fileExtension))
            add(LintKind::missingSound, place.item,
                where + "sound " + inQuotes(file) + " is not in " + WorkspaceFiles::soundFolder);
    }

    void fileNames(const ValuePlace& place, std::string_view text) override
    {
        for (const std::string& name : trimmedNamesFromText(text))
            if (leadsOut(name))
                add(LintKind::escapingName, place.item,
                    place.field + " " + inQuotes(name) + " leads out of its folder");
    }

private:
    void add(LintKind kind, std::string item, std::string problem)
    {
        m_findings.push_back({m_number, kind, std::move(item), std::move(problem)});
    }

    template <class T, class F>
    static void forEach(const std::optional<std::vector<T>>& list, F&& check, const std::string& prefix = {})
    {
        if (list)
            for (std::size_t i = 0; i < list->size(); ++i)
                check((*list)[i], prefix + itemLabel((*list)[i], i));
    }

    /// Every image a text names: an image text may be a comma list, and any
    /// piece of it may be the one a game shows.
    /// `what` says which image of the item it is, `origin` where the name
    /// comes from when not from the item itself.
    void images(const std::string& item, sceneObjectType kind, const std::optional<std::string>& text,
                const std::string& what, const std::string& origin = {})
    {
        if (!text)
            return;
        for (const std::string& name : trimmedNamesFromText(*text)) {
            const std::string folder = WorkspaceFiles::imageFolder(kind, name);
            const std::string named = what + " " + inQuotes(name) + origin;
            if (leadsOut(name))
                add(LintKind::escapingName, item, named + " leads out of " + folder);
            else if (!m_files.hasImage(kind, name))
                add(LintKind::missingImage, item, named + " is not in " + folder);
        }
    }

    static std::string ofEntry(const std::string& elementName)
    {
        return " of catalogue entry " + inQuotes(elementName);
    }

    /// A placed obstacle or character: its catalogue entry, and the image it
    /// shows, its own or else its entry's.
    template <class Item, class Entry>
    void placed(const Item& item, const std::string& label, const std::vector<Entry>& catalogue,
                const char* catalogueName, sceneObjectType kind)
    {
        const Entry* entry = findByName(catalogue, item.elementName);
        if (!entry)
            add(LintKind::missingEntry, label,
                inQuotes(item.elementName) + " is not in the " + catalogueName + " catalogue");
        if (item.properties && item.properties->image)
            images(label, kind, item.properties->image, "image");
        else if (entry)
            images(label, kind, entry->image, "image", ofEntry(item.elementName));
    }

    void placedItems(const std::optional<std::vector<ObstacleLevelItem>>& obstacles,
                     const std::optional<std::vector<CharacterLevelItem>>& characters, const std::string& prefix)
    {
        forEach(
            obstacles,
            [&](const ObstacleLevelItem& item, const std::string& label) {
                placed(item, label, m_catalogues.obstacles, "obstacle", sceneObjectType::obstacles);
            },
            prefix);
        forEach(
            characters,
            [&](const CharacterLevelItem& item, const std::string& label) {
                placed(item, label, m_catalogues.characters, "character", sceneObjectType::character);
            },
            prefix);
    }

    /// All checkpoints of a level show the object that the level's
    /// checkpoint record names.
    void checkpoints(const boxed<CheckPointData>& data)
    {
        if (!data || !data->locations || data->locations->empty())
            return;
        const GenericObject* entry = checkpointObject(m_catalogues.objects, data->image);
        if (!entry)
            add(LintKind::missingEntry, "checkpoints",
                "no checkpoint " + inQuotes(data->image) + " in the object catalogue");
        else
            images("checkpoints", sceneObjectType::checkpoint, entry->image, "image", ofEntry(data->image));
    }

    void coins(const boxed<Coins>& data)
    {
        if (!data)
            return;
        images("coins", sceneObjectType::coin, data->image, "image");
        forEach(data->coins, [&](const Coin& coin, const std::string& item) {
            images(item, sceneObjectType::coin, coin.image, "image");
        });
        if (!data->coins || data->coins->empty())
            return;
        if (const GenericObject* entry = coinObject(m_catalogues.objects))
            images("coins", sceneObjectType::coin, entry->image, "image", ofEntry(entry->elementName.value_or("")));
        else
            add(LintKind::missingEntry, "coins", "no object of kind coin in the object catalogue");
    }

    void endWindow(const boxed<LevelEndData>& window, std::string_view field, sceneObjectType kind)
    {
        if (!window)
            return;
        const std::string prefix = itemPrefix(field);
        forEach(
            window->windowItems,
            [&](const WindowItem& item, const std::string& label) { images(label, kind, item.image, "image"); },
            prefix);
        placedItems(window->obstacles, window->characters, prefix);
    }

    std::size_t m_number;
    const LintCatalogues& m_catalogues;
    WorkspaceFiles& m_files;
    std::vector<LintFinding>& m_findings;
};

template <class R>
bool readCatalogue(const std::string& assets, const char* name, std::vector<R>& into, std::string& error)
{
    const std::string path = assets + name + ".plist";
    RecordFileResult<R> file = readRecordFile<R>(path);
    if (!file.ok) {
        error = "cannot read the catalogue " + path + ": " + file.error;
        return false;
    }
    into = std::move(file.records);
    return true;
}

} // namespace

std::string_view lintKindText(LintKind kind)
{
    switch (kind) {
    case LintKind::missingEntry: return "missing-entry";
    case LintKind::missingImage: return "missing-image";
    case LintKind::missingSound: return "missing-sound";
    case LintKind::escapingName: return "escaping-name";
    case LintKind::badValue: return "bad-value";
    case LintKind::noGround: return "no-ground";
    case LintKind::noLevelEnd: return "no-level-end";
    }
    return "unknown";
}

std::vector<LintFinding> lintLevels(const std::vector<Level>& levels, const LintCatalogues& catalogues,
                                    WorkspaceFiles& files)
{
    std::vector<LintFinding> findings;
    for (std::size_t i = 0; i < levels.size(); ++i)
        LevelLint(i + 1, catalogues, files, findings).run(levels[i]);
    return findings;
}

LintRun lintProject(const std::string& workspace, const std::string& project)
{
    LintRun run;
    std::error_code error;
    if (!std::filesystem::is_directory(workspace, error)) {
        run.error = "no workspace folder " + workspace;
        return run;
    }
    RecordFileResult<Level> levels = readRecordFile<Level>(project);
    if (!levels.ok) {
        run.error = "cannot read the project " + project + ": " + levels.error;
        return run;
    }
    const std::string assets = (std::filesystem::path(workspace) / "Assets/").string();
    LintCatalogues catalogues;
    if (!readCatalogue(assets, "ObjectList", catalogues.objects, run.error) ||
        !readCatalogue(assets, "CharacterList", catalogues.characters, run.error) ||
        !readCatalogue(assets, "ObstacleList", catalogues.obstacles, run.error))
        return run;
    WorkspaceFiles files(workspace);
    run.findings = lintLevels(levels.records, catalogues, files);
    run.levelCount = levels.records.size();
    run.ok = true;
    return run;
}

} // namespace stagewright::cli
