// The toolbar of the main window: the level popover, the sheets of the level
// (present, and enabled as they come), the object library, the zoom picker
// and the switch that hides the backgrounds.
#pragma once

#include <QToolBar>

class QCheckBox;
class QComboBox;
class QToolButton;

namespace stagewright {

class Commands;
class LevelPopover;
class NodeListPopover;
class SceneSettings;

class NavigationToolbar : public QToolBar {
    Q_OBJECT
public:
    NavigationToolbar(SceneSettings& settings, Commands& commands, QWidget* parent = nullptr);

    QToolButton* scenesButton() const { return m_scenes; }
    QToolButton* sceneSizeButton() const { return m_sceneSize; }
    QToolButton* propertiesButton() const { return m_properties; }
    QToolButton* libraryButton() const { return m_library; }
    QToolButton* nodeListButton() const { return m_nodeList; }
    QToolButton* statisticsButton() const { return m_statistics; }
    QComboBox* scalingPicker() const { return m_scaling; }
    QCheckBox* hideBackgroundSwitch() const { return m_hideBackground; }
    LevelPopover* levelPopover() const { return m_popover; }
    NodeListPopover* nodeListPopover() const { return m_nodeListPopover; }

    /// The help text of "Hide Background?".
    static QString hideBackgroundHelp();
    /// Shows the library button as open or closed.
    void setLibraryOpen(bool open);

private:
    void refresh();
    QToolButton* addButton(const QString& objectName, const QString& title, const QIcon& icon);

    SceneSettings& m_settings;
    Commands& m_commands;
    LevelPopover* m_popover = nullptr;
    NodeListPopover* m_nodeListPopover = nullptr;
    QToolButton* m_scenes = nullptr;
    QToolButton* m_sceneSize = nullptr;
    QToolButton* m_properties = nullptr;
    QToolButton* m_library = nullptr;
    QToolButton* m_nodeList = nullptr;
    QToolButton* m_statistics = nullptr;
    QComboBox* m_scaling = nullptr;
    QCheckBox* m_hideBackground = nullptr;
};

} // namespace stagewright
