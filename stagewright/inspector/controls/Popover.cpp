#include "Popover.h"

#include <QScreen>

namespace stagewright::detail {

QFrame* makePopover(QWidget* owner)
{
    auto* popover = new QFrame(owner, Qt::Popup);
    popover->setFrameShape(QFrame::StyledPanel);
    popover->setAttribute(Qt::WA_WindowPropagation);
    return popover;
}

void showPopoverBelow(QFrame* popover, QWidget* anchor)
{
    popover->adjustSize();
    QPoint at = anchor->mapToGlobal(QPoint(0, anchor->height()));
    if (const QScreen* screen = anchor->screen()) {
        const QRect available = screen->availableGeometry();
        const QSize size = popover->size();
        if (at.x() + size.width() > available.right())
            at.setX(std::max(available.left(), available.right() - size.width()));
        if (at.y() + size.height() > available.bottom())
            at.setY(std::max(available.top(), anchor->mapToGlobal(QPoint(0, 0)).y() - size.height()));
    }
    popover->move(at);
    popover->show();
}

} // namespace stagewright::detail
