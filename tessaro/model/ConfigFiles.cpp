#include "ConfigFiles.h"

#include "Diagnostics.h"
#include "FileIO.h"
#include "PlistCodec.h"

namespace tessaro {

namespace {

void reportConfigurationError(const std::string& name, const std::string& error)
{
    diagnostic("Configuration error (" + name + "): " + error);
}

template <class R>
std::optional<std::vector<R>> readRecords(const std::string& path, const std::string& name)
{
    RecordFileResult<R> file = readRecordFile<R>(path);
    if (!file.ok) {
        reportConfigurationError(name, file.error);
        return std::nullopt;
    }
    return std::move(file.records);
}

template <class R>
void giveIds(std::vector<R>& records)
{
    for (R& record : records)
        if (!record.id)
            record.id = Uuid::create();
}

template <Enumeration E>
E caseOr(const std::optional<std::string>& text, E fallback)
{
    if (!text)
        return fallback;
    return caseFromText<E>(*text).value_or(fallback);
}

template <class R>
bool writeCatalogue(const std::vector<R>& records, const std::string& path, const std::string& name)
{
    try {
        if (auto error = writeFileAtomically(path, encodeRecordList(records))) {
            reportConfigurationError(name, *error);
            return false;
        }
        return true;
    } catch (const CodingError& error) {
        reportConfigurationError(name, error.description());
    } catch (const std::bad_alloc&) {
        reportConfigurationError(name, "Not enough memory to write the file.");
    }
    return false;
}

} // namespace

BaseConfig baseConfigFrom(const LoadedConfig& loaded)
{
    BaseConfig config; // a game's defaults: aspectFit, 1024 by 768
    config.darkMode = loaded.darkMode.value_or(false);
    config.defaultImageType = caseOr(loaded.defaultImageType, imageType::png);
    config.defaultSoundType = caseOr(loaded.defaultSoundType, soundType::mp4);
    config.defaultImageScale = caseOr(loaded.defaultImageScale, imageScaling::x2);
    return config;
}

template <configType Type>
ConfigList<Type> loadConfig(const std::string& folder, const std::string& name,
                            const std::optional<std::string>& extension)
{
    const std::string path = folder + name + "." + extension.value_or("plist");
    if constexpr (Type == configType::app) {
        auto loaded = readRecords<LoadedConfig>(path, name);
        if (!loaded || loaded->empty())
            return {};
        return {baseConfigFrom(loaded->front())};
    } else {
        auto records = readRecords<typename ConfigRecord<Type>::type>(path, name);
        if (!records)
            return {};
        giveIds(*records);
        return std::move(*records);
    }
}

template ConfigList<configType::app> loadConfig<configType::app>(const std::string&, const std::string&,
                                                                 const std::optional<std::string>&);
template ConfigList<configType::characters> loadConfig<configType::characters>(const std::string&, const std::string&,
                                                                               const std::optional<std::string>&);
template ConfigList<configType::level> loadConfig<configType::level>(const std::string&, const std::string&,
                                                                     const std::optional<std::string>&);
template ConfigList<configType::objects> loadConfig<configType::objects>(const std::string&, const std::string&,
                                                                         const std::optional<std::string>&);
template ConfigList<configType::obstacles> loadConfig<configType::obstacles>(const std::string&, const std::string&,
                                                                             const std::optional<std::string>&);

bool saveConfig(const std::string& name, const std::string& extension, const std::string& folder, configType type)
{
    const std::string path = folder + name + "." + extension;
    // All three catalogues are written, so that edits made to templates in
    // the editor survive the end of the run.
    switch (type) {
    case configType::characters: return writeCatalogue(characterCatalogue(), path, name);
    case configType::objects: return writeCatalogue(objectCatalogue(), path, name);
    case configType::obstacles: return writeCatalogue(obstacleCatalogue(), path, name);
    case configType::app:
    case configType::level: break;
    }
    reportConfigurationError(name, "Only catalogues can be saved this way.");
    return false;
}

void loadCatalogues(const std::string& assetsFolder)
{
    objectCatalogue() = loadConfig<configType::objects>(assetsFolder, "ObjectList", "plist");
    characterCatalogue() = loadConfig<configType::characters>(assetsFolder, "CharacterList", "plist");
    obstacleCatalogue() = loadConfig<configType::obstacles>(assetsFolder, "ObstacleList", "plist");
}

std::vector<GenericObject>& objectCatalogue()
{
    static std::vector<GenericObject> catalogue;
    return catalogue;
}

std::vector<Character>& characterCatalogue()
{
    static std::vector<Character> catalogue;
    return catalogue;
}

std::vector<Obstacle>& obstacleCatalogue()
{
    static std::vector<Obstacle> catalogue;
    return catalogue;
}

appConfig& globalAppConfig()
{
    static appConfig config;
    return config;
}

} // namespace tessaro
