#include "FileCommands.h"

#include <tessaro/model/ConfigRecords.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/model/FileIO.h>
#include <tessaro/model/PlistCodec.h>

#include <cstdio>
#include <optional>
#include <variant>

namespace stagewright::cli {

using namespace tessaro;

namespace {

using AnyList = std::variant<std::vector<Level>, std::vector<GenericObject>, std::vector<Character>,
                             std::vector<Obstacle>, std::vector<LoadedConfig>>;

std::string baseName(const std::string& path)
{
    const auto slash = path.rfind('/');
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? name : name.substr(0, dot);
}

// The kind of file: given with --kind, or told by the catalogue's file name.
std::optional<configType> kindOf(const std::string& path, const std::optional<std::string>& given)
{
    if (given)
        return caseFromText<configType>(*given);
    const std::string name = baseName(path);
    if (name == "ObjectList")
        return configType::objects;
    if (name == "CharacterList")
        return configType::characters;
    if (name == "ObstacleList")
        return configType::obstacles;
    return configType::level;
}

template <class T>
std::optional<AnyList> readAs(const std::string& path)
{
    RecordFileResult<T> file = readRecordFile<T>(path);
    if (!file.ok) {
        diagnostic("Configuration error (" + path + "): " + file.error);
        return std::nullopt;
    }
    return AnyList(std::move(file.records));
}

template <class T>
std::size_t sizeOf(const std::optional<std::vector<T>>& list)
{
    return list ? list->size() : 0;
}

void printLevels(const std::vector<Level>& levels)
{
    std::printf("project: %zu level%s\n", levels.size(), levels.size() == 1 ? "" : "s");
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const Level& level = levels[i];
        std::size_t coins = level.coins ? sizeOf(level.coins->coins) : 0;
        std::size_t shields = level.shields ? sizeOf(level.shields->shields) : 0;
        std::size_t artifacts = level.artifacts ? sizeOf(level.artifacts->artifacts) : 0;
        std::size_t checkpoints = level.checkpoints ? sizeOf(level.checkpoints->locations) : 0;
        std::size_t backgrounds = level.background ? sizeOf(level.background->backgrounds) : 0;
        std::printf("  level %zu: %s, %zu obstacles, %zu characters, %zu coins, %zu shields, %zu artifacts, "
                    "%zu checkpoints, %zu ground sections, %zu backgrounds\n",
                    i + 1, level.settings.size.value_or("no size").c_str(), sizeOf(level.obstacles),
                    sizeOf(level.characters), coins, shields, artifacts, checkpoints, sizeOf(level.ground),
                    backgrounds);
    }
}

struct Options {
    std::vector<std::string> positional;
    std::optional<std::string> kind;
    PlistFormat format = PlistFormat::xml;
    bool ok = true;
};

Options parseOptions(const std::vector<std::string>& args)
{
    Options options;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--binary") {
            options.format = PlistFormat::binary;
        } else if (args[i] == "--xml") {
            options.format = PlistFormat::xml;
        } else if (args[i] == "--kind" && i + 1 < args.size()) {
            options.kind = args[++i];
        } else if (args[i].rfind("--", 0) == 0) {
            std::fprintf(stderr, "stagewright-cli: unknown option '%s'\n", args[i].c_str());
            options.ok = false;
        } else {
            options.positional.push_back(args[i]);
        }
    }
    return options;
}

// Reads and decodes; prints the configuration error line and returns nothing on failure.
std::optional<AnyList> load(const std::string& path, const std::optional<std::string>& kindText)
{
    const auto kind = kindOf(path, kindText);
    if (!kind) {
        std::fprintf(stderr, "stagewright-cli: unknown kind '%s'\n", kindText->c_str());
        return std::nullopt;
    }
    switch (*kind) {
    case configType::objects: return readAs<GenericObject>(path);
    case configType::characters: return readAs<Character>(path);
    case configType::obstacles: return readAs<Obstacle>(path);
    case configType::app: return readAs<LoadedConfig>(path);
    case configType::level: break;
    }
    return readAs<Level>(path);
}

} // namespace

int checkCommand(const std::vector<std::string>& args)
{
    const Options options = parseOptions(args);
    if (!options.ok || options.positional.size() != 1) {
        std::fputs("usage: stagewright-cli check FILE [--kind level|objects|characters|obstacles|app]\n", stderr);
        return 1;
    }
    const auto list = load(options.positional[0], options.kind);
    if (!list)
        return 1;
    std::visit(
        [](const auto& records) {
            using T = typename std::decay_t<decltype(records)>::value_type;
            if constexpr (std::is_same_v<T, Level>)
                printLevels(records);
            else if constexpr (std::is_same_v<T, GenericObject>)
                std::printf("object catalogue: %zu templates\n", records.size());
            else if constexpr (std::is_same_v<T, Character>)
                std::printf("character catalogue: %zu templates\n", records.size());
            else if constexpr (std::is_same_v<T, Obstacle>)
                std::printf("obstacle catalogue: %zu templates\n", records.size());
            else
                std::printf("application configuration: %zu entries\n", records.size());
        },
        *list);
    return 0;
}

int convertCommand(const std::vector<std::string>& args)
{
    const Options options = parseOptions(args);
    if (!options.ok || options.positional.size() != 2) {
        std::fputs("usage: stagewright-cli convert FILE OUT [--binary|--xml] [--kind ...]\n", stderr);
        return 1;
    }
    const auto list = load(options.positional[0], options.kind);
    if (!list)
        return 1;
    try {
        const std::string bytes =
            std::visit([&](const auto& records) { return encodeRecordList(records, options.format); }, *list);
        if (auto error = writeFileAtomically(options.positional[1], bytes)) {
            diagnostic(*error);
            return 1;
        }
    } catch (const CodingError& error) {
        diagnostic(error.description());
        return 1;
    }
    return 0;
}

} // namespace stagewright::cli
