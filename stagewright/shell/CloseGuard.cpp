#include "CloseGuard.h"

#include "Commands.h"
#include "Dialogs.h"

#include <stagewright/state/SceneSettings.h>

#include <memory>
#include <vector>

namespace stagewright {

CloseGuard::CloseGuard(Commands& commands, ShellDialogs& dialogs, Question ask)
    : m_commands(commands),
      m_dialogs(dialogs),
      m_ask(std::move(ask))
{
}

bool CloseGuard::mayClose()
{
    m_agreed = false;
    std::vector<std::shared_ptr<ProjectTab>> unsaved;
    QStringList names;
    for (const auto& tab : m_commands.settings().projectTabs()) {
        if (tab->isProjectDirty()) {
            unsaved.push_back(tab);
            names << tab->name();
        }
    }
    if (unsaved.empty()) {
        m_agreed = true;
        return true;
    }

    switch (m_ask(names)) {
    case CloseAnswer::Cancel: return false;
    case CloseAnswer::Discard: break;
    case CloseAnswer::SaveAll:
        for (const auto& tab : unsaved) {
            m_commands.selectTab(tab->id());
            m_commands.save();
            if (!tab->isProjectDirty())
                continue;
            // A cancelled save panel needs no word; a file that could not be
            // written does.
            if (tab->filePath() && tab->filePath() != tab->unreadableFile())
                m_dialogs.reportFailure(QObject::tr("“%1” could not be saved.").arg(tab->name()),
                                        QObject::tr("The window stays open so that no change is lost."));
            return false;
        }
        break;
    }
    m_agreed = true;
    return true;
}

} // namespace stagewright
