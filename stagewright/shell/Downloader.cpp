#include "Downloader.h"

#include <tessaro/model/Diagnostics.h>

#include <QDir>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace stagewright {

namespace {

void diagnosticLine(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

constexpr int defaultStallTimeout = 30000;

} // namespace

const std::vector<ArchiveItem>& archiveItems()
{
    static const std::vector<ArchiveItem> items{
        {QStringLiteral("Tessaro Api"), QStringLiteral("/files/Tessaro.xcframework.zip")},
        {QStringLiteral("StageWright Sample Workspace"), QStringLiteral("/files/Tessaro.SampleWorkspace.zip")},
    };
    return items;
}

QUrl archiveUrl(const QString& server, const QString& path)
{
    QString base = server.trimmed();
    while (base.endsWith(QLatin1Char('/')))
        base.chop(1);
    return QUrl(base + path, QUrl::StrictMode);
}

Downloader::Downloader(QObject* parent) : QObject(parent), m_network(new QNetworkAccessManager(this))
{
    m_stallTimer.setSingleShot(true);
    m_stallTimer.setInterval(defaultStallTimeout);
    connect(&m_stallTimer, &QTimer::timeout, this, &Downloader::stalled);
}

Downloader::~Downloader()
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
    }
    release();
}

QString Downloader::targetFolder() const
{
    if (!m_targetFolder.isEmpty())
        return m_targetFolder;
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    // Desktops without a downloads folder of their own use the home folder's.
    return folder.isEmpty() ? QDir::home().filePath(QStringLiteral("Downloads")) : folder;
}

void Downloader::setTargetFolder(const QString& folder)
{
    m_targetFolder = folder;
}

void Downloader::setStallTimeout(int milliseconds)
{
    m_stallTimer.setInterval(milliseconds);
}

bool Downloader::download(const QString& url)
{
    const QUrl location(url, QUrl::StrictMode);
    const QString scheme = location.scheme();
    const QString name = location.fileName();
    if (!location.isValid() || location.host().isEmpty() ||
        (scheme != QLatin1String("https") && scheme != QLatin1String("http")) || name.isEmpty()) {
        diagnosticLine(QStringLiteral("Invalid URL"));
        return false;
    }
    if (isRunning()) {
        if (std::find(m_waiting.begin(), m_waiting.end(), location) == m_waiting.end())
            m_waiting.push_back(location);
        diagnosticLine(QStringLiteral("Download waiting: ") + location.toString());
        emit queued(name, waitingCount());
        return true;
    }

    m_fileName = name;
    m_fileError.clear();
    m_received = 0;
    m_canceled = false;
    m_stalled = false;
    QNetworkRequest request(location);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    m_reply = m_network->get(request);
    connect(m_reply, &QNetworkReply::readyRead, this, &Downloader::receive);
    connect(m_reply, &QNetworkReply::metaDataChanged, &m_stallTimer, qOverload<>(&QTimer::start));
    connect(m_reply, &QNetworkReply::finished, this, &Downloader::complete);
    m_stallTimer.start();
    emit started(m_fileName);
    return true;
}

void Downloader::cancel()
{
    if (!m_reply)
        return;
    for (const QUrl& waiting : m_waiting)
        diagnosticLine(QStringLiteral("Error downloading: cancelled before it started: ") + waiting.toString());
    m_waiting.clear();
    m_canceled = true;
    m_reply->abort();
}

void Downloader::startNext()
{
    if (isRunning() || m_waiting.empty())
        return;
    const QUrl next = m_waiting.front();
    m_waiting.pop_front();
    download(next.toString());
}

void Downloader::stalled()
{
    if (!m_reply)
        return;
    m_stalled = true;
    m_reply->abort();
}

void Downloader::receive()
{
    m_stallTimer.start();
    const QByteArray bytes = m_reply->readAll();
    if (bytes.isEmpty())
        return;
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // The body of an error page is no archive; redirects have their own body.
    if (status < 200 || status >= 300 || !m_fileError.isEmpty())
        return;
    if (!m_file) {
        const QString folder = targetFolder();
        m_file = std::make_unique<QSaveFile>(QDir(folder).filePath(m_fileName));
        // The temporary file lies beside the target, so that taking the
        // target's name replaces an earlier file in one step.
        m_file->setDirectWriteFallback(false);
        if (!QDir().mkpath(folder) || !m_file->open(QIODevice::WriteOnly)) {
            m_fileError = m_file->errorString();
            m_reply->abort();
            return;
        }
    }
    if (m_file->write(bytes) != bytes.size()) {
        m_fileError = m_file->errorString();
        m_reply->abort();
        return;
    }
    m_received += bytes.size();
    const qint64 total = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    emit progress(m_received, total > 0 ? total : -1);
}

void Downloader::complete()
{
    m_stallTimer.stop();
    QNetworkReply* reply = m_reply;
    if (!reply)
        return;
    if (reply->error() == QNetworkReply::NoError && m_fileError.isEmpty())
        receive();

    if (!m_fileError.isEmpty())
        return fail(QStringLiteral("Error moving file to downloads folder or unzipping: ") + m_fileError,
                    tr("Download failed: the file could not be written: %1").arg(m_fileError));
    if (m_canceled)
        return fail(QStringLiteral("Error downloading: cancelled"), tr("The download was cancelled."));
    if (m_stalled) {
        const QString seconds = QString::number(m_stallTimer.interval() / 1000.0);
        return fail(QStringLiteral("Error downloading: the server sent nothing for %1 seconds").arg(seconds),
                    tr("Download failed: the server stopped answering."));
    }
    if (reply->error() != QNetworkReply::NoError)
        return fail(QStringLiteral("Error downloading: ") + reply->errorString(),
                    tr("Download failed: %1").arg(reply->errorString()));

    if (!m_file) {
        // A complete answer with no body at all is no archive either.
        return fail(QStringLiteral("Temporary file URL is nil"), tr("Download failed: the server sent an empty file."));
    }
    const QString target = m_file->fileName();
    if (!m_file->commit()) {
        const QString error = m_file->errorString();
        return fail(QStringLiteral("Error moving file to downloads folder or unzipping: ") + error,
                    tr("Download failed: the file could not be written: %1").arg(error));
    }
    diagnosticLine(QStringLiteral("File downloaded to: ") + target);
    release();
    emit finished(target);
    startNext();
}

void Downloader::fail(const QString& diagnostic, const QString& reason)
{
    diagnosticLine(diagnostic);
    if (m_file)
        m_file->cancelWriting();
    release();
    emit failed(reason);
    startNext();
}

void Downloader::release()
{
    m_stallTimer.stop();
    // Dropping an uncommitted save file removes its temporary file.
    m_file.reset();
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->deleteLater();
    }
    m_reply = nullptr;
}

} // namespace stagewright
