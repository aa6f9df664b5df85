// The symbols of the level properties sheet: its seven tabs and its close
// button, drawn in the palette's text colour.
#pragma once

#include <QIcon>

#include <string_view>

namespace stagewright {

/// The icon of a symbol name of the sheet ("shield", "xmark.square", ...);
/// an empty icon for a name it does not know.
QIcon levelSheetIcon(std::string_view symbol);

} // namespace stagewright
