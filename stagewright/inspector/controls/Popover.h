// The popovers of the controls: a frame that pops up below the control that
// opened it and closes on a click outside.
#pragma once

#include <QFrame>

namespace stagewright::detail {

/// A frame with the popup flag, owned by `owner` and hidden until shown.
QFrame* makePopover(QWidget* owner);
/// Shows `popover` below `anchor`, moved so that it stays on the screen.
void showPopoverBelow(QFrame* popover, QWidget* anchor);

} // namespace stagewright::detail
