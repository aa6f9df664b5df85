#include "HelpCommands.h"

#include "Windows.h"

#include <stagewright/state/AppPreferences.h>

#include <tessaro/model/Diagnostics.h>

#include <QDesktopServices>

namespace stagewright {

HelpCommands::HelpCommands(Downloader& downloader, WindowDirectory* windows, QObject* parent)
    : QObject(parent),
      m_downloader(downloader),
      m_windows(windows),
      m_urlOpener([](const QUrl& url) { return QDesktopServices::openUrl(url); }),
      m_revealer([](const QString& file) { revealInFileManager(file); })
{
}

void HelpCommands::setUrlOpener(UrlOpener opener)
{
    m_urlOpener = std::move(opener);
}

void HelpCommands::setFileRevealer(FileRevealer revealer)
{
    m_revealer = std::move(revealer);
}

void HelpCommands::showInFolder(const QString& file)
{
    if (m_revealer)
        m_revealer(file);
}

void HelpCommands::openHelp()
{
    if (m_windows)
        m_windows->openWindow(WindowId::help);
}

bool HelpCommands::openSourcePage()
{
    const QUrl page(AppPreferences::sourcePageAddress(), QUrl::StrictMode);
    const bool opened = page.isValid() && !page.scheme().isEmpty() && m_urlOpener(page);
    if (!opened)
        tessaro::diagnostic(("Could not open " + AppPreferences::sourcePageAddress()).toStdString());
    return opened;
}

bool HelpCommands::download(const ArchiveItem& item)
{
    return m_downloader.download(archiveUrl(AppPreferences::serverAddress(), item.path).toString());
}

} // namespace stagewright
