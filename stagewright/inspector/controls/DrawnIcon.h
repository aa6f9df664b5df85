// Icons drawn when they are painted, in the palette's colours of that moment,
// so that a change of appearance needs no new icons. The inspector's and the
// shell's symbols are drawn through it.
#pragma once

#include <QIcon>

#include <functional>

class QColor;
class QPainter;
class QPalette;

namespace stagewright {

/// Draws a symbol into a 24 by 24 box. The painter's pen is already the ink:
/// the palette's text colour, faded when the icon is disabled, and the
/// palette is then in its disabled group.
using SymbolDrawing = std::function<void(QPainter& painter, const QColor& ink, const QPalette& palette)>;

/// An icon that `drawing` draws whenever it is painted.
QIcon drawnIcon(SymbolDrawing drawing);

} // namespace stagewright
