#include "WorkspaceCatalogues.h"

#include "PermissionManager.h"
#include "StateDiagnostics.h"
#include "Workspace.h"

#include <tessaro/model/ConfigFiles.h>

namespace stagewright {

namespace {

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
    return written;
}

} // namespace stagewright
