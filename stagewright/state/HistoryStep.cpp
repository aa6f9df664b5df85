#include "HistoryStep.h"

#include <QUndoStack>

#include <memory>
#include <utility>

namespace stagewright {

void HistoryStep::redo()
{
    if (std::exchange(m_ranBeforePush, false))
        return;
    redoStep();
}

bool pushStep(QUndoStack& stack, HistoryStep* step)
{
    std::unique_ptr<HistoryStep> owned(step);
    owned->redoStep();
    if (owned->isObsolete())
        return false;
    owned->m_ranBeforePush = true;
    stack.push(owned.release());
    return true;
}

} // namespace stagewright
