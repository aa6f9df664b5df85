// The popover "Node List" of the toolbar: every element of the front tab's
// canvas, by layer, to select one; and the scroll position of the canvas.
#pragma once

#include <stagewright/state/ProjectTab.h>

#include <QFrame>
#include <QPointer>

class QComboBox;

namespace stagewright {

class Commands;
class LabelledPointStepper;
class SceneSettings;

class NodeListPopover : public QFrame {
    Q_OBJECT
public:
    static constexpr int popoverWidth = 420;

    NodeListPopover(SceneSettings& settings, Commands& commands, QWidget* parent = nullptr);

    /// Opens under `anchor` with the nodes as they are now.
    void popup(QWidget* anchor);
    /// The picker "Select a Node": its entries hold their tags as item data.
    QComboBox* picker() const { return m_picker; }
    LabelledPointStepper* positionStepper() const { return m_position; }
    /// Lists the front tab's nodes again.
    void rebuild();

private:
    void watchFrontTab();
    void showScenePosition();

    SceneSettings& m_settings;
    Commands& m_commands;
    QPointer<ProjectTab> m_tab;
    QComboBox* m_picker = nullptr;
    LabelledPointStepper* m_position = nullptr;
};

} // namespace stagewright
