#include "DownloadBar.h"

#include "Downloader.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>

namespace stagewright {

DownloadBar::DownloadBar(Downloader& downloader, std::function<void(const QString&)> reveal, QWidget* parent)
    : QWidget(parent),
      m_downloader(downloader),
      m_reveal(std::move(reveal))
{
    setObjectName(QStringLiteral("downloadBar"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    m_message = new QLabel(this);
    m_message->setObjectName(QStringLiteral("downloadMessage"));
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("downloadProgress"));
    m_progress->setFixedWidth(180);
    m_progress->setTextVisible(false);
    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("downloadCancel"));
    m_showInFolder = new QPushButton(tr("Show in Folder"), this);
    m_showInFolder->setObjectName(QStringLiteral("downloadShowInFolder"));
    m_dismiss = new QToolButton(this);
    m_dismiss->setText(QStringLiteral("×"));
    m_dismiss->setAutoRaise(true);
    m_dismiss->setToolTip(tr("Hide this message"));
    for (QWidget* part :
         {static_cast<QWidget*>(m_message), static_cast<QWidget*>(m_progress), static_cast<QWidget*>(m_cancel),
          static_cast<QWidget*>(m_showInFolder), static_cast<QWidget*>(m_dismiss)})
        layout->addWidget(part);

    connect(m_cancel, &QPushButton::clicked, &m_downloader, &Downloader::cancel);
    connect(m_showInFolder, &QPushButton::clicked, this, [this] {
        if (!m_file.isEmpty() && m_reveal)
            m_reveal(m_file);
    });
    connect(m_dismiss, &QToolButton::clicked, this, &QWidget::hide);
    connect(&m_downloader, &Downloader::started, this, &DownloadBar::showRunning);
    connect(&m_downloader, &Downloader::queued, this, &DownloadBar::showWaiting);
    connect(&m_downloader, &Downloader::progress, this, &DownloadBar::showProgress);
    connect(&m_downloader, &Downloader::finished, this, &DownloadBar::showDone);
    connect(&m_downloader, &Downloader::failed, this, &DownloadBar::showFailure);
    hide();
}

void DownloadBar::showRunning(const QString& fileName)
{
    m_running = fileName;
    showWaiting();
    m_progress->setRange(0, 0); // busy until the size is known
    m_progress->show();
    m_cancel->show();
    m_showInFolder->hide();
    m_dismiss->hide();
    show();
}

void DownloadBar::showWaiting()
{
    const int waiting = m_downloader.waitingCount();
    m_message->setText(waiting == 0 ? tr("Downloading %1").arg(m_running)
                                    : tr("Downloading %1, %n more waiting", nullptr, waiting).arg(m_running));
}

void DownloadBar::showProgress(qint64 received, qint64 total)
{
    if (total > 0) {
        // Per mille, so that archives beyond the range of int fit.
        m_progress->setRange(0, 1000);
        m_progress->setValue(int(received * 1000 / total));
    }
    m_progress->setToolTip(QLocale().formattedDataSize(received));
}

void DownloadBar::showDone(const QString& path)
{
    m_file = path;
    m_message->setText(tr("%1 is in %2").arg(QFileInfo(path).fileName(), QFileInfo(path).absolutePath()));
    m_progress->hide();
    m_cancel->hide();
    m_showInFolder->show();
    m_dismiss->show();
    show();
}

void DownloadBar::showFailure(const QString& reason)
{
    m_message->setText(reason);
    m_progress->hide();
    m_cancel->hide();
    m_showInFolder->hide();
    m_dismiss->show();
    show();
}

} // namespace stagewright
