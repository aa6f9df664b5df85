// The windows of the application besides the main window, and the directory
// that opens and dismisses them by their identifiers.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

namespace stagewright {

class AppPreferences;
class SceneSettings;

/// The identifiers of the windows.
namespace WindowId {
inline const QString main = QStringLiteral("StageWright");
inline const QString objectLibrary = QStringLiteral("selectionObjects");
inline const QString settings = QStringLiteral("settings");
inline const QString about = QStringLiteral("about");
inline const QString help = QStringLiteral("helpFAQ");
} // namespace WindowId

/// Opens and dismisses windows by identifier.
class WindowDirectory {
public:
    virtual ~WindowDirectory();
    virtual void openWindow(const QString& id) = 0;
    virtual void dismissWindow(const QString& id) = 0;
    virtual bool isWindowOpen(const QString& id) const = 0;
};

/// Makes the windows on first use and keeps them for the run. A window that
/// is closed is hidden, so it opens again as it was.
class WindowManager : public QObject, public WindowDirectory {
    Q_OBJECT
public:
    WindowManager(SceneSettings& settings, AppPreferences& preferences, QObject* parent = nullptr);
    ~WindowManager() override;

    void setMainWindow(QWidget* window);

    void openWindow(const QString& id) override;
    void dismissWindow(const QString& id) override;
    bool isWindowOpen(const QString& id) const override;

    /// The window with that identifier, or null while it has not been made.
    QWidget* window(const QString& id) const;
    /// Closes every window but the main one.
    void closeAuxiliaryWindows();

signals:
    void windowOpenChanged(const QString& id, bool open);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* make(const QString& id);

    SceneSettings& m_settings;
    AppPreferences& m_preferences;
    QPointer<QWidget> m_main;
    QHash<QString, QPointer<QWidget>> m_windows;
};

} // namespace stagewright
