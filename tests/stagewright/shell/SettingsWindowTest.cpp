// The settings window driven through its widgets: each workspace row writes
// the configuration in force and the workspace's store, a new level takes
// the defaults, "Reset settings" shows the first-run values, the addresses
// and the appearance belong to the user, and grants are listed and withdrawn.
#include "ShellTestSupport.h"
#include "support/StoredSettings.h"

#include <stagewright/inspector/controls/MultiSelectCombo.h>
#include <stagewright/inspector/controls/StepperParts.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/shell/AppGeneralView.h>
#include <stagewright/shell/AppSettingsView.h>
#include <stagewright/shell/AppWorkspaceView.h>
#include <stagewright/shell/CanvasView.h>
#include <stagewright/shell/SecurityPermissionsView.h>
#include <stagewright/state/BookmarksManager.h>
#include <stagewright/state/PermissionManager.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/ValueText.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace stagewright::test {

namespace {

using detail::NumberGroup;
using testing_support::storedSettingsRow;

struct SettingsWindowTest : ShellFixture {
    AppSettingsView* open()
    {
        action("Settings...")->trigger();
        auto* view = qobject_cast<AppSettingsView*>(windows->window(WindowId::settings));
        EXPECT_NE(view, nullptr);
        if (view) {
            EXPECT_TRUE(QTest::qWaitForWindowExposed(view));
        }
        return view;
    }
};

void type(QWidget* stepper, const char* group, const QString& text)
{
    auto* numbers = stepper->findChild<NumberGroup*>(QLatin1String(group));
    ASSERT_NE(numbers, nullptr) << group;
    numbers->field()->selectAll();
    QTest::keyClicks(numbers->field(), text);
    QTest::keyClick(numbers->field(), Qt::Key_Return);
}

/// Moves the picker with the arrow keys, as a user does, until it shows `text`.
void pick(QComboBox* picker, const QString& text)
{
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Home);
    for (int i = 0; i < picker->count() && picker->currentText() != text; ++i)
        QTest::keyClick(picker, Qt::Key_Down);
    EXPECT_EQ(picker->currentText(), text);
}

void clickOption(CustomMultiSelectCombo* combo, const QString& option)
{
    combo->showPopover();
    QListWidget* list = combo->popoverList();
    ASSERT_NE(list, nullptr);
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->data(Qt::UserRole).toString() == option) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
            return;
        }
    ADD_FAILURE() << "no option " << option.toStdString();
}

} // namespace

TEST_F(SettingsWindowTest, WorkspaceRowsTakeEffectAtOnceAndResetShowsTheFirstRunValues)
{
    AppSettingsView* view = open();
    ASSERT_NE(view, nullptr);
    ASSERT_EQ(view->tabs()->count(), 3);
    EXPECT_EQ(view->tabs()->tabText(0), QStringLiteral("General"));
    EXPECT_EQ(view->tabs()->tabText(1), QStringLiteral("Workspace"));
    EXPECT_EQ(view->tabs()->tabText(2), QStringLiteral("Permissions"));
    view->tabs()->setCurrentIndex(1);
    AppWorkspaceView* rows = view->workspace();
    const QStringList firstRun = storedSettingsRow();
    ASSERT_EQ(firstRun.size(), 8);

    type(rows->sceneSize(), "width", QStringLiteral("800"));
    type(rows->sceneSize(), "height", QStringLiteral("600"));
    pick(rows->orientation(), QStringLiteral("portrait"));
    pick(rows->scaleMode(), QStringLiteral("resizeFill"));
    // The anchor moves in steps of 0.5 and stays between 0 and 1.
    auto* anchorX = rows->anchorPoint()->findChild<NumberGroup*>(QStringLiteral("x"));
    ASSERT_NE(anchorX, nullptr);
    QTest::mouseClick(anchorX->plusButton(), Qt::LeftButton);
    EXPECT_FALSE(anchorX->plusButton()->isEnabled());
    type(rows->anchorPoint(), "y", QStringLiteral("0"));
    pick(rows->imageScale(), QStringLiteral("x3"));
    pick(rows->imageType(), QStringLiteral("jpg"));
    clickOption(rows->debugOptions(), QStringLiteral("showsFPS"));
    clickOption(rows->debugOptions(), QStringLiteral("showsPhysics"));
    EXPECT_EQ(rows->debugOptions()->values(), QStringList({"showsFPS", "showsPhysics"}));

    const tessaro::appConfig& inForce = tessaro::globalAppConfig();
    EXPECT_EQ(inForce.base.defaultSceneSize, (tessaro::SizeValue{800, 600}));
    EXPECT_EQ(inForce.base.defaultSceneOrientation, tessaro::sceneOrientationType::portrait);
    EXPECT_EQ(inForce.base.defaultScaleMode, "resizeFill");
    EXPECT_EQ(inForce.base.defaultAnchorPoint, (tessaro::PointValue{1, 0}));
    EXPECT_EQ(inForce.base.defaultImageScale, tessaro::imageScaling::x3);
    EXPECT_EQ(inForce.base.defaultImageType, tessaro::imageType::jpg);
    EXPECT_EQ(inForce.debugOptions, (std::vector{tessaro::DebugOption::showsFPS, tessaro::DebugOption::showsPhysics}));
    // The sound type has no row and keeps its stored value.
    EXPECT_EQ(storedSettingsRow(),
              QStringList({"jpg", firstRun[1], "x3", "portrait", "resizeFill", "{1.0,0.0}", "{800.0,600.0}",
                           "showsFPS,showsPhysics"}));
    // The canvas already open shows the chosen overlays.
    EXPECT_TRUE(window->frontCanvas()->sceneView()->showsFPS());

    // A new level takes the defaults.
    commands->newLevel();
    const tessaro::LevelSettings& level = front().levelConfig().front().settings;
    EXPECT_EQ(level.size, "{800.0,600.0}");
    EXPECT_EQ(level.sceneOrientation, "portrait");
    EXPECT_EQ(level.scaleMode, "resizeFill");
    EXPECT_EQ(level.anchorPoint, "{1.0,0.0}");

    QTest::mouseClick(rows->resetButton(), Qt::LeftButton);
    EXPECT_EQ(storedSettingsRow(), firstRun);
    // The rows show the first-run values at once.
    EXPECT_EQ(rows->orientation()->currentText(), QStringLiteral("landscape"));
    EXPECT_EQ(rows->imageType()->currentText(), QStringLiteral("png"));
    EXPECT_EQ(rows->anchorPoint()->value(), (tessaro::PointValue{0.5, 0.5}));
    EXPECT_EQ(rows->sceneSize()->value(), inForce.base.defaultSceneSize);
    EXPECT_TRUE(rows->debugOptions()->values().isEmpty());
    EXPECT_FALSE(window->frontCanvas()->sceneView()->showsFPS());
}

TEST_F(SettingsWindowTest, TheWindowFollowsTheWorkspaceInUse)
{
    AppSettingsView* view = open();
    ASSERT_NE(view, nullptr);
    view->tabs()->setCurrentIndex(1);
    AppWorkspaceView* rows = view->workspace();
    type(rows->sceneSize(), "width", QStringLiteral("800"));
    type(rows->sceneSize(), "height", QStringLiteral("600"));
    clickOption(rows->debugOptions(), QStringLiteral("showsFPS"));
    ASSERT_TRUE(window->frontCanvas()->sceneView()->showsFPS());

    // A new workspace starts from the first-run values, and so do the window
    // and the canvases open on the old one.
    const QString fresh = home->path() + QStringLiteral("/Games/Other");
    dialogs.folders.push_back(fresh);
    action("New Workspace...")->trigger();
    ASSERT_EQ(workingSpacePath(), fresh + QLatin1Char('/'));
    const tessaro::SizeValue freshSize = tessaro::globalAppConfig().base.defaultSceneSize;
    ASSERT_NE(freshSize, (tessaro::SizeValue{800, 600}));
    EXPECT_EQ(rows->sceneSize()->value(), freshSize);
    EXPECT_TRUE(rows->debugOptions()->values().isEmpty());
    EXPECT_FALSE(window->frontCanvas()->sceneView()->showsFPS());

    // Typing one number stores it beside the new workspace's other one.
    type(rows->sceneSize(), "width", QStringLiteral("900"));
    EXPECT_EQ(storedSettingsRow()[6],
              QString::fromStdString(tessaro::textFromSize(tessaro::SizeValue{900, freshSize.height})));

    // Back in the first workspace, its values come back.
    dialogs.folders.push_back(defaultWorkspacePath());
    action("Open Workspace...")->trigger();
    EXPECT_EQ(rows->sceneSize()->value(), (tessaro::SizeValue{800, 600}));
    EXPECT_EQ(rows->debugOptions()->values(), QStringList{QStringLiteral("showsFPS")});
    EXPECT_TRUE(window->frontCanvas()->sceneView()->showsFPS());
}

TEST_F(SettingsWindowTest, TheGeneralTabSwitchesEveryWindowAndKeepsTheAddresses)
{
    AppSettingsView* view = open();
    ASSERT_NE(view, nullptr);
    AppGeneralView* general = view->general();

    // The appearance reaches every open window (see the first-use tests);
    // here the switch writes it, and for the next start too.
    QTest::mouseClick(general->darkModeSwitch(), Qt::LeftButton);
    EXPECT_TRUE(settings->isDark());
    EXPECT_TRUE(QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright")).value("isDark").toBool());
    // A change from elsewhere shows in the switch.
    preferences->setDarkMode(false);
    EXPECT_FALSE(general->darkModeSwitch()->isChecked());

    QLineEdit* server = general->serverAddressField();
    EXPECT_TRUE(server->text().isEmpty());
    EXPECT_EQ(server->placeholderText(), AppPreferences::defaultServerAddress());
    QTest::keyClicks(server, QStringLiteral(" http://127.0.0.1:8080/ "));
    // Nothing is taken while the user types.
    EXPECT_EQ(AppPreferences::serverAddress(), AppPreferences::defaultServerAddress());
    QTest::keyClick(server, Qt::Key_Return);
    EXPECT_EQ(AppPreferences::serverAddress(), QStringLiteral("http://127.0.0.1:8080"));
    EXPECT_EQ(server->text(), QStringLiteral("http://127.0.0.1:8080"));
    server->clear();
    QTest::keyClick(server, Qt::Key_Return);
    EXPECT_EQ(AppPreferences::serverAddress(), AppPreferences::defaultServerAddress());

    QTest::keyClicks(general->sourcePageField(), QStringLiteral("https://example.org/source"));
    QTest::keyClick(general->sourcePageField(), Qt::Key_Return);
    EXPECT_EQ(AppPreferences::sourcePageAddress(), QStringLiteral("https://example.org/source"));

    // The recovery copies: a minute until the user says otherwise.
    EXPECT_EQ(general->autosaveInterval()->value(), 60);
    type(general->autosaveInterval(), "value", QStringLiteral("120"));
    EXPECT_EQ(AppPreferences::autosaveInterval(), 120);
    QTest::mouseClick(general->autosaveInterval()->findChild<NumberGroup*>(QStringLiteral("value"))->minusButton(),
                      Qt::LeftButton);
    EXPECT_EQ(AppPreferences::autosaveInterval(), 90);
}

TEST_F(SettingsWindowTest, PermissionsListTheGrantsAndWithdrawThem)
{
    const QString granted = home->folder(QStringLiteral("Granted"));
    PermissionManager::shared().setChooser([granted](const OpenPanelRequest&) -> ChooseResult { return granted; });
    AppSettingsView* view = open();
    ASSERT_NE(view, nullptr);
    view->tabs()->setCurrentIndex(2);
    SecurityPermissionsView* permissions = view->permissions();
    EXPECT_EQ(permissions->removeButton(granted), nullptr);

    QTest::mouseClick(permissions->addButton(), Qt::LeftButton);
    EXPECT_TRUE(settings->gate().bookmarks().secureUrls().contains(granted));
    QToolButton* remove = permissions->removeButton(granted);
    ASSERT_NE(remove, nullptr);

    QTest::mouseClick(remove, Qt::LeftButton);
    settle();
    EXPECT_FALSE(settings->gate().bookmarks().secureUrls().contains(granted));
    EXPECT_EQ(permissions->removeButton(granted), nullptr);

    // A cancelled panel grants nothing.
    PermissionManager::shared().setChooser(
        [](const OpenPanelRequest&) -> ChooseResult { return OpenPanelError::canceled; });
    const QStringList before = settings->gate().bookmarks().secureUrls();
    QTest::mouseClick(permissions->addButton(), Qt::LeftButton);
    EXPECT_EQ(settings->gate().bookmarks().secureUrls(), before);
}

} // namespace stagewright::test
