#include "WorkspaceCatalogues.h"

#include "PermissionManager.h"
#include "StateDiagnostics.h"
#include "Workspace.h"

#include <tessaro/model/ConfigFiles.h>

namespace stagewright {

namespace {

constexpr tessaro::configType catalogueTypes[] = {tessaro::configType::objects, tessaro::configType::characters,
                                                  tessaro::configType::obstacles};

const char* catalogueFileName(tessaro::configType type)
{
    switch (type) {
    case tessaro::configType::objects: return "ObjectList";
    case tessaro::configType::characters: return "CharacterList";
    case tessaro::configType::obstacles: return "ObstacleList";
    case tessaro::configType::app:
    case tessaro::configType::level: break;
    }
    return nullptr;
}

} // namespace

WorkspaceCatalogues::WorkspaceCatalogues(PermissionManager& gate) : m_gate(gate) {}

void WorkspaceCatalogues::load(const QString& workspace)
{
    m_gate.withAccess(workspace, [&] { tessaro::loadCatalogues(assetsFolder(workspace).toStdString()); });
    m_workspace = workspace;
    for (const tessaro::configType type : catalogueTypes)
        remember(type);
}

bool WorkspaceCatalogues::save(tessaro::configType type)
{
    const char* name = catalogueFileName(type);
    if (!name || m_workspace.isEmpty()) {
        diagnosticLine(QStringLiteral("No catalogue of this kind is loaded; nothing is saved."));
        return false;
    }
    bool written = false;
    m_gate.withAccess(m_workspace, [&] {
        written = tessaro::saveConfig(name, "plist", assetsFolder(m_workspace).toStdString(), type);
    });
    if (written)
        remember(type);
    return written;
}

bool WorkspaceCatalogues::isChanged(tessaro::configType type) const
{
    switch (type) {
    case tessaro::configType::objects: return tessaro::objectCatalogue() != m_storedObjects;
    case tessaro::configType::characters: return tessaro::characterCatalogue() != m_storedCharacters;
    case tessaro::configType::obstacles: return tessaro::obstacleCatalogue() != m_storedObstacles;
    case tessaro::configType::app:
    case tessaro::configType::level: break;
    }
    return false;
}

bool WorkspaceCatalogues::saveChanged()
{
    bool allWritten = true;
    for (const tessaro::configType type : catalogueTypes)
        if (isChanged(type))
            allWritten = save(type) && allWritten;
    return allWritten;
}

bool WorkspaceCatalogues::hasUnsavedChanges() const
{
    for (const tessaro::configType type : catalogueTypes)
        if (isChanged(type))
            return true;
    return false;
}

bool WorkspaceCatalogues::differsOnDisk() const
{
    if (m_workspace.isEmpty())
        return false;
    bool differs = false;
    m_gate.withAccess(m_workspace, [&] {
        using tessaro::configType;
        const std::string folder = assetsFolder(m_workspace).toStdString();
        differs = tessaro::loadConfig<configType::objects>(folder, catalogueFileName(configType::objects), {}) !=
                m_storedObjects ||
            tessaro::loadConfig<configType::characters>(folder, catalogueFileName(configType::characters), {}) !=
                m_storedCharacters ||
            tessaro::loadConfig<configType::obstacles>(folder, catalogueFileName(configType::obstacles), {}) !=
                m_storedObstacles;
    });
    return differs;
}

void WorkspaceCatalogues::remember(tessaro::configType type)
{
    switch (type) {
    case tessaro::configType::objects: m_storedObjects = tessaro::objectCatalogue(); break;
    case tessaro::configType::characters: m_storedCharacters = tessaro::characterCatalogue(); break;
    case tessaro::configType::obstacles: m_storedObstacles = tessaro::obstacleCatalogue(); break;
    case tessaro::configType::app:
    case tessaro::configType::level: break;
    }
}

} // namespace stagewright
