// Showing a file in the desktop's file manager.
#pragma once

#include <QString>

#include <functional>

namespace stagewright {

/// Reveals and selects a file, or opens a folder, in the file manager.
using FileRevealer = std::function<void(const QString& path)>;

/// Asks the desktop's file manager to show the file selected, through the
/// session bus (org.freedesktop.FileManager1, ShowItems); where no file
/// manager answers there, opens the file's folder with "xdg-open". False when
/// neither could be started.
bool revealInFileManager(const QString& path);

} // namespace stagewright
