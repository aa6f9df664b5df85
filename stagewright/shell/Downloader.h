// Fetching the project's archives into the user's downloads folder.
//
// One download runs at a time; one asked for meanwhile waits its turn, and
// starts when the running one ends. The body is written to a temporary file beside
// the target and takes the target's name only when it is complete, so a
// download that fails, stalls or is cancelled leaves the folder as it was, and
// a file of an earlier download stays until the new one replaces it whole.
// Each outcome writes its diagnostic line.
#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <deque>
#include <memory>
#include <vector>

class QNetworkAccessManager;
class QSaveFile;

namespace stagewright {

/// An archive of the download menu: its title and its path on the server.
struct ArchiveItem {
    QString title;
    QString path;
};
/// "Tessaro Api" and "StageWright Sample Workspace".
const std::vector<ArchiveItem>& archiveItems();
/// The server's address followed by the path; an invalid URL when the
/// address is not a web address.
QUrl archiveUrl(const QString& server, const QString& path);

class Downloader : public QObject {
    Q_OBJECT
public:
    explicit Downloader(QObject* parent = nullptr);
    ~Downloader() override;

    /// Where files go: the user's downloads folder unless set.
    QString targetFolder() const;
    void setTargetFolder(const QString& folder);
    /// How long the server may send nothing before the download gives up.
    int stallTimeout() const { return m_stallTimer.interval(); }
    void setStallTimeout(int milliseconds);

    bool isRunning() const { return m_reply != nullptr; }
    /// The file the running download will become.
    const QString& fileName() const { return m_fileName; }
    /// The downloads asked for while one runs, in the order they will run.
    int waitingCount() const { return int(m_waiting.size()); }

    /// Starts fetching `url` into the target folder under the last part of
    /// its path, or, while a download runs, puts it in line after it (once:
    /// an address already waiting is not added again). False, with the line
    /// "Invalid URL", when the text is no web address naming a file.
    bool download(const QString& url);
    /// Stops the running download and drops those waiting; the folder stays
    /// as it was.
    void cancel();

signals:
    void started(const QString& fileName);
    /// `fileName` waits for the running download; `waiting` are in line.
    void queued(const QString& fileName, int waiting);
    /// Bytes received so far and the whole size, or -1 while it is unknown.
    void progress(qint64 received, qint64 total);
    /// The file is in place at `path`.
    void finished(const QString& path);
    /// The download ended without a file; `reason` says so to a person.
    void failed(const QString& reason);

private:
    void receive();
    void complete();
    void stalled();
    /// Ends the download without a file.
    void fail(const QString& diagnostic, const QString& reason);
    void release();
    /// Starts the first download in line, if any.
    void startNext();

    QNetworkAccessManager* m_network = nullptr;
    QPointer<QNetworkReply> m_reply;
    std::unique_ptr<QSaveFile> m_file;
    QString m_targetFolder;
    QString m_fileName;
    QString m_fileError;
    QTimer m_stallTimer;
    std::deque<QUrl> m_waiting;
    qint64 m_received = 0;
    bool m_canceled = false;
    bool m_stalled = false;
};

} // namespace stagewright
