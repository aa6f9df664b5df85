// The inspector: the side panel beside the canvas that shows what is selected
// in the front tab. While nothing is selected it says so; the panes of a
// selection take their place when an element is selected.
#pragma once

#include <stagewright/state/ProjectTab.h>

#include <QPointer>
#include <QWidget>

class QLabel;
class QStackedLayout;

namespace stagewright {

class SceneSettings;

class InspectorView : public QWidget {
    Q_OBJECT
public:
    explicit InspectorView(SceneSettings& settings, QWidget* parent = nullptr);

    /// The text shown while the front tab has no selected element.
    static QString noSelectionText();
    /// True while the panes of a selection are shown.
    bool showsSelection() const;

private:
    void watchFrontTab();
    void refresh();

    SceneSettings& m_settings;
    QPointer<projectTab> m_tab;
    QStackedLayout* m_pages = nullptr;
    QLabel* m_emptyLabel = nullptr;
    QWidget* m_selectionPage = nullptr;
};

} // namespace stagewright
