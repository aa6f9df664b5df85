// The access gate: the three tests, the order of withAccess, grant files and
// the prefix rule.
#include "StateTestSupport.h"

#include <stagewright/state/BookmarksManager.h>
#include <stagewright/state/PermissionManager.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

using namespace stagewright;
using stagewright::test::DiagnosticCapture;

namespace {

/// Grant storage that records the calls the gate makes.
class RecordingBookmarks : public BookmarksManager {
public:
    RecordingBookmarks(const QString& folder, QStringList* log) : BookmarksManager(folder), m_log(log) {}
    void add(const QString& location) override
    {
        *m_log << QStringLiteral("add ") + location;
        BookmarksManager::add(location);
    }
    std::optional<QString> loadSecurityScopedURL(const QString& location) override
    {
        *m_log << QStringLiteral("lookup ") + location;
        return BookmarksManager::loadSecurityScopedURL(location);
    }

private:
    QStringList* m_log;
};

struct GateFixture : ::testing::Test {
    QTemporaryDir scratch;
    QStringList log;
    RecordingBookmarks bookmarks{scratch.path() + QStringLiteral("/grants"), &log};
    PermissionManager gate{bookmarks};
    QStringList blocked; // locations the probe reports as not writable

    void SetUp() override
    {
        gate.setAccessProbe([this](const QString& location) {
            AccessTests tests = probeFileSystem(location);
            for (const QString& prefix : blocked)
                if (location.startsWith(prefix))
                    tests.writable = false;
            return tests;
        });
    }
    QString folder(const QString& name)
    {
        const QString path = scratch.path() + QLatin1Char('/') + name;
        QDir().mkpath(path);
        return path;
    }
    int grantFileCount() const { return int(QDir(bookmarks.grantFolder()).entryList(QDir::Files).size()); }
};

} // namespace

TEST_F(GateFixture, AUsableLocationRunsTheWorkWithoutGrantOrPanel)
{
    const QString project = folder(QStringLiteral("open"));
    int asked = 0;
    gate.setChooser([&](const OpenPanelRequest&) -> ChooseResult {
        ++asked;
        return OpenPanelError::canceled;
    });
    DiagnosticCapture capture;
    bool ran = false;
    EXPECT_TRUE(gate.withAccess(project, [&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(log.isEmpty());
    EXPECT_EQ(capture.lines(),
              std::vector<std::string>{"needsPermissionForFileAtURL: " + project.toStdString() +
                                       " reachable: true readable: true writable: true"});

    EXPECT_TRUE(gate.needsPermission(project + QStringLiteral("/missing.plist")));
}

TEST_F(GateFixture, ALockedLocationAsksOnceAndThenUsesTheStoredGrant)
{
    const QString root = folder(QStringLiteral("locked"));
    const QString project = folder(QStringLiteral("locked/levels"));
    blocked << root;
    QStringList requests;
    gate.setChooser([&](const OpenPanelRequest& request) -> ChooseResult {
        requests << request.directory;
        EXPECT_EQ(request.texts.title, QStringLiteral("Access permissions required"));
        EXPECT_EQ(request.texts.prompt, QStringLiteral("Allow"));
        EXPECT_EQ(request.texts.message,
                  QStringLiteral("Please allow 'StageWright' to access this file or folder to continue."));
        return root;
    });

    bool ran = false;
    EXPECT_TRUE(gate.withAccess(project, [&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_EQ(requests, QStringList{root}); // the panel opens on the parent folder
    EXPECT_EQ(log, (QStringList{QStringLiteral("lookup ") + project, QStringLiteral("add ") + root}));
    EXPECT_EQ(grantFileCount(), 1);
    EXPECT_EQ(bookmarks.secureUrls(), QStringList{root});

    // Next time the grant is found: no panel, and no second grant file.
    log.clear();
    ran = false;
    EXPECT_TRUE(gate.withAccess(project + QStringLiteral("/a.plist"), [&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_EQ(requests.size(), 1);
    EXPECT_EQ(grantFileCount(), 1);
    EXPECT_EQ(log.size(), 2);
}

TEST_F(GateFixture, ACancelledPanelLeavesTheWorkUndoneAndTheLockFree)
{
    const QString project = folder(QStringLiteral("locked"));
    blocked << project;
    gate.setChooser([](const OpenPanelRequest&) -> ChooseResult { return OpenPanelError::canceled; });
    bool ran = false;
    const AccessResult first = gate.withAccess(project, [&] { ran = true; });
    EXPECT_FALSE(first);
    EXPECT_EQ(first.error, OpenPanelError::canceled);
    EXPECT_FALSE(ran);
    EXPECT_EQ(grantFileCount(), 0);

    // The lock was released: the next call gets through to its own panel.
    gate.setChooser([&](const OpenPanelRequest&) -> ChooseResult { return project; });
    EXPECT_TRUE(gate.withAccess(project, [&] { ran = true; }));
    EXPECT_TRUE(ran);

    // Without any chooser the panel counts as aborted.
    gate.setChooser({});
    blocked << folder(QStringLiteral("other"));
    EXPECT_EQ(gate.withAccess(folder(QStringLiteral("other")), [] {}).error, OpenPanelError::aborted);
}

TEST_F(GateFixture, WorkThatSeeksASecondGrantDoesNotDeadlock)
{
    const QString a = folder(QStringLiteral("a"));
    const QString b = folder(QStringLiteral("b"));
    const QString open = folder(QStringLiteral("open"));
    blocked << a << b;
    gate.setChooser([](const OpenPanelRequest& request) -> ChooseResult { return request.location; });

    bool innerOpenRan = false, innerLockedRan = false;
    DiagnosticCapture capture;
    EXPECT_TRUE(gate.withAccess(a, [&] {
        // A usable location needs no lock and runs.
        gate.withAccess(open, [&] { innerOpenRan = true; });
        // One that needs a grant would wait on the held lock: refused instead.
        EXPECT_FALSE(gate.withAccess(b, [&] { innerLockedRan = true; }));
    }));
    EXPECT_TRUE(innerOpenRan);
    EXPECT_FALSE(innerLockedRan);
    EXPECT_TRUE(capture.containsPrefix("Access to " + b.toStdString()));
}

TEST_F(GateFixture, GrantsCoverByTextPrefixAndSkipDSStore)
{
    const QString granted = folder(QStringLiteral("a/b"));
    folder(QStringLiteral("a/bc"));
    bookmarks.add(granted);
    bookmarks.add(granted); // already granted: no second file
    EXPECT_EQ(grantFileCount(), 1);

    EXPECT_EQ(bookmarks.loadSecurityScopedURL(granted + QStringLiteral("/c.plist")), granted);
    EXPECT_EQ(bookmarks.loadSecurityScopedURL(scratch.path() + QStringLiteral("/a/bc")), granted);
    EXPECT_EQ(bookmarks.loadSecurityScopedURL(scratch.path() + QStringLiteral("/a")), std::nullopt);

    // A ".DS_Store" entry is never read as a grant, even when it is unreadable.
    test::writeFile(bookmarks.grantFolder() + QStringLiteral(".DS_Store"), QByteArray("\x00\x01garbage", 9));
    DiagnosticCapture capture;
    bookmarks.loadAllBookmarks();
    EXPECT_EQ(bookmarks.secureUrls(), QStringList{granted});
    EXPECT_FALSE(capture.containsPrefix("Error"));
    EXPECT_TRUE(capture.contains("loaded bookmark: " + granted.toStdString()));
}

TEST_F(GateFixture, BrokenAndStaleGrantsEndTheLookUp)
{
    const QString kept = folder(QStringLiteral("kept"));
    const QString gone = folder(QStringLiteral("gone"));
    bookmarks.add(gone);
    bookmarks.add(kept);
    QDir(gone).removeRecursively();

    // Grant files are looked at in name order; whichever comes first decides
    // whether the stale one stops the search before the live one is reached.
    const QStringList files = QDir(bookmarks.grantFolder()).entryList(QDir::Files, QDir::Name);
    ASSERT_EQ(files.size(), 2);
    const bool staleFirst = test::readFile(bookmarks.grantFolder() + files[0]) == gone.toUtf8();
    EXPECT_EQ(bookmarks.loadSecurityScopedURL(kept + QStringLiteral("/x")),
              staleFirst ? std::nullopt : std::optional<QString>(kept));

    // A grant file that holds no path is reported and skipped when loading.
    test::writeFile(bookmarks.grantFolder() + QStringLiteral("00000000-BROKEN"), "not a path");
    DiagnosticCapture capture;
    EXPECT_EQ(bookmarks.loadSecurityScopedURL(kept), std::nullopt);
    EXPECT_TRUE(capture.containsPrefix("Error ("));
    bookmarks.loadAllBookmarks();
    EXPECT_TRUE(capture.containsPrefix("Error Loading Bookmark: "));
    EXPECT_EQ(bookmarks.secureUrls().size(), 2); // both resolve, the gone one included

    bookmarks.remove(gone);
    EXPECT_EQ(bookmarks.secureUrls(), QStringList{kept});
    EXPECT_EQ(grantFileCount(), 2); // the kept grant and the broken file
}

TEST(Gate, PanelResponsesMapToChoicesAndErrors)
{
    EXPECT_EQ(std::get<QString>(choiceFromPanelResponse(1, {QStringLiteral("/x"), QStringLiteral("/y")})), "/x");
    EXPECT_EQ(std::get<OpenPanelError>(choiceFromPanelResponse(0, {})), OpenPanelError::canceled);
    EXPECT_EQ(std::get<OpenPanelError>(choiceFromPanelResponse(-1000, {})), OpenPanelError::stopped);
    EXPECT_EQ(std::get<OpenPanelError>(choiceFromPanelResponse(-1001, {})), OpenPanelError::aborted);
}
