// What the help menu does: the help window, the project's source page in the
// browser, and the downloads of the archives from the project's web server.
#pragma once

#include "Commands.h"
#include "Downloader.h"

#include <stagewright/state/FileRevealer.h>

#include <QObject>

namespace stagewright {

class AppPreferences;
class WindowDirectory;

class HelpCommands : public QObject {
    Q_OBJECT
public:
    HelpCommands(Downloader& downloader, WindowDirectory* windows = nullptr, QObject* parent = nullptr);

    Downloader& downloader() { return m_downloader; }
    /// Replaces how web pages are opened.
    void setUrlOpener(UrlOpener opener);
    /// Replaces how a downloaded file is shown in its folder.
    void setFileRevealer(FileRevealer revealer);

    /// Opens the window "StageWright Help".
    void openHelp();
    /// Opens the source page of the settings in the browser.
    bool openSourcePage();
    /// Fetches an archive from the server of the settings; false when it
    /// could not start.
    bool download(const ArchiveItem& item);
    /// Shows a downloaded file selected in the file manager.
    void showInFolder(const QString& file);

private:
    Downloader& m_downloader;
    WindowDirectory* m_windows;
    UrlOpener m_urlOpener;
    FileRevealer m_revealer;
};

} // namespace stagewright
