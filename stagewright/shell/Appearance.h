// Dark and light appearance for every window of the application, following
// `isDark` of the application state.
#pragma once

#include <QObject>
#include <QPalette>

namespace stagewright {

class SceneSettings;

/// The palette of the dark appearance.
QPalette darkPalette();
/// The palette of the light appearance.
QPalette lightPalette();

/// Gives the application the palette of `isDark` now and on every change.
class Appearance : public QObject {
    Q_OBJECT
public:
    explicit Appearance(SceneSettings& settings, QObject* parent = nullptr);
    /// Applies the palette of the given appearance to the application.
    static void apply(bool dark);
};

} // namespace stagewright
