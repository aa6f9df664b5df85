// The two sound editors. The level editor edits a list its pane hands it and
// reports each change of it; the pane stores the list. The object editor
// edits the sounds of the front tab's selection, each change one step of the
// tab's history.
#pragma once

#include "SoundList.h"

#include <QPointer>
#include <QWidget>

#include <optional>
#include <vector>

namespace stagewright {

class SceneSettings;
class SoundListView;
class ProjectTab;

/// The sounds of a part of the level, for the level properties panes.
class GameSoundStageWrightView : public QWidget {
    Q_OBJECT
public:
    GameSoundStageWrightView(SceneSettings& settings, SoundPropertyType type, QWidget* parent = nullptr);

    SoundPropertyType type() const { return m_type; }
    const std::vector<tessaro::GameSound>& sounds() const { return m_sounds; }
    /// Shows the pane's list; reports nothing.
    void setSounds(std::vector<tessaro::GameSound> sounds);
    SoundListView& listView() const { return *m_list; }

signals:
    /// The user changed the list: added, deleted or edited a sound.
    void soundsChanged(const std::vector<tessaro::GameSound>& sounds);

private:
    void change(std::vector<tessaro::GameSound> sounds);
    void refresh();

    SceneSettings& m_settings;
    SoundPropertyType m_type;
    std::vector<tessaro::GameSound> m_sounds;
    SoundListView* m_list = nullptr;
};

/// The inspector's "Sounds" tab: the sounds of the selected element of the
/// front tab, written to their receiver through the tab's history.
class GameSoundObjectEditorView : public QWidget {
    Q_OBJECT
public:
    /// Without a `type` the list follows the kind of the selection: an
    /// obstacle's or a character's own, else its level record's.
    explicit GameSoundObjectEditorView(SceneSettings& settings, std::optional<SoundPropertyType> type = {},
                                       QWidget* parent = nullptr);

    /// The list edited for the present selection.
    SoundPropertyType type() const;
    SoundListView& listView() const { return *m_list; }

private:
    void watchFrontTab();
    void refresh();

    SceneSettings& m_settings;
    std::optional<SoundPropertyType> m_type;
    QPointer<ProjectTab> m_tab;
    SoundListView* m_list = nullptr;
};

} // namespace stagewright
