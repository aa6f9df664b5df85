// The symbols of the object library: its tabs, the class line of a cell and
// the pin button, each drawn in the palette's colours.
#pragma once

#include <QIcon>
#include <QString>

namespace stagewright {

/// The symbol of that name ("globe.americas", "square.2.layers.3d.top.filled",
/// ...); a plain square for a name the library does not use.
QIcon librarySymbol(const QString& name);

} // namespace stagewright
