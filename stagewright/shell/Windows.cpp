#include "Windows.h"

#include "AboutWindow.h"
#include "HelpWindow.h"
#include "ObjectLibraryWindow.h"

#include <stagewright/state/SceneSettings.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

namespace stagewright {

WindowDirectory::~WindowDirectory() = default;

// ---- Settings ---------------------------------------------------------------------

SettingsWindow::SettingsWindow(SceneSettings& settings, QWidget* parent) : QWidget(parent, Qt::Window)
{
    setObjectName(WindowId::settings);
    setWindowTitle(tr("Settings"));
    auto* layout = new QVBoxLayout(this);
    auto* tabs = new QTabWidget(this);
    auto* general = new QWidget(tabs);
    auto* form = new QFormLayout(general);
    m_darkMode = new QCheckBox(general);
    m_darkMode->setObjectName(QStringLiteral("darkModeSwitch"));
    m_darkMode->setChecked(settings.isDark());
    form->addRow(tr("Dark mode:"), m_darkMode);
    tabs->addTab(general, tr("General"));
    layout->addWidget(tabs);
    connect(m_darkMode, &QCheckBox::toggled, &settings, &SceneSettings::setIsDark);
    connect(&settings, &SceneSettings::isDarkChanged, m_darkMode,
            [this, &settings] { m_darkMode->setChecked(settings.isDark()); });
    resize(480, 240);
}

// ---- Manager ----------------------------------------------------------------------

WindowManager::WindowManager(SceneSettings& settings, QObject* parent) : QObject(parent), m_settings(settings) {}

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
        window = new SettingsWindow(m_settings);
    else if (id == WindowId::about)
        window = new AboutWindow;
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
