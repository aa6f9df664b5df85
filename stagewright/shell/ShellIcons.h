// The symbols of the editor's commands and controls. Each takes the icon of
// the desktop's theme where the theme has a counterpart, and otherwise a
// drawn icon that follows the palette, so it reads in dark and light.
#pragma once

#include <stagewright/inspector/controls/DrawnIcon.h>

#include <QIcon>

namespace stagewright {

enum class Symbol {
    info, // about
    plus, // new level tab
    sidebarRight, // toggle the inspector
    xmark, // close box of a tab
    scenes, // level popover
    sceneSize, // scene size sheet, "Add a Scene"
    properties, // level properties sheet
    library, // object library window
    libraryOpen, // ... while it is open
    nodeList, // node list popover
    statistics, // statistics sheet
    checkmark, // the selected level
    moveDown, // move a level down
    moveUp, // move a level up
    trash, // delete
    cut,
    copy,
    paste,
    level, // footer: the level's folder
    workspace, // footer: the workspace folder
    minus, // remove a row
    gear, // settings: general
    folderGear, // settings: workspace
    lock, // settings: permissions
    clear, // reset the settings
};

/// The freedesktop icon name of a symbol, or empty where the theme has none.
QString themeIconName(Symbol symbol);
/// The icon of a symbol: the theme's, else the drawn one.
QIcon shellIcon(Symbol symbol);
/// The drawn icon alone.
QIcon drawnIcon(Symbol symbol);

} // namespace stagewright
