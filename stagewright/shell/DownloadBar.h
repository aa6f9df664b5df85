// The download's place in the footer of the main window: while a download
// runs, its name, a progress bar and "Cancel"; when it has ended, what came
// of it, with a button that shows the file in its folder after a success.
#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;
class QToolButton;

namespace stagewright {

class Downloader;

class DownloadBar : public QWidget {
    Q_OBJECT
public:
    /// `reveal` shows a file selected in the file manager.
    DownloadBar(Downloader& downloader, std::function<void(const QString&)> reveal, QWidget* parent = nullptr);

    QLabel* message() const { return m_message; }
    QProgressBar* progressBar() const { return m_progress; }
    QPushButton* cancelButton() const { return m_cancel; }
    QPushButton* showInFolderButton() const { return m_showInFolder; }

private:
    void showRunning(const QString& fileName);
    /// The running download's line, with those waiting after it.
    void showWaiting();
    void showProgress(qint64 received, qint64 total);
    void showDone(const QString& path);
    void showFailure(const QString& reason);

    Downloader& m_downloader;
    std::function<void(const QString&)> m_reveal;
    QLabel* m_message = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_showInFolder = nullptr;
    QToolButton* m_dismiss = nullptr;
    QString m_file;
    QString m_running;
};

} // namespace stagewright
