#include "PhysicsEditorHook.h"

namespace stagewright {

namespace {

PhysicsEditorOpener& installedOpener()
{
    static PhysicsEditorOpener opener;
    return opener;
}

} // namespace

void setPhysicsEditorOpener(PhysicsEditorOpener opener)
{
    installedOpener() = std::move(opener);
}

bool openPhysicsEditor(QWidget* parent, ProjectTab& tab, SceneSettings* settings, PhysicsEditMode mode)
{
    const PhysicsEditorOpener& opener = installedOpener();
    if (!opener)
        return false;
    opener(parent, tab, settings, mode);
    return true;
}

} // namespace stagewright
