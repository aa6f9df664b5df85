// The "General" tab of the settings: the appearance, the two web addresses
// and how often unsaved work is copied for recovery, which belong to the
// user rather than to a workspace.
#pragma once

#include <QWidget>

class QCheckBox;
class QLineEdit;

namespace stagewright {

class AppPreferences;
class LabelledIntStepper;

class AppGeneralView : public QWidget {
    Q_OBJECT
public:
    explicit AppGeneralView(AppPreferences& preferences, QWidget* parent = nullptr);

    QCheckBox* darkModeSwitch() const { return m_darkMode; }
    QLineEdit* serverAddressField() const { return m_server; }
    QLineEdit* sourcePageField() const { return m_sourcePage; }
    LabelledIntStepper* autosaveInterval() const { return m_autosave; }

private:
    /// Shows the addresses in force; an empty field shows the default as
    /// its placeholder.
    void showAddresses();

    AppPreferences& m_preferences;
    QCheckBox* m_darkMode = nullptr;
    QLineEdit* m_server = nullptr;
    QLineEdit* m_sourcePage = nullptr;
    LabelledIntStepper* m_autosave = nullptr;
};

} // namespace stagewright
