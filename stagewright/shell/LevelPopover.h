// The popover "Scenes" of the toolbar: the levels of the front project, with
// the buttons to add a level, show one, move one up or down, and delete one.
#pragma once

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/Uuid.h>

#include <QFrame>
#include <QPointer>

#include <vector>

class QLabel;
class QPushButton;
class QToolButton;
class QVBoxLayout;

namespace stagewright {

class Commands;
class SceneSettings;

class LevelPopover : public QFrame {
    Q_OBJECT
public:
    LevelPopover(SceneSettings& settings, Commands& commands, QWidget* parent = nullptr);

    /// Opens under `anchor`.
    void popup(QWidget* anchor);

    struct Row {
        tessaro::Uuid tag;
        QLabel* selectedMark = nullptr;
        QPushButton* name = nullptr;
        QToolButton* down = nullptr;
        QToolButton* up = nullptr;
        QToolButton* trash = nullptr;
    };
    const std::vector<Row>& rows() const { return m_rows; }
    QPushButton* addButton() const { return m_add; }

private:
    void watchFrontTab();
    void rebuild();

    SceneSettings& m_settings;
    Commands& m_commands;
    QPointer<ProjectTab> m_tab;
    QPushButton* m_add = nullptr;
    QWidget* m_list = nullptr;
    QVBoxLayout* m_listLayout = nullptr;
    std::vector<Row> m_rows;
};

} // namespace stagewright
