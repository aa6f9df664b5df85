#include "PhysicsEditorHook.h"

namespace stagewright {

namespace {

physicsEditorOpener& installedOpener()
{
    static physicsEditorOpener opener;
    return opener;
}

} // namespace

void setPhysicsEditorOpener(physicsEditorOpener opener)
{
    installedOpener() = std::move(opener);
}

bool openPhysicsEditor(QWidget* parent, projectTab& tab, SceneSettings* settings, physicsEditMode mode)
{
    const physicsEditorOpener& opener = installedOpener();
    if (!opener)
        return false;
    opener(parent, tab, settings, mode);
    return true;
}

} // namespace stagewright
