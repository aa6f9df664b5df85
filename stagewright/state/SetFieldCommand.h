// The step that sets one field of a level: the field as it was and as it
// became, put back through the document. Consecutive edits of the same field
// join when they ask to (a typed or stepped number), so one run of typing is
// one step.
#pragma once

#include "HistoryStep.h"

#include <tessaro/model/FieldPath.h>
#include <tessaro/model/Uuid.h>

#include <QPointer>

#include <functional>
#include <string>

namespace stagewright {

class LevelDocument;

class SetFieldCommand : public HistoryStep {
public:
    SetFieldCommand(LevelDocument& document, const tessaro::Uuid& levelId, tessaro::FieldPath path,
                    tessaro::FieldValue value, const QString& text, bool joins);

    void redoStep() override;
    void undo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    /// Called with the level before every later redo and every undo: a step
    /// of a level the canvas draws shows that level first, so it is undone
    /// where the user can see it.
    void showLevelFirst(std::function<void(const tessaro::Uuid&)> show) { m_showLevel = std::move(show); }
    /// Called after every write of the field, for what shows it besides the
    /// views that follow the document.
    void followWith(std::function<void()> follow) { m_follow = std::move(follow); }
    /// Joins only later steps of the same run (one sound's volume, say).
    void joinOnlyWithin(std::string run) { m_run = std::move(run); }

private:
    void show() const;
    void write(const tessaro::FieldValue& value);

    QPointer<LevelDocument> m_document;
    tessaro::Uuid m_levelId;
    tessaro::FieldPath m_path;
    tessaro::FieldValue m_before;
    tessaro::FieldValue m_after;
    bool m_joins;
    bool m_done = false;
    std::function<void(const tessaro::Uuid&)> m_showLevel;
    std::function<void()> m_follow;
    std::string m_run;
};

} // namespace stagewright
