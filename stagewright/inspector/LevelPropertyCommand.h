// The step of a project's history that changes one of the level's own
// properties (an image, a number, the coins' repeat distance, a sound list).
// It keeps the field as stored before and after, absence and text included,
// and puts either back; the rest of the sub-record is the scene's to write
// back and stays as it is.
#pragma once

#include "LevelProperties.h"

#include <stagewright/state/HistoryStep.h>

#include <tessaro/model/Uuid.h>

#include <QPointer>

#include <optional>

namespace stagewright {

class projectTab;

/// Merge id of the level's properties: + 16 * kind + the field.
inline constexpr int levelPropertyMergeId = 3000;

class LevelPropertyCommand : public HistoryStep {
public:
    LevelPropertyCommand(projectTab& tab, const tessaro::Uuid& levelId, tessaro::sceneObjectType kind, int selector,
                         levelPropertyValue value);
    void redoStep() override;
    void undo() override;
    /// Stepping or typing a number and editing a sound in place join; a
    /// chosen image, and a sound added or taken out, are steps of their own.
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

private:
    void show(const std::optional<levelPropertyValue>& stored);
    bool joins() const;

    QPointer<projectTab> m_tab;
    tessaro::Uuid m_levelId;
    tessaro::sceneObjectType m_kind;
    int m_selector;
    levelPropertyValue m_value;
    /// The field as stored before and after the change, none where absent.
    std::optional<levelPropertyValue> m_before;
    std::optional<levelPropertyValue> m_after;
    bool m_done = false;
};

} // namespace stagewright
