// The window "Object Library": a tab for each kind of element with the cells
// of its catalogue, one filter for all tabs, and a pin that keeps the window
// above the others. A click on a cell adds the element to the level in
// front; a cell can also be dragged onto the canvas.
#pragma once

#include <QList>
#include <QWidget>

class QButtonGroup;
class QLineEdit;
class QListView;
class QToolButton;

namespace stagewright {

class LibraryCellModel;
class SceneSettings;

class ObjectLibraryWindow : public QWidget {
    Q_OBJECT
public:
    /// From this width on, the tab buttons are large and titled.
    static constexpr int wideWidth = 1100;

    explicit ObjectLibraryWindow(SceneSettings& settings, QWidget* parent = nullptr);

    /// The index of the tab shown.
    int selection() const { return m_selection; }
    void setSelection(int index);
    /// The filter of every tab.
    QString searchText() const;
    /// The window stays above all other windows.
    bool isPinned() const;

    const QList<QToolButton*>& tabButtons() const { return m_tabButtons; }
    QLineEdit* filterField() const { return m_filter; }
    QToolButton* pinButton() const { return m_pin; }
    QListView* cellView() const { return m_cells; }
    LibraryCellModel* cellModel() const { return m_model; }

    /// Lists the catalogues as they are loaded now.
    void reload();

    /// The help text of the pin button.
    static QString pinHelp();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layoutTabButtons();
    void togglePin();
    void showPinned(bool pinned);

    SceneSettings& m_settings;
    int m_selection = 0;
    QList<QToolButton*> m_tabButtons;
    QButtonGroup* m_tabGroup = nullptr;
    QToolButton* m_pin = nullptr;
    QLineEdit* m_filter = nullptr;
    QListView* m_cells = nullptr;
    LibraryCellModel* m_model = nullptr;
};

} // namespace stagewright
