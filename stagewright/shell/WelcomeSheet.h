// "Welcome to StageWright": the sheet a new user sees over the main window on
// the first start, and never again.
#pragma once

#include <QDialog>

namespace stagewright {

class SceneSettings;

class WelcomeSheet : public QDialog {
    Q_OBJECT
public:
    explicit WelcomeSheet(QWidget* parent = nullptr);
};

/// On the first start (the stored flag not yet set), shows the welcome sheet
/// over `window` and sets the flag for the starts that follow. The sheet
/// shown, or null.
WelcomeSheet* showWelcomeOnFirstStart(QWidget* window, SceneSettings& settings);

} // namespace stagewright
