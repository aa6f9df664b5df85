// The inspector: the side panel beside the canvas that shows what is selected
// in the front tab. While nothing is selected it says so; a selection shows
// the head and the tabs of its kind, laid anew for each selected element and
// refreshed whenever the selection models change.
#pragma once

#include <stagewright/state/ProjectTab.h>

#include <QPointer>
#include <QWidget>

class QLabel;
class QStackedLayout;
class QTabWidget;

namespace stagewright {

class InspectorHead;
class RowPane;
class SceneSettings;

class InspectorView : public QWidget {
    Q_OBJECT
public:
    explicit InspectorView(SceneSettings& settings, QWidget* parent = nullptr);

    /// The text shown while the front tab has no selected element.
    static QString noSelectionText();
    /// True while the panes of a selection are shown.
    bool showsSelection() const;
    /// The titles of the tabs shown, in order.
    QStringList tabTitles() const;
    /// Lays the panes now instead of after the current event.
    void layNow();

private:
    void watchFrontTab();
    void modelsChanged();
    void layPanes();

    SceneSettings& m_settings;
    QPointer<ProjectTab> m_tab;
    QStackedLayout* m_pages = nullptr;
    QLabel* m_emptyLabel = nullptr;
    QWidget* m_selectionPage = nullptr;
    QWidget* m_content = nullptr;
    InspectorHead* m_head = nullptr;
    QTabWidget* m_tabs = nullptr;
    std::vector<RowPane*> m_panes;
    /// The element the panes were laid for.
    QString m_laidFor;
    bool m_layQueued = false;
};

} // namespace stagewright
