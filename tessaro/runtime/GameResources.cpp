#include "GameResources.h"

#include <tessaro/kit/Texture.h>
#include <tessaro/model/CodingError.h>
#include <tessaro/model/ConfigRecords.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/PlistCodec.h>

#include <QDir>
#include <QFile>

namespace tessaro {

namespace {

void reportConfigurationError(const std::string& name, const std::string& error)
{
    diagnostic("Configuration error (" + name + "): " + error);
}

/// Reads a resource through Qt, so that files and Qt resources both work.
std::optional<std::string> readResource(const QString& path, std::string& error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString().toStdString();
        return std::nullopt;
    }
    const QByteArray bytes = file.readAll();
    return std::string(bytes.constData(), size_t(bytes.size()));
}

template <class R>
std::optional<std::vector<R>> decodeResource(const std::string& resource, const std::optional<std::string>& extension)
{
    const QString path =
        kit::resources::locate(QString::fromStdString(resource), {QString::fromStdString(extension.value_or("plist"))});
    if (path.isEmpty())
        return std::nullopt;
    std::string error;
    auto bytes = readResource(path, error);
    if (!bytes) {
        reportConfigurationError(resource, error);
        return std::nullopt;
    }
    try {
        return decodeRecordList<R>(std::move(*bytes));
    } catch (const CodingError& failure) {
        reportConfigurationError(resource, failure.description());
    }
    return std::nullopt;
}

} // namespace

template <configType Type>
ConfigList<Type> loadBundledConfig(const std::string& resource, const std::optional<std::string>& extension)
{
    if constexpr (Type == configType::app) {
        auto loaded = decodeResource<LoadedConfig>(resource, extension);
        if (!loaded || loaded->empty())
            return {};
        return {baseConfigFrom(loaded->front())};
    } else {
        auto records = decodeResource<typename ConfigRecord<Type>::type>(resource, extension);
        if (!records)
            return {};
        for (auto& record : *records)
            if (!record.id)
                record.id = Uuid::create();
        return std::move(*records);
    }
}

template ConfigList<configType::app> loadBundledConfig<configType::app>(const std::string&,
                                                                        const std::optional<std::string>&);
template ConfigList<configType::characters>
loadBundledConfig<configType::characters>(const std::string&, const std::optional<std::string>&);
template ConfigList<configType::level> loadBundledConfig<configType::level>(const std::string&,
                                                                            const std::optional<std::string>&);
template ConfigList<configType::objects> loadBundledConfig<configType::objects>(const std::string&,
                                                                                const std::optional<std::string>&);
template ConfigList<configType::obstacles> loadBundledConfig<configType::obstacles>(const std::string&,
                                                                                    const std::optional<std::string>&);

QStringList workspaceSearchPaths(const QString& workspace)
{
    const QString images = workspace + QStringLiteral("Assets/Images/");
    QStringList paths;
    for (sceneObjectType kind : allCases<sceneObjectType>()) {
        const QString folder = QString::fromLatin1(imageFolderName(kind));
        if (!folder.isEmpty() && !paths.contains(images + folder))
            paths << images + folder;
    }
    paths << images + QStringLiteral("Extras") << workspace + QStringLiteral("Assets/Sounds")
          << workspace + QStringLiteral("Assets");
    return paths;
}

bool loadWorkspace(const QString& workspace)
{
    kit::resources::setSearchPaths(workspaceSearchPaths(workspace));
    const std::string assets = (workspace + QStringLiteral("Assets/")).toStdString();
    // A catalogue that fails to load is an empty list, as is an empty one;
    // the failure is told apart by its configuration error line.
    bool failed = false;
    DiagnosticSink previous;
    previous = setDiagnosticSink([&failed, &previous](std::string_view line) {
        if (line.starts_with("Configuration error ("))
            failed = true;
        if (previous)
            previous(line);
        else
            std::fprintf(stdout, "%.*s\n", int(line.size()), line.data());
    });
    loadCatalogues(assets);
    setDiagnosticSink(previous);
    if (!QDir(workspace).exists() && !failed) {
        reportConfigurationError(workspace.toStdString(), "No such folder.");
        failed = true;
    }
    return !failed;
}

} // namespace tessaro
