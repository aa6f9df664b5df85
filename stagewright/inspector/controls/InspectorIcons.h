// The symbols of the inspector's buttons: the head's, the "Actions" menu's
// and the cycle-end sheet's. Each is the desktop theme's icon where the theme
// has one, else one drawn at paint time in the palette's text colour, so no
// button is left without a picture and each reads in dark and light.
#pragma once

#include <QIcon>

class QPainter;

namespace stagewright {

enum class InspectorSymbol {
    physics, // the physics editor
    baseProperties, // the catalogue record's sheet
    groundOrder, // the order of the ground sections
    actions, // the clipboard menu
    cut,
    copy,
    paste,
    trash,
    cycleEnd, // the cycle-end sheet
    add, // a cycle end
    remove, // ... taken out
    close, // the sheet
};

/// The freedesktop name of a symbol's icon.
QString inspectorThemeIconName(InspectorSymbol symbol);
/// The theme's icon of a symbol, else the drawn one.
QIcon inspectorIcon(InspectorSymbol symbol);
/// The drawn icon alone.
QIcon drawnInspectorIcon(InspectorSymbol symbol);
/// Draws `symbol` into a 24 by 24 box with the pen set to the ink; the shell
/// draws its cut, copy, paste and delete symbols with it too.
void drawInspectorSymbol(QPainter& p, InspectorSymbol symbol);

} // namespace stagewright
