// The archive downloads against a server of the test's own on 127.0.0.1: a
// file arrives whole under its own name, replaces an earlier one, and no
// failure (an error page, a refused connection, a stalled server, a cancel)
// leaves anything behind or touches what was there.
#include "LocalHttpServer.h"
#include "ShellTestSupport.h"

#include "support/DiagnosticCapture.h"

#include <stagewright/shell/DownloadBar.h>
#include <stagewright/shell/Downloader.h>
#include <stagewright/shell/FooterView.h>
#include <stagewright/shell/HelpCommands.h>
#include <stagewright/state/AppPreferences.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace stagewright::test {

namespace {

QByteArray archiveBytes(int size, char seed)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        bytes[i] = char(seed + i % 251);
    return bytes;
}

/// Every file in a folder, hidden ones too, with its content.
QMap<QString, QByteArray> folderContents(const QString& folder)
{
    QMap<QString, QByteArray> contents;
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QFileInfo& file : files) {
        QFile in(file.absoluteFilePath());
        in.open(QIODevice::ReadOnly);
        contents.insert(file.fileName(), in.readAll());
    }
    return contents;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile out(path);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
}

struct DownloadTest : ::testing::Test {
    LocalHttpServer server;
    QTemporaryDir downloads;
    Downloader downloader;

    void SetUp() override
    {
        ASSERT_TRUE(server.isListening());
        downloader.setTargetFolder(downloads.path());
    }
    QString target(const QString& name) const { return downloads.filePath(name); }
    /// Runs one download to its end; true when it brought a file.
    bool fetch(const QString& url)
    {
        QSignalSpy done(&downloader, &Downloader::finished);
        QSignalSpy failed(&downloader, &Downloader::failed);
        if (!downloader.download(url))
            return false;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !done.isEmpty() || !failed.isEmpty(); }, 10000));
        EXPECT_FALSE(downloader.isRunning());
        return !done.isEmpty();
    }
};

} // namespace

TEST_F(DownloadTest, ArchiveArrivesWholeAndReplacesAnEarlierOne)
{
    const QByteArray first = archiveBytes(300000, 'a');
    server.route(QStringLiteral("/files/Tessaro.xcframework.zip"), {200, first});
    testing_support::DiagnosticCapture lines;
    QSignalSpy progress(&downloader, &Downloader::progress);

    ASSERT_TRUE(fetch(server.url(QStringLiteral("/files/Tessaro.xcframework.zip")).toString()));
    EXPECT_EQ(folderContents(downloads.path()),
              (QMap<QString, QByteArray>{{QStringLiteral("Tessaro.xcframework.zip"), first}}));
    EXPECT_TRUE(
        lines.contains("File downloaded to: " + target(QStringLiteral("Tessaro.xcframework.zip")).toStdString()));
    ASSERT_FALSE(progress.isEmpty());
    EXPECT_EQ(progress.last().at(0).toLongLong(), first.size());
    EXPECT_EQ(progress.last().at(1).toLongLong(), first.size());

    // The same archive again, now another one on the server: the new file
    // takes the place of the old, and nothing else is left.
    const QByteArray second = archiveBytes(1000, 'k');
    server.route(QStringLiteral("/files/Tessaro.xcframework.zip"), {200, second});
    ASSERT_TRUE(fetch(server.url(QStringLiteral("/files/Tessaro.xcframework.zip")).toString()));
    EXPECT_EQ(folderContents(downloads.path()),
              (QMap<QString, QByteArray>{{QStringLiteral("Tessaro.xcframework.zip"), second}}));
}

TEST_F(DownloadTest, FailuresLeaveTheFolderAsItWas)
{
    // An earlier archive of the same name and another file are there.
    writeFile(target(QStringLiteral("Tessaro.SampleWorkspace.zip")), "an earlier archive");
    writeFile(target(QStringLiteral("notes.txt")), "mine");
    const QMap<QString, QByteArray> before = folderContents(downloads.path());

    const QByteArray body = archiveBytes(200000, 'x');
    server.route(QStringLiteral("/stall/Tessaro.SampleWorkspace.zip"), {200, body, 50000});
    server.route(QStringLiteral("/slow/Tessaro.SampleWorkspace.zip"), {200, body, 50000});
    const QString refused =
        QStringLiteral("http://127.0.0.1:%1/files/Tessaro.SampleWorkspace.zip").arg(LocalHttpServer::closedPort());

    struct Case {
        const char* name;
        QString url;
        std::string line; // the start of the diagnostic line
        bool cancelOnFirstBytes = false;
    };
    const std::vector<Case> cases{
        {"not found", server.url(QStringLiteral("/files/Tessaro.SampleWorkspace.zip")).toString(),
         "Error downloading: "},
        {"refused", refused, "Error downloading: "},
        {"stalled", server.url(QStringLiteral("/stall/Tessaro.SampleWorkspace.zip")).toString(),
         "Error downloading: the server sent nothing for 0.3 seconds"},
        {"cancelled", server.url(QStringLiteral("/slow/Tessaro.SampleWorkspace.zip")).toString(),
         "Error downloading: cancelled", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        testing_support::DiagnosticCapture lines;
        downloader.setStallTimeout(c.cancelOnFirstBytes ? 20000 : 300);
        QSignalSpy failed(&downloader, &Downloader::failed);
        QSignalSpy done(&downloader, &Downloader::finished);
        QMetaObject::Connection cancelling;
        if (c.cancelOnFirstBytes)
            cancelling = QObject::connect(&downloader, &Downloader::progress, &downloader, [this](qint64 received) {
                // Half-way, with bytes already on the disk.
                if (received > 0)
                    downloader.cancel();
            });
        ASSERT_TRUE(downloader.download(c.url));
        EXPECT_TRUE(failed.wait(10000));
        QObject::disconnect(cancelling);
        EXPECT_TRUE(done.isEmpty());
        EXPECT_FALSE(downloader.isRunning());
        EXPECT_TRUE(lines.anyStartsWith(c.line)) << (lines.lines().empty() ? "" : lines.lines().back());
        EXPECT_EQ(folderContents(downloads.path()), before);
    }
    // A missing folder is made only when an archive arrives.
    downloader.setTargetFolder(downloads.filePath(QStringLiteral("new/Downloads")));
    EXPECT_FALSE(fetch(server.url(QStringLiteral("/files/missing.zip")).toString()));
    EXPECT_FALSE(QFileInfo::exists(downloads.filePath(QStringLiteral("new"))));
}

TEST_F(DownloadTest, AddressesThatNameNoFileAreRefusedAtOnce)
{
    testing_support::DiagnosticCapture lines;
    for (const char* url : {"", "not an address", "ftp://127.0.0.1/files/a.zip", "http://127.0.0.1/"})
        EXPECT_FALSE(downloader.download(QString::fromLatin1(url))) << url;
    EXPECT_EQ(lines.lines(), std::vector<std::string>(4, "Invalid URL"));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(DownloadTest, ASecondDownloadWaitsItsTurnAndTheFooterSaysSo)
{
    DownloadBar bar(downloader, {});
    server.route(QStringLiteral("/slow/a.zip"), {200, archiveBytes(1000, 'a'), 10});
    const QByteArray second = archiveBytes(2000, 'b');
    server.route(QStringLiteral("/files/b.zip"), {200, second});
    downloader.setStallTimeout(300);
    QSignalSpy queued(&downloader, &Downloader::queued);
    QSignalSpy done(&downloader, &Downloader::finished);

    ASSERT_TRUE(downloader.download(server.url(QStringLiteral("/slow/a.zip")).toString()));
    ASSERT_TRUE(downloader.download(server.url(QStringLiteral("/files/b.zip")).toString()));
    ASSERT_TRUE(downloader.download(server.url(QStringLiteral("/files/b.zip")).toString())); // already waiting
    EXPECT_EQ(downloader.waitingCount(), 1);
    ASSERT_EQ(queued.count(), 2);
    EXPECT_EQ(queued.first().at(0).toString(), QStringLiteral("b.zip"));
    EXPECT_EQ(bar.message()->text(), QStringLiteral("Downloading a.zip, 1 more waiting"));

    // The first stalls and fails; the second starts then and arrives.
    ASSERT_TRUE(done.wait(10000));
    EXPECT_EQ(done.first().at(0).toString(), target(QStringLiteral("b.zip")));
    EXPECT_EQ(folderContents(downloads.path()), (QMap<QString, QByteArray>{{QStringLiteral("b.zip"), second}}));
    EXPECT_EQ(downloader.waitingCount(), 0);

    // Cancel stops the running download and those waiting, with a line each.
    testing_support::DiagnosticCapture lines;
    downloader.setStallTimeout(20000);
    ASSERT_TRUE(downloader.download(server.url(QStringLiteral("/slow/a.zip")).toString()));
    ASSERT_TRUE(downloader.download(server.url(QStringLiteral("/files/c.zip")).toString()));
    downloader.cancel();
    EXPECT_FALSE(downloader.isRunning());
    EXPECT_EQ(downloader.waitingCount(), 0);
    EXPECT_TRUE(lines.anyStartsWith("Error downloading: cancelled before it started: "));
    settle();
    EXPECT_FALSE(server.requests().contains(QStringLiteral("/files/c.zip")));
}

// The help menu's download commands fetch from the server of the settings,
// and the footer shows the download running and then its file.
struct DownloadMenuTest : ShellFixture {};

TEST_F(DownloadMenuTest, MenuCommandFetchesIntoTheFolderAndTheFooterShowsIt)
{
    LocalHttpServer server;
    const QByteArray body = archiveBytes(400000, 's');
    server.route(QStringLiteral("/files/Tessaro.SampleWorkspace.zip"), {200, body});
    preferences->setServerAddress(server.address() + QStringLiteral("/"));

    Downloader downloader;
    QTemporaryDir folder;
    downloader.setTargetFolder(folder.path());
    HelpCommands help(downloader, windows.get());
    QStringList revealed;
    help.setFileRevealer([&revealed](const QString& file) { revealed << file; });
    window->setHelpCommands(help);
    auto* bar = window->footer()->findChild<DownloadBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_FALSE(bar->isVisible());

    QSignalSpy done(&downloader, &Downloader::finished);
    QAction* command = action(QStringLiteral("StageWright Sample Workspace"));
    ASSERT_TRUE(command->isEnabled());
    command->trigger();
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(bar->cancelButton()->isVisible());
    EXPECT_TRUE(bar->progressBar()->isVisible());
    ASSERT_TRUE(done.wait(10000));
    EXPECT_EQ(server.requests(), QStringList{QStringLiteral("/files/Tessaro.SampleWorkspace.zip")});

    const QString file = folder.filePath(QStringLiteral("Tessaro.SampleWorkspace.zip"));
    EXPECT_EQ(folderContents(folder.path()).value(QStringLiteral("Tessaro.SampleWorkspace.zip")), body);
    EXPECT_FALSE(bar->cancelButton()->isVisible());
    EXPECT_FALSE(bar->progressBar()->isVisible());
    ASSERT_TRUE(bar->showInFolderButton()->isVisible());
    EXPECT_TRUE(bar->message()->text().contains(QStringLiteral("Tessaro.SampleWorkspace.zip")));

    bar->showInFolderButton()->click();
    EXPECT_EQ(revealed, QStringList{file});

    // A failure says so in the footer, with nothing to show.
    preferences->setServerAddress(QStringLiteral("http://127.0.0.1:%1").arg(LocalHttpServer::closedPort()));
    QSignalSpy failed(&downloader, &Downloader::failed);
    action(QStringLiteral("Tessaro Api"))->trigger();
    ASSERT_TRUE(failed.wait(10000));
    EXPECT_TRUE(bar->message()->text().startsWith(QStringLiteral("Download failed")));
    EXPECT_FALSE(bar->showInFolderButton()->isVisible());
}

} // namespace stagewright::test
