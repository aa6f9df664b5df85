// The strip of project tabs under the toolbar: one button per open project,
// in order, with its close box, and after them the buttons "Add new level"
// and "Toggle Object Properties".
#pragma once

#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/Uuid.h>

#include <QFrame>
#include <QPointer>
#include <QWidget>

#include <vector>

class QHBoxLayout;
class QLabel;
class QScrollArea;
class QToolButton;

namespace stagewright {

class Commands;
class SceneSettings;

/// The button of one tab: its name, a mark while it has unsaved changes, and
/// its close box.
class TabButton : public QFrame {
    Q_OBJECT
public:
    TabButton(ProjectTab& tab, Commands& commands, QWidget* parent = nullptr);

    ProjectTab* tab() const { return m_tab; }
    const tessaro::Uuid& tabId() const { return m_id; }
    QToolButton* closeButton() const { return m_close; }
    QLabel* titleLabel() const { return m_title; }
    void setSelected(bool selected);
    bool isSelected() const { return m_selected; }
    /// "Not saved", or the path of the tab's file.
    static QString helpText(const ProjectTab& tab);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();

    QPointer<ProjectTab> m_tab;
    tessaro::Uuid m_id;
    Commands& m_commands;
    QLabel* m_title = nullptr;
    QLabel* m_dirtyMark = nullptr;
    QToolButton* m_close = nullptr;
    bool m_selected = false;
};

class TabStrip : public QWidget {
    Q_OBJECT
public:
    TabStrip(SceneSettings& settings, Commands& commands, QWidget* parent = nullptr);

    const std::vector<TabButton*>& buttons() const { return m_buttons; }
    TabButton* buttonFor(const tessaro::Uuid& tabId) const;
    QToolButton* addButton() const { return m_add; }
    QToolButton* inspectorButton() const { return m_inspector; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void rebuild();
    void refreshSelection();

    SceneSettings& m_settings;
    Commands& m_commands;
    QScrollArea* m_scroll = nullptr;
    QWidget* m_row = nullptr;
    QHBoxLayout* m_rowLayout = nullptr;
    std::vector<TabButton*> m_buttons;
    QToolButton* m_add = nullptr;
    QToolButton* m_inspector = nullptr;
};

} // namespace stagewright
