// The settings window: the appearance and web addresses ("General"), the
// defaults of new levels and scene views ("Workspace"), and the granted
// folders ("Permissions"). Every change takes effect at once; there is no
// apply button.
#pragma once

#include <QWidget>

class QCheckBox;
class QTabWidget;

namespace stagewright {

class AppPreferences;
class appGeneralView;
class appWorkspaceView;
class securityPermissionsView;

class appSettingsView : public QWidget {
    Q_OBJECT
public:
    explicit appSettingsView(AppPreferences& preferences, QWidget* parent = nullptr);

    QTabWidget* tabs() const { return m_tabs; }
    appGeneralView* general() const { return m_general; }
    appWorkspaceView* workspace() const { return m_workspace; }
    securityPermissionsView* permissions() const { return m_permissions; }

private:
    QTabWidget* m_tabs = nullptr;
    appGeneralView* m_general = nullptr;
    appWorkspaceView* m_workspace = nullptr;
    securityPermissionsView* m_permissions = nullptr;
};

} // namespace stagewright
