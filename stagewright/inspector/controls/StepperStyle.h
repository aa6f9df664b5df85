// The look every stepper shares: its sizes and its colours. An invalid colour
// stands for the palette's colour of that role, so steppers follow the
// application's appearance.
#pragma once

#include <QColor>

namespace stagewright {

struct Style {
    double height = 32;
    double labelWidth = 64;
    double buttonWidth = 16;
    double buttonHeight = 20;
    double buttonPadding = 4;
    QColor backgroundColor; // quaternary label colour
    QColor activeButtonColor; // label colour
    QColor inactiveButtonColor; // tertiary label colour
    QColor buttonColor; // label colour
    QColor titleColor; // secondary label colour
    QColor descriptionColor; // label colour
    QColor valueColor; // label colour at opacity 0.5
};

} // namespace stagewright
