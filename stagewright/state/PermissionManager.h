// The one gate for file access. Every read or write of workspace files runs
// inside `withAccess`: a location that is reachable, readable and writable as
// it is needs nothing more; any other runs under a stored grant, or under a
// folder the user is asked to choose, with one lock held throughout.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <mutex>
#include <optional>
#include <variant>

namespace stagewright {

class BookmarksManager;

/// How a folder choice ended without a folder.
enum class OpenPanelError { canceled, stopped, aborted };

/// Texts of the folder panel that asks for access.
struct OpenPanelManager {
    std::optional<QString> title;
    std::optional<QString> message;
    std::optional<QString> prompt;

    /// "Access permissions required", "Please allow '<app>' to access this
    /// file or folder to continue.", "Allow".
    static OpenPanelManager standard();
};

/// What a folder chooser is asked.
struct OpenPanelRequest {
    QString location; // the location that needs access
    QString directory; // where the panel opens: the location's parent folder
    OpenPanelManager texts;
};

using ChooseResult = std::variant<QString, OpenPanelError>;
/// Shows a folder panel (directories only, one choice, no folder creation)
/// and gives the chosen folder or how the panel was left.
using FolderChooser = std::function<ChooseResult(const OpenPanelRequest&)>;

/// The result of a panel from its response code: 1 gives the first chosen
/// folder, 0 `canceled`, -1000 `stopped`, -1001 and anything else `aborted`.
ChooseResult choiceFromPanelResponse(int response, const QStringList& chosen);

/// The three tests of a location.
struct AccessTests {
    bool reachable = false;
    bool readable = false;
    bool writable = false;
};
using AccessProbe = std::function<AccessTests(const QString& location)>;
/// The tests on the file system as it is.
AccessTests probeFileSystem(const QString& location);

struct AccessResult {
    bool granted = false; // the work ran with access
    std::optional<OpenPanelError> error; // the panel was left without a folder
    explicit operator bool() const { return granted; }
};

class PermissionManager {
public:
    explicit PermissionManager(BookmarksManager& bookmarks);

    /// The one instance of the run, on the shared bookmarks.
    static PermissionManager& shared();

    OpenPanelManager openPanelManager = OpenPanelManager::standard();
    bool persistBookmarks = true;

    /// Installs the folder panel. Without one every choice is `aborted`.
    void setChooser(FolderChooser chooser);
    /// Replaces the three tests, for tests of the gate itself.
    void setAccessProbe(AccessProbe probe);
    BookmarksManager& bookmarks() { return m_bookmarks; }

    /// True when the location is not reachable, readable and writable.
    bool needsPermission(const QString& location) const;

    /// Runs `work` with access to `location`. The result is true when the work
    /// ran; the work does not run when no grant is found or chosen, or when a
    /// grant would be sought from inside another caller's work (the lock is
    /// not recursive).
    AccessResult withAccess(const QString& location, const std::function<void()>& work);

    /// Asks the user for a folder through the installed chooser.
    ChooseResult choose(const QString& location);

private:
    BookmarksManager& m_bookmarks;
    FolderChooser m_chooser;
    AccessProbe m_probe;
    std::mutex m_lock;
};

} // namespace stagewright
