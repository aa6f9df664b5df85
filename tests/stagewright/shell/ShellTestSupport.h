// Shared pieces of the shell tests: a private home, dialogs that answer from
// a script, a small canvas scene, and a started main window.
#pragma once

#include "support/ScratchHome.h"

#include <stagewright/shell/Commands.h>
#include <stagewright/shell/Dialogs.h>
#include <stagewright/shell/MainWindow.h>
#include <stagewright/shell/Windows.h>
#include <stagewright/state/AppPreferences.h>
#include <stagewright/state/LevelScene.h>
#include <stagewright/state/SceneSettings.h>

#include <tessaro/kit/Scene.h>
#include <tessaro/model/LevelRecords.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace stagewright::test {

/// HOME points into a fresh folder while it lives; the user defaults of the
/// application are emptied before and after.
using testing_support::ScratchHome;

/// Dialogs that give the answers queued in them and note what was asked.
class ScriptedDialogs : public ShellDialogs {
public:
    std::deque<std::optional<QString>> folders, projectsToOpen, saveLocations, moveDestinations;
    std::deque<bool> discardAnswers, deleteAnswers, reloadAnswers;

    std::vector<FolderPanel> folderPanels;
    struct SaveRequest {
        QString directory;
        QString proposedName;
    };
    std::vector<SaveRequest> saveRequests;
    QStringList openDirectories;
    int discardQuestions = 0;
    int deleteQuestions = 0;
    QStringList reloadQuestions;
    QStringList failures;

    std::optional<QString> chooseFolder(const FolderPanel& panel) override;
    std::optional<QString> chooseProjectToOpen(const QString& directory) override;
    std::optional<QString> chooseSaveLocation(const QString& directory, const QString& proposedName) override;
    std::optional<QString> chooseMoveDestination(const QString& file) override;
    bool confirmDiscardChanges() override;
    bool confirmDeleteScene() override;
    bool confirmReloadChangedProject(const QString& name) override;
    void reportFailure(const QString& message, const QString& detail) override;
};

/// A canvas scene for the tests: a kit scene that shows one grey block per
/// obstacle of its level and takes the level's size; it notes its loads and
/// write-backs in a log shared by all its kind.
class BlockScene : public tessaro::kit::Scene, public LevelScene {
public:
    BlockScene(ProjectTab& tab, const SceneSetup& setup, std::shared_ptr<QStringList> log);

    void loadLevel(const tessaro::Uuid& levelId) override;
    void writeBack(const tessaro::Uuid& levelId) override;
    tessaro::SizeValue size() const override;
    void setSize(tessaro::SizeValue size) override;
    tessaro::PointValue anchorPoint() const override;
    void setAnchorPoint(tessaro::PointValue anchor) override;
    sceneScaleMode scaleMode() const override { return m_scaleMode; }
    void setScaleMode(sceneScaleMode mode) override { m_scaleMode = mode; }
    tessaro::sceneOrientationType orientation() const override { return m_orientation; }
    void setOrientation(tessaro::sceneOrientationType orientation) override { m_orientation = orientation; }
    void releaseContent() override;
    void updateOverlays() override {}

    std::optional<tessaro::Uuid> loaded;
    int blocks() const;

private:
    ProjectTab& m_tab;
    std::shared_ptr<QStringList> m_log;
    sceneScaleMode m_scaleMode;
    tessaro::sceneOrientationType m_orientation;
};

SceneFactory blockSceneFactory(std::shared_ptr<QStringList> log);

/// A project of `count` levels; level i has i + 1 crates and the scene size
/// (1000 + 100 i) by 500.
std::vector<tessaro::Level> makeLevels(int count);
QString writeProject(const QString& path, int levels);
/// The levels in a project file; empty when it cannot be read.
std::vector<tessaro::Level> readProject(const QString& path);
/// The bytes of a file; empty when it cannot be read.
QByteArray fileBytes(const QString& path);

/// A started state with its main window on screen.
struct ShellFixture : ::testing::Test {
    std::unique_ptr<ScratchHome> home;
    std::shared_ptr<QStringList> sceneLog = std::make_shared<QStringList>();
    std::unique_ptr<SceneSettings> settings;
    ScriptedDialogs dialogs;
    std::unique_ptr<AppPreferences> preferences;
    std::unique_ptr<WindowManager> windows;
    std::unique_ptr<Commands> commands;
    std::unique_ptr<MainWindow> window;
    std::vector<QUrl> openedUrls;
    /// Project files given at start, before the window appears.
    QStringList startFiles;

    void SetUp() override;
    void TearDown() override;

    ProjectTab& front() const { return *settings->selectedProjectTab(); }
    QStringList tabNames() const;
    /// A project file in the scratch home.
    QString project(const QString& name, int levels);
    /// The action of the main window with that title; fails the test when absent.
    QAction* action(const QString& title) const;
};

/// Lets queued events and deferred deletions run.
void settle();

/// Acts on the first visible window of type T once one is shown: a modal
/// dialog is answered from its own event loop. Gives up after five seconds.
template <class T>
void whenShown(std::function<void(T&)> act)
{
    auto* poll = new QTimer;
    auto* waited = new QElapsedTimer;
    waited->start();
    QObject::connect(poll, &QTimer::timeout, [poll, waited, act = std::move(act)] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* shown = qobject_cast<T*>(widget); shown && shown->isVisible()) {
                poll->deleteLater();
                delete waited;
                act(*shown);
                return;
            }
        }
        if (waited->elapsed() > 5000) {
            poll->deleteLater();
            delete waited;
        }
    });
    poll->start(10);
}

} // namespace stagewright::test
