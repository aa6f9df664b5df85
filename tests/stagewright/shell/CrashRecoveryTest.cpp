// A real editor process makes edits, has them copied, and is killed; the next
// start offers its projects and "Recover" gives back exactly what it had.
#include "ShellTestSupport.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/shell/RecoveryPrompt.h>
#include <stagewright/shell/SampleWorkspace.h>
#include <stagewright/state/Autosave.h>
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/RecoveryStore.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>

#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QTreeWidget>

#include <csignal>

namespace stagewright::test {

TEST(CrashRecovery, KilledEditorsEditsComeBackExactlyAtTheNextStart)
{
    ScratchHome home;
    tessaro::globalAppConfig() = {};
    PermissionManager::shared().setChooser(
        [](const OpenPanelRequest&) -> ChooseResult { return OpenPanelError::canceled; });
    ASSERT_TRUE(createWorkspace(defaultWorkspacePath(), PermissionManager::shared()));
    const QStringList samples = installSampleProjects(defaultWorkspacePath(), PermissionManager::shared());
    ASSERT_FALSE(samples.isEmpty());
    const QString original = samples.front();
    const QByteArray originalBytes = fileBytes(original);
    const QString expected = home.path() + QStringLiteral("/expected.plist");

    // The editor runs in this test's home and data folders.
    QProcess editor;
    editor.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    editor.start(QStringLiteral(STAGEWRIGHT_CRASHING_EDITOR), {original, expected});
    ASSERT_TRUE(editor.waitForStarted());
    QByteArray said;
    while (!said.contains("ready\n") && editor.state() == QProcess::Running && editor.waitForReadyRead(60000))
        said += editor.readAllStandardOutput();
    ASSERT_TRUE(said.contains("ready\n")) << "exit code " << editor.exitCode();
    ::kill(pid_t(editor.processId()), SIGKILL);
    ASSERT_TRUE(editor.waitForFinished());
    EXPECT_EQ(editor.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(fileBytes(original), originalBytes);
    const QByteArray edited = fileBytes(expected);
    ASSERT_FALSE(edited.isEmpty());
    ASSERT_NE(edited, originalBytes);

    // The next start, on the real canvas.
    SceneSettings settings(PermissionManager::shared());
    settings.setSceneFactory(makeSceneEditorFactory());
    settings.mainWindowAppeared();
    RecoveryStore store;
    Autosave autosave(settings, store);
    QStringList offered;
    whenShown<RecoveryPrompt>([&](RecoveryPrompt& prompt) {
        for (int i = 0; i < prompt.list()->topLevelItemCount(); ++i)
            offered << prompt.list()->topLevelItem(i)->text(0) + QLatin1Char('|') +
                    prompt.list()->topLevelItem(i)->text(2);
        prompt.continueButton()->click();
    });
    EXPECT_EQ(offerRecovery(
                  settings, store, autosave,
                  [](const std::vector<RecoveryEntry>& entries) { return RecoveryPrompt::ask(entries, nullptr); }, {}),
              std::vector{RecoveryAnswer::Recover});
    EXPECT_EQ(offered, QStringList{QFileInfo(original).completeBaseName() + QLatin1Char('|') + original});

    // The recovered tab has unsaved changes on the untouched original; a save
    // writes exactly what the killed editor had.
    const std::shared_ptr<ProjectTab> tab = settings.selectedProjectTab();
    ASSERT_EQ(settings.projectTabs().size(), 1u);
    EXPECT_TRUE(tab->isProjectDirty());
    EXPECT_EQ(tab->filePath(), original);
    EXPECT_EQ(fileBytes(original), originalBytes);
    ASSERT_TRUE(settings.saveCommand().value_or(false));
    EXPECT_EQ(fileBytes(original), edited);
    autosave.finishCleanly();
}

} // namespace stagewright::test
