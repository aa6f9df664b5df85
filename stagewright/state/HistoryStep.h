// A step of a history that runs before it is pushed. Qt drops the redo steps
// above the current index before it looks at whether a pushed command is
// obsolete, so a step that changed nothing (a Delete with nothing to delete, a
// value typed again) would still cost the user their redo steps and the clean
// point. `pushStep` runs the step first and pushes it only when it changed
// something.
#pragma once

#include <QUndoCommand>

class QUndoStack;

namespace stagewright {

class HistoryStep : public QUndoCommand {
public:
    using QUndoCommand::QUndoCommand;
    /// Runs `redoStep`, except right after `pushStep` has run it.
    void redo() final;

protected:
    /// The step itself; marks the step obsolete when it changed nothing.
    virtual void redoStep() = 0;

private:
    friend bool pushStep(QUndoStack& stack, HistoryStep* step);
    bool m_ranBeforePush = false;
};

/// Runs `step` and pushes it onto `stack` when it changed something, else
/// deletes it and leaves the stack alone. Takes ownership; true when pushed.
bool pushStep(QUndoStack& stack, HistoryStep* step);

} // namespace stagewright
