// The step that sets one field of a level: the field as it was and as it
// became, put back through the document. Consecutive edits of the same field
// join when they ask to (a typed or stepped number), so one run of typing is
// one step.
#pragma once

#include "HistoryStep.h"

#include <tessaro/model/FieldPath.h>
#include <tessaro/model/Uuid.h>

#include <QPointer>

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

private:
    QPointer<LevelDocument> m_document;
    tessaro::Uuid m_levelId;
    tessaro::FieldPath m_path;
    tessaro::FieldValue m_before;
    tessaro::FieldValue m_after;
    bool m_joins;
    bool m_done = false;
};

} // namespace stagewright
