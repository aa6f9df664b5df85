// The sheet of the toolbar's "Properties" button: the level's own images,
// numbers and sounds in seven tabs (background, checkpoints, coins, shields,
// artifacts, level end, phase end).
#pragma once

#include <QDialog>

#include <vector>

class QStackedWidget;
class QToolButton;
class QPushButton;

namespace stagewright {

class LevelPropertiesTabView;
class SceneSettings;
class ProjectTab;

class LevelPropertiesView : public QDialog {
    Q_OBJECT
public:
    LevelPropertiesView(ProjectTab& tab, SceneSettings& settings, QWidget* parent = nullptr);
    /// Opens the sheet over `parent`; it deletes itself when closed.
    static LevelPropertiesView* present(ProjectTab& tab, SceneSettings& settings, QWidget* parent);

    /// Shows the tab at `index` (0 "Background" to 6 "Phase end").
    void setSelection(int index);
    int selection() const;
    const std::vector<QToolButton*>& tabButtons() const { return m_buttons; }
    LevelPropertiesTabView* tabView(int index) const { return m_views.at(std::size_t(index)); }
    QPushButton* closeButton() const { return m_close; }

private:
    std::vector<QToolButton*> m_buttons;
    std::vector<LevelPropertiesTabView*> m_views;
    QStackedWidget* m_stack = nullptr;
    QPushButton* m_close = nullptr;
};

} // namespace stagewright
