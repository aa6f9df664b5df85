#include "SoundEditors.h"

#include "SoundEditCommand.h"
#include "SoundRows.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QVBoxLayout>

namespace stagewright {

// ---- The level editor ----------------------------------------------------------------------

GameSoundStageWrightView::GameSoundStageWrightView(SceneSettings& settings, SoundPropertyType type, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_type(type)
{
    setObjectName(QStringLiteral("gameSoundStageWrightView"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_list = new SoundListView(true, this);
    column->addWidget(m_list);

    connect(m_list, &SoundListView::addRequested, this, [this] {
        std::vector<tessaro::GameSound> sounds = m_sounds;
        appendNewSound(sounds);
        change(std::move(sounds));
    });
    connect(m_list, &SoundListView::deleteRequested, this, [this](std::size_t index) {
        std::vector<tessaro::GameSound> sounds = m_sounds;
        if (removeSound(sounds, index))
            change(std::move(sounds));
    });
    connect(m_list, &SoundListView::edited, this,
            [this](std::size_t index, SoundField field, const SoundFieldValue& value) {
                std::vector<tessaro::GameSound> sounds = m_sounds;
                if (setSoundField(sounds, index, field, value) && sounds != m_sounds)
                    change(std::move(sounds));
            });
    connect(&m_settings, &SceneSettings::audioListChanged, this, &GameSoundStageWrightView::refresh);
    refresh();
}

void GameSoundStageWrightView::setSounds(std::vector<tessaro::GameSound> sounds)
{
    m_sounds = std::move(sounds);
    refresh();
}

void GameSoundStageWrightView::change(std::vector<tessaro::GameSound> sounds)
{
    m_sounds = std::move(sounds);
    refresh();
    emit soundsChanged(m_sounds);
}

void GameSoundStageWrightView::refresh()
{
    m_list->setSounds(m_sounds, m_settings.audioList());
}

// ---- The object editor ---------------------------------------------------------------------

GameSoundObjectEditorView::GameSoundObjectEditorView(SceneSettings& settings, std::optional<SoundPropertyType> type,
                                                     QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_type(type)
{
    setObjectName(QStringLiteral("gameSoundObjectEditorView"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_list = new SoundListView(false, this);
    column->addWidget(m_list);
    column->addStretch(1);

    // Every edit is a step of the tab's history; the list shown is read back
    // from its receiver when the step has run, so an edit that reaches no
    // receiver shows as undone at once.
    connect(m_list, &SoundListView::addRequested, this, [this] {
        if (m_tab)
            SoundEditRouting(*m_tab, this->type()).add();
        refresh();
    });
    connect(m_list, &SoundListView::deleteRequested, this, [this](std::size_t index) {
        if (m_tab)
            SoundEditRouting(*m_tab, this->type()).remove(index);
        refresh();
    });
    connect(m_list, &SoundListView::edited, this,
            [this](std::size_t index, SoundField field, const SoundFieldValue& value) {
                if (m_tab)
                    SoundEditRouting(*m_tab, this->type()).change(index, field, value);
                refresh();
            });
    connect(&m_settings, &SceneSettings::selectedProjectTabChanged, this, &GameSoundObjectEditorView::watchFrontTab);
    connect(&m_settings, &SceneSettings::audioListChanged, this, &GameSoundObjectEditorView::refresh);
    watchFrontTab();
}

SoundPropertyType GameSoundObjectEditorView::type() const
{
    if (m_type)
        return *m_type;
    return m_tab ? soundPropertyTypeOf(m_tab->selectedObject().type) : SoundPropertyType::object;
}

void GameSoundObjectEditorView::watchFrontTab()
{
    if (m_tab)
        disconnect(m_tab, nullptr, this, nullptr);
    m_tab = m_settings.selectedProjectTab().get();
    if (m_tab) {
        for (auto change : {&ProjectTab::selectedObjectChanged, &ProjectTab::levelConfigChanged,
                            &ProjectTab::levelSelectedChanged, &ProjectTab::elementPhaseChanged})
            connect(m_tab, change, this, &GameSoundObjectEditorView::refresh);
    }
    refresh();
}

void GameSoundObjectEditorView::refresh()
{
    if (!m_tab) {
        m_list->setSounds({}, m_settings.audioList());
        m_list->setEditable(false);
        return;
    }
    const SoundEditRouting routing(*m_tab, type());
    m_list->setSounds(routing.sounds(), m_settings.audioList());
    m_list->setEditable(routing.canWrite());
}

} // namespace stagewright
