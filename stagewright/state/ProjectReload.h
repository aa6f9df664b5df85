// Reading a project's file again after another program changed it.
#pragma once

namespace stagewright {

class PermissionManager;
class ProjectTab;

/// Shows the levels of the tab's file in the tab, in place of what the tab
/// holds. False, with a diagnostic line, when the file cannot be read as a
/// project now (gone, or caught half written): the tab then stays as it is.
bool reloadProjectFromDisk(PermissionManager& gate, ProjectTab& tab);

} // namespace stagewright
