// What the editor does when another program changes its files. A clean
// project is read again, with a note in the footer; a project with unsaved
// changes asks first, and keeping them means the next save replaces the file.
// Changed catalogues are read again unless the user has catalogue edits of
// their own not saved yet, which are kept. Changed images and sounds refresh
// the file lists, the library and the canvases.
#pragma once

#include <tessaro/model/Uuid.h>

#include <QObject>
#include <QTimer>

class QLabel;

namespace stagewright {

class FooterView;
class SceneSettings;
class ShellDialogs;
class WorkspaceWatcher;

class ExternalChanges : public QObject {
    Q_OBJECT
public:
    ExternalChanges(SceneSettings& settings, WorkspaceWatcher& watcher, ShellDialogs& dialogs, FooterView* footer,
                    QObject* parent = nullptr);

    /// The note in the footer; empty while there is nothing to say.
    QLabel* notice() const { return m_notice; }

private:
    void projectChanged(const tessaro::Uuid& tabId);
    void cataloguesChanged();
    void assetsChanged();
    /// A short line in the footer, and more in its tooltip.
    void note(const QString& text, const QString& detail);

    SceneSettings& m_settings;
    ShellDialogs& m_dialogs;
    QLabel* m_notice = nullptr;
    QTimer m_noticeTimer;
};

} // namespace stagewright
