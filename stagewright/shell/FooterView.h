// The footer of the main window: the front level's name and the workspace,
// each a link that opens its folder in the file manager.
#pragma once

#include <QWidget>

class QToolButton;

namespace stagewright {

class Commands;
class SceneSettings;

class FooterView : public QWidget {
    Q_OBJECT
public:
    FooterView(SceneSettings& settings, Commands& commands, QWidget* parent = nullptr);

    QToolButton* levelLink() const { return m_level; }
    QToolButton* workspaceLink() const { return m_workspace; }
    /// Puts a widget at the right end of the footer.
    void addStatusWidget(QWidget* widget);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();

    SceneSettings& m_settings;
    Commands& m_commands;
    QToolButton* m_level = nullptr;
    QToolButton* m_workspace = nullptr;
};

} // namespace stagewright
