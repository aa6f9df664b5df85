#include "Autosave.h"

#include "ProjectTab.h"
#include "SceneSettings.h"

#include <QSet>
#include <QUndoStack>

#include <memory>
#include <utility>

namespace stagewright {

namespace {

QString keyOf(const tessaro::Uuid& id)
{
    return QString::fromStdString(id.text());
}

} // namespace

RecoverySnapshot recoverySnapshot(ProjectTab& tab)
{
    // What a save would write: the shown level comes back from its scene.
    if (const auto& scene = tab.currentScene())
        scene->writeBack(tab.levelSelected());
    RecoverySnapshot snapshot;
    snapshot.name = tab.name();
    snapshot.originalPath = tab.filePath();
    snapshot.originalUnreadable = tab.filePath() && tab.unreadableFile() == tab.filePath();
    snapshot.shownLevel = tab.levelSelected();
    snapshot.savedAt = QDateTime::currentDateTime();
    snapshot.levels = tab.levelConfig();
    return snapshot;
}

Autosave::Autosave(SceneSettings& settings, RecoveryStore& store, QObject* parent)
    : QObject(parent),
      m_settings(settings),
      m_store(store)
{
    // One writer: a removal never overtakes the copy asked for before it.
    m_writer.setMaxThreadCount(1);
    m_timer.setInterval(std::chrono::seconds(60));
    connect(&m_timer, &QTimer::timeout, this, &Autosave::saveChangedTabs);
    m_timer.start();
    connect(&m_settings, &SceneSettings::projectTabsChanged, this, &Autosave::followTabs);
    followTabs();
}

Autosave::~Autosave()
{
    waitForWrites();
}

void Autosave::setInterval(std::chrono::milliseconds interval)
{
    m_timer.setInterval(interval);
    if (interval.count() > 0 && !m_finished)
        m_timer.start();
    else
        m_timer.stop();
}

std::chrono::milliseconds Autosave::interval() const
{
    return m_timer.isActive() ? m_timer.intervalAsDuration() : std::chrono::milliseconds(0);
}

void Autosave::followTabs()
{
    QSet<QString> open;
    for (const auto& tab : m_settings.projectTabs()) {
        const QString key = keyOf(tab->id());
        open.insert(key);
        if (!m_watches.contains(key))
            watch(*tab);
    }
    const QStringList watched = m_watches.keys();
    for (const QString& key : watched)
        if (!open.contains(key))
            forget(key);
}

void Autosave::watch(ProjectTab& tab)
{
    const tessaro::Uuid id = tab.id();
    Watch& watched = m_watches[keyOf(id)];
    watched.id = id;
    watched.tab = &tab;
    watched.changedSinceCopy = tab.isProjectDirty();
    connect(&tab.undoStack(), &QUndoStack::indexChanged, this, [this, id] { tabEdited(id); });
    connect(&tab, &ProjectTab::isProjectDirtyChanged, this, [this, id] { dirtyChanged(id); });
}

void Autosave::forget(const QString& key)
{
    const Watch watched = m_watches.take(key);
    if (watched.tab) {
        disconnect(&watched.tab->undoStack(), nullptr, this, nullptr);
        disconnect(watched.tab, nullptr, this, nullptr);
    }
    // A closed tab was saved or its changes were discarded.
    if (watched.copied)
        enqueue([this, id = watched.id] { m_store.remove(id); });
}

void Autosave::tabEdited(const tessaro::Uuid& id)
{
    const auto found = m_watches.find(keyOf(id));
    if (found == m_watches.end())
        return;
    Watch& watched = *found;
    watched.changedSinceCopy = true;
    ++watched.editsSinceCopy;
    if (m_editThreshold <= 0 || watched.editsSinceCopy < m_editThreshold || watched.scheduled)
        return;
    // After the edit has finished and the window has caught up with it.
    watched.scheduled = true;
    QTimer::singleShot(0, this, [this, id] {
        const auto again = m_watches.find(keyOf(id));
        if (again == m_watches.end())
            return;
        again->scheduled = false;
        if (again->tab)
            saveTab(*again->tab);
    });
}

void Autosave::dirtyChanged(const tessaro::Uuid& id)
{
    const auto found = m_watches.find(keyOf(id));
    if (found == m_watches.end() || !found->tab)
        return;
    Watch& watched = *found;
    if (watched.tab->isProjectDirty()) {
        watched.changedSinceCopy = true;
        return;
    }
    // Saved, or back at the saved state: the file holds it all.
    watched.changedSinceCopy = false;
    watched.editsSinceCopy = 0;
    if (std::exchange(watched.copied, false))
        enqueue([this, id] { m_store.remove(id); });
}

void Autosave::saveChangedTabs()
{
    for (const Watch& watched : std::as_const(m_watches))
        if (watched.tab && watched.changedSinceCopy)
            saveTab(*watched.tab);
}

void Autosave::saveTab(ProjectTab& tab)
{
    const auto found = m_watches.find(keyOf(tab.id()));
    if (m_finished || found == m_watches.end() || !tab.isProjectDirty())
        return;

    auto snapshot = std::make_shared<RecoverySnapshot>(recoverySnapshot(tab));
    found->changedSinceCopy = false;
    found->editsSinceCopy = 0;
    found->copied = true;
    enqueue([this, id = tab.id(), snapshot] {
        const bool ok = m_store.write(id, *snapshot);
        QMetaObject::invokeMethod(
            this,
            [this, id, ok] {
                ++m_writesDone;
                emit tabWritten(id, ok);
            },
            Qt::QueuedConnection);
    });
}

void Autosave::enqueue(std::function<void()> work)
{
    m_writer.start(std::move(work));
}

void Autosave::waitForWrites()
{
    m_writer.waitForDone();
}

void Autosave::finishCleanly()
{
    m_finished = true;
    m_timer.stop();
    waitForWrites();
    m_store.closeCleanly();
}

} // namespace stagewright
