#include "AppSettingsView.h"

#include "AppGeneralView.h"
#include "AppWorkspaceView.h"
#include "SecurityPermissionsView.h"
#include "ShellIcons.h"
#include "Windows.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace stagewright {

AppSettingsView::AppSettingsView(AppPreferences& preferences, QWidget* parent) : QWidget(parent, Qt::Window)
{
    setObjectName(WindowId::settings);
    setWindowTitle(tr("Settings"));
    auto* layout = new QVBoxLayout(this);
    m_tabs = new QTabWidget(this);
    m_general = new AppGeneralView(preferences, m_tabs);
    m_workspace = new AppWorkspaceView(preferences, m_tabs);
    m_permissions = new SecurityPermissionsView(preferences, m_tabs);
    m_tabs->addTab(m_general, shellIcon(Symbol::gear), tr("General"));
    m_tabs->addTab(m_workspace, shellIcon(Symbol::folderGear), tr("Workspace"));
    m_tabs->addTab(m_permissions, shellIcon(Symbol::lock), tr("Permissions"));
    layout->addWidget(m_tabs);
    resize(640, 460);
}

} // namespace stagewright
