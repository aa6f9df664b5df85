// The content the program carries for its shell: the application image and
// the help file.
#pragma once

#include <QPixmap>
#include <QString>

namespace stagewright {

/// The path of a file among the shell's resources ("help/HelpFAQ.plist").
QString shellContentPath(const QString& relative);
/// The application image at `side` pixels square.
QPixmap applicationImage(int side);

} // namespace stagewright
