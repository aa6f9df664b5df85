#include "ObjectMenuPopup.h"

#include <QAction>
#include <QMenu>

namespace stagewright {

std::optional<std::size_t> popUpObjectMenu(const NodeMenu& menu, const tessaro::kit::MouseEvent& event)
{
    QMenu popup(menu.title);
    popup.setObjectName(QStringLiteral("objectMenu"));
    popup.addAction(menu.header)->setEnabled(false);
    popup.addSeparator();
    std::vector<QAction*> entries;
    for (const NodeMenuItem& item : menu.items)
        entries.push_back(popup.addAction(item.title));
    const QAction* picked = popup.exec(event.globalLocation);
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i] == picked)
            return i;
    return std::nullopt;
}

} // namespace stagewright
