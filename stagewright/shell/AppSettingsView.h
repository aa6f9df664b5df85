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
class AppGeneralView;
class AppWorkspaceView;
class SecurityPermissionsView;

class AppSettingsView : public QWidget {
    Q_OBJECT
public:
    explicit AppSettingsView(AppPreferences& preferences, QWidget* parent = nullptr);

    QTabWidget* tabs() const { return m_tabs; }
    AppGeneralView* general() const { return m_general; }
    AppWorkspaceView* workspace() const { return m_workspace; }
    SecurityPermissionsView* permissions() const { return m_permissions; }

private:
    QTabWidget* m_tabs = nullptr;
    AppGeneralView* m_general = nullptr;
    AppWorkspaceView* m_workspace = nullptr;
    SecurityPermissionsView* m_permissions = nullptr;
};

} // namespace stagewright
