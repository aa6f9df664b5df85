#include "PermissionManager.h"

#include "BookmarksManager.h"
#include "StateDiagnostics.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace stagewright {

namespace {

// The gate whose lock this thread holds, if any: a second grant sought from
// inside the work would wait on itself forever.
thread_local const PermissionManager* lockHolder = nullptr;

QString applicationName()
{
    const QString name = QCoreApplication::applicationName();
    return name.isEmpty() ? QStringLiteral("Current App") : name;
}

} // namespace

OpenPanelManager OpenPanelManager::standard()
{
    OpenPanelManager panel;
    panel.title =
        QCoreApplication::translate("PermissionManager", "Access permissions required", "Sandbox open panel title.");
    panel.message =
        QCoreApplication::translate("PermissionManager", "Please allow '%1' to access this file or folder to continue.",
                                    "Sandbox open panel message.")
            .arg(applicationName());
    panel.prompt = QCoreApplication::translate("PermissionManager", "Allow", "Sandbox open panel prompt.");
    return panel;
}

ChooseResult choiceFromPanelResponse(int response, const QStringList& chosen)
{
    switch (response) {
    case 1:
        if (!chosen.isEmpty())
            return chosen.front();
        return OpenPanelError::canceled;
    case 0: return OpenPanelError::canceled;
    case -1000: return OpenPanelError::stopped;
    default: return OpenPanelError::aborted;
    }
}

AccessTests probeFileSystem(const QString& location)
{
    AccessTests tests;
    const QByteArray path = QFile::encodeName(location);
    tests.reachable = !location.isEmpty() && QFileInfo::exists(location);
    tests.readable = tests.reachable && ::access(path.constData(), R_OK) == 0;
    tests.writable = tests.reachable && ::access(path.constData(), W_OK) == 0;
    return tests;
}

PermissionManager::PermissionManager(BookmarksManager& bookmarks) : m_bookmarks(bookmarks), m_probe(probeFileSystem) {}

PermissionManager& PermissionManager::shared()
{
    static PermissionManager* instance = new PermissionManager(BookmarksManager::shared());
    return *instance;
}

void PermissionManager::setChooser(FolderChooser chooser)
{
    m_chooser = std::move(chooser);
}

void PermissionManager::setAccessProbe(AccessProbe probe)
{
    m_probe = probe ? std::move(probe) : AccessProbe(probeFileSystem);
}

bool PermissionManager::needsPermission(const QString& location) const
{
    const AccessTests tests = m_probe(location);
    diagnosticLine(QStringLiteral("needsPermissionForFileAtURL: ") + location + QStringLiteral(" reachable: ") +
                   boolText(tests.reachable) + QStringLiteral(" readable: ") + boolText(tests.readable) +
                   QStringLiteral(" writable: ") + boolText(tests.writable));
    return !(tests.reachable && tests.readable && tests.writable);
}

ChooseResult PermissionManager::choose(const QString& location)
{
    if (!m_chooser)
        return OpenPanelError::aborted;
    OpenPanelRequest request;
    request.location = location;
    request.directory = QFileInfo(location).absolutePath();
    request.texts = openPanelManager;
    return m_chooser(request);
}

AccessResult PermissionManager::withAccess(const QString& location, const std::function<void()>& work)
{
    if (!needsPermission(location)) {
        work();
        return {true, std::nullopt};
    }
    if (lockHolder == this) {
        diagnosticLine(QStringLiteral("Access to ") + location +
                       QStringLiteral(" was sought inside other file work; the work is not run."));
        return {false, std::nullopt};
    }
    std::unique_lock guard(m_lock);
    lockHolder = this;
    struct Release {
        ~Release() { lockHolder = nullptr; }
    } release;

    std::optional<QString> grant = m_bookmarks.loadSecurityScopedURL(location);
    if (!grant && needsPermission(location)) {
        ChooseResult chosen = choose(location);
        if (auto* error = std::get_if<OpenPanelError>(&chosen))
            return {false, *error};
        grant = std::get<QString>(chosen);
    }
    if (!grant)
        return {false, std::nullopt};
    if (persistBookmarks)
        m_bookmarks.add(*grant);
    const bool started = BookmarksManager::startAccessing(*grant);
    work();
    return {started, std::nullopt};
}

} // namespace stagewright
