// A started application state in a scratch home, for the flow tests.
#pragma once

#include "StateTestSupport.h"

#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/SceneSettings.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>

#include <gtest/gtest.h>

#include <memory>

namespace stagewright::test {

struct StateFixture : ::testing::Test {
    std::unique_ptr<ScratchHome> home;
    std::shared_ptr<QStringList> sceneLog = std::make_shared<QStringList>();
    std::unique_ptr<SceneSettings> settings;

    void SetUp() override
    {
        home = std::make_unique<ScratchHome>();
        tessaro::globalAppConfig() = {};
        PermissionManager::shared().setChooser(
            [](const OpenPanelRequest&) -> ChooseResult { return OpenPanelError::canceled; });
    }
    void TearDown() override
    {
        settings.reset();
        home.reset();
    }
    /// Starts the state, installs fake scenes and shows the main window.
    void start(bool withScenes = true)
    {
        settings = std::make_unique<SceneSettings>(PermissionManager::shared());
        if (withScenes)
            settings->setSceneFactory(fakeSceneFactory(sceneLog));
        settings->mainWindowAppeared();
    }
    ProjectTab& front() { return *settings->selectedProjectTab(); }
    FakeScene* frontScene() { return dynamic_cast<FakeScene*>(front().currentScene().get()); }
    QStringList tabNames() const
    {
        QStringList names;
        for (const auto& tab : settings->projectTabs())
            names << tab->name();
        return names;
    }
    /// A project file of `count` levels in the scratch home.
    QString writeProject(const QString& name, int count)
    {
        std::vector<tessaro::Level> levels;
        for (int i = 0; i < count; ++i) {
            tessaro::Level level = tessaro::newLevel(tessaro::Uuid::create(), tessaro::BaseConfig::editorDefaults());
            level.settings.size = "{" + std::to_string(1000 + i) + ".0,500.0}";
            levels.push_back(level);
        }
        const QString path = home->folder(QStringLiteral("projects")) + QLatin1Char('/') + name;
        EXPECT_TRUE(tessaro::saveLevels(levels, path.toStdString()));
        return path;
    }
    QString logText() const { return sceneLog->join(QLatin1Char('\n')); }
};

/// The position of the first entry of `log` at or after `from` that starts
/// with `prefix`, or -1.
inline int findIn(const QStringList& log, const QString& prefix, int from = 0)
{
    for (int i = from; i < log.size(); ++i)
        if (log[i].startsWith(prefix))
            return i;
    return -1;
}

inline QString shortId(const tessaro::Uuid& id)
{
    return QString::fromStdString(id.text()).left(8);
}

} // namespace stagewright::test
