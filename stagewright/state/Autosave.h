// When projects with unsaved changes are copied into the recovery store: on a
// timer, and at once after a number of edits. A project that becomes clean
// (saved, or undone back to its saved state) or whose tab closes loses its
// copy.
//
// The copy holds the levels as a save would write them, so the shown level is
// written back from its scene first; that part runs on the main thread, and
// the encoding and writing of the files on a worker of their own, one file
// operation after the other in the order they were asked for.
#pragma once

#include "RecoveryStore.h"

#include <tessaro/model/Uuid.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <functional>

namespace stagewright {

class SceneSettings;
class ProjectTab;

/// The tab's project as a save would write it, with what restoring it needs.
/// Writes the shown level back from its scene.
RecoverySnapshot recoverySnapshot(ProjectTab& tab);

class Autosave : public QObject {
    Q_OBJECT
public:
    /// Watches the tabs of `settings` and writes into `store`.
    Autosave(SceneSettings& settings, RecoveryStore& store, QObject* parent = nullptr);
    ~Autosave() override;

    /// Time between timed copies; zero turns the timer off.
    void setInterval(std::chrono::milliseconds interval);
    std::chrono::milliseconds interval() const;
    /// Steps of a tab's history after which the tab is copied at once; zero
    /// copies on the timer only.
    void setEditThreshold(int edits) { m_editThreshold = edits; }
    int editThreshold() const { return m_editThreshold; }

    /// Copies every project with unsaved changes made since its last copy.
    void saveChangedTabs();
    /// Copies one project now: its levels, with the shown one written back
    /// from the scene. A clean project has nothing to recover and is not copied.
    void saveTab(ProjectTab& tab);
    /// Waits until every copy and removal asked for is on disk.
    void waitForWrites();
    /// The end of a clean run: waits for the files, then removes this run's
    /// copies. Nothing is copied afterwards.
    void finishCleanly();

    /// Writes of copies that finished, counted for tests and measurements.
    int writesDone() const { return m_writesDone; }

signals:
    /// A copy of the tab's project reached the disk (or failed to).
    void tabWritten(const tessaro::Uuid& tabId, bool ok);

private:
    struct Watch {
        tessaro::Uuid id;
        QPointer<ProjectTab> tab;
        int editsSinceCopy = 0;
        bool changedSinceCopy = false;
        /// A copy was asked for and has not been removed since.
        bool copied = false;
        /// A copy after the edit count is on its way.
        bool scheduled = false;
    };

    void followTabs();
    void watch(ProjectTab& tab);
    void tabEdited(const tessaro::Uuid& tabId);
    void dirtyChanged(const tessaro::Uuid& tabId);
    void forget(const QString& key);
    /// Runs file work after all the work asked for before it.
    void enqueue(std::function<void()> work);

    SceneSettings& m_settings;
    RecoveryStore& m_store;
    QTimer m_timer;
    int m_editThreshold = 50;
    int m_writesDone = 0;
    bool m_finished = false;
    QHash<QString, Watch> m_watches;
    QThreadPool m_writer;
};

} // namespace stagewright
