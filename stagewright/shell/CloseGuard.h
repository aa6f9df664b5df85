// What happens to unsaved work when the main window closes: nothing goes
// without the user's answer.
#pragma once

#include "ClosePrompt.h"

#include <QStringList>

#include <functional>

namespace stagewright {

class Commands;
class ShellDialogs;

class CloseGuard {
public:
    /// Asks with the names of the projects that have unsaved changes.
    using Question = std::function<CloseAnswer(const QStringList& projectNames)>;

    /// A save that fails is reported through `dialogs`.
    CloseGuard(Commands& commands, ShellDialogs& dialogs, Question ask);

    /// True when the window may close: nothing is unsaved, or the user saved
    /// it all, or chose to discard it. "Save All" saves each project in turn
    /// the way "Save" does, asking where for one without a file; a save that
    /// is cancelled or fails keeps the window open with that project in front.
    bool mayClose();
    /// The last `mayClose` let the window close with the user's consent, so
    /// the run may end without leaving recovery copies behind.
    bool closeAgreed() const { return m_agreed; }

private:
    Commands& m_commands;
    ShellDialogs& m_dialogs;
    Question m_ask;
    bool m_agreed = false;
};

} // namespace stagewright
