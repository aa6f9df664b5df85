#include "Windows.h"

#include "AboutWindow.h"
#include "AppSettingsView.h"
#include "HelpWindow.h"
#include "ObjectLibraryWindow.h"

#include <QCoreApplication>
#include <QEvent>

namespace stagewright {

WindowDirectory::~WindowDirectory() = default;

// ---- Manager ----------------------------------------------------------------------

WindowManager::WindowManager(SceneSettings& settings, AppPreferences& preferences, QObject* parent)
    : QObject(parent),
      m_settings(settings),
      m_preferences(preferences)
{
}

WindowManager::~WindowManager()
{
    for (const QPointer<QWidget>& window : std::as_const(m_windows))
        delete window.data();
}

void WindowManager::setMainWindow(QWidget* window)
{
    m_main = window;
}

QWidget* WindowManager::make(const QString& id)
{
    QWidget* window = nullptr;
    if (id == WindowId::objectLibrary)
        window = new ObjectLibraryWindow(m_settings);
    else if (id == WindowId::settings)
        window = new AppSettingsView(m_preferences);
    else if (id == WindowId::about)
        window = new AboutWindow(&m_preferences);
    else if (id == WindowId::help)
        window = new HelpWindow;
    if (window) {
        window->installEventFilter(this);
        m_windows.insert(id, window);
    }
    return window;
}

QWidget* WindowManager::window(const QString& id) const
{
    if (id == WindowId::main)
        return m_main;
    return m_windows.value(id);
}

void WindowManager::openWindow(const QString& id)
{
    QWidget* target = window(id);
    if (!target)
        target = make(id);
    if (!target)
        return;
    target->show();
    target->raise();
    target->activateWindow();
}

void WindowManager::dismissWindow(const QString& id)
{
    if (QWidget* target = window(id))
        target->close();
}

bool WindowManager::isWindowOpen(const QString& id) const
{
    const QWidget* target = window(id);
    return target && target->isVisible();
}

void WindowManager::closeAuxiliaryWindows()
{
    for (const QPointer<QWidget>& window : std::as_const(m_windows))
        if (window)
            window->close();
}

bool WindowManager::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        for (auto it = m_windows.cbegin(); it != m_windows.cend(); ++it)
            if (it.value() == watched)
                emit windowOpenChanged(it.key(), event->type() == QEvent::Show);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace stagewright
