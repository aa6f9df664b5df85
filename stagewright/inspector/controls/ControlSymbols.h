// The small pictures of the controls, drawn in the text colour so they follow
// the appearance: a number in a circle, the up-and-down chevrons of a menu
// and a check mark.
#pragma once

#include <QColor>
#include <QPixmap>

namespace stagewright::detail {

/// `n` in a circle (the symbol "<n>.circle").
QPixmap circledNumber(int n, const QColor& colour, int side = 16);
/// Chevrons up and down on a filled rounded square.
QPixmap upDownChevrons(const QColor& colour, int side = 16);
/// A check mark; `opacity` 0 leaves a blank of the same size.
QPixmap checkMark(const QColor& colour, double opacity, int side = 16);

} // namespace stagewright::detail
