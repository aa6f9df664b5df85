// The inspector's panes driven as a user drives them: the rows of each kind,
// one edit through a row's control reaching the saved level and going back
// with undo, and the override buttons of the device pane.
#include "EditingFixture.h"

#include <stagewright/inspector/AnimationPane.h>
#include <stagewright/inspector/InspectorView.h>
#include <stagewright/inspector/ModelFields.h>
#include <stagewright/inspector/PhysicsEditorHook.h>
#include <stagewright/inspector/PropertyRows.h>
#include <stagewright/inspector/PropertyRules.h>
#include <stagewright/inspector/controls/ElidedLabel.h>
#include <stagewright/inspector/controls/InspectorIcons.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/scene/ElementNode.h>
#include <stagewright/scene/SceneEditor.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTest>

#include <set>

namespace stagewright::test {
namespace {

using K = tessaro::sceneObjectType;
using P = PublishedElementList;

const tessaro::DeviceProperties* findDevice(const ElementNode& node, tessaro::deviceName device)
{
    if (node.devices)
        for (const tessaro::DeviceProperties& entry : *node.devices)
            if (entry.deviceName == std::string(tessaro::caseText(device)))
                return &entry;
    return nullptr;
}

struct InspectorViewTest : EditingFixture {
    std::unique_ptr<InspectorView> view;

    void SetUp() override
    {
        EditingFixture::SetUp();
        show({everyKind()});
        view = std::make_unique<InspectorView>(*settings);
    }
    void TearDown() override
    {
        view.reset();
        EditingFixture::TearDown();
    }
    void pick(K kind)
    {
        ASSERT_TRUE(select(kind));
        view->layNow();
    }
    /// The cases of the rows shown in the pane named `pane`.
    std::set<std::string> rowsOf(const char* pane) const
    {
        std::set<std::string> rows;
        for (const PropertyRow* row : view->findChild<QWidget*>(pane)->findChildren<PropertyRow*>())
            rows.insert(std::string(tessaro::caseText(row->entry().property)));
        return rows;
    }
    PropertyRow* row(const char* pane, P property) const
    {
        for (PropertyRow* r : view->findChild<QWidget*>(pane)->findChildren<PropertyRow*>())
            if (r->entry().property == property)
                return r;
        return nullptr;
    }
};

TEST_F(InspectorViewTest, EachKindShowsItsTabsAndTheRowsThatApplyToIt)
{
    EXPECT_FALSE(view->showsSelection());

    pick(K::obstacles);
    EXPECT_TRUE(view->showsSelection());
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device", "Animation", "Sounds"}));
    const std::set<std::string> obstacle{
        "observedname",      "isVisible",      "image",       "objectClassType", "zPosition",
        "allowedTimesToHit", "alpha",          "usePhysics",  "useGravity",      "category",
        "collision",         "contact",        "isDynamic",   "usePrecision",    "callbackFunction",
        "objectActsOn",      "darken",         "repeatCount", "stack",           "rotation",
        "rotateForever",     "rotateDuration", "rotationPin", "rotateType"};
    EXPECT_EQ(rowsOf("primaryPropertyListView"), obstacle);

    pick(K::character);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device", "Animation", "Sounds"}));
    const std::set<std::string> character{
        "observedname", "isVisible",         "image",       "charClassType", "objectClassType",
        "zPosition",    "allowedTimesToHit", "useGravity",  "category",      "collision",
        "contact",      "isDynamic",         "usePrecision"};
    EXPECT_EQ(rowsOf("primaryPropertyListView"), character);

    pick(K::ground);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device"}));
    const std::set<std::string> ground{
        "observedname", "isVisible", "image",    "objectClassType", "zPosition",
        "groundType",   "stack",     "distance", "repeatCount",     "groundPhysicsAngleType"};
    EXPECT_EQ(rowsOf("primaryPropertyListView"), ground);

    pick(K::coin);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device", "Sounds"}));
    EXPECT_EQ(rowsOf("primaryPropertyListView"),
              (std::set<std::string>{"observedname", "isVisible", "image", "zPosition", "useGravity", "repeatCount",
                                     "stack"}));

    pick(K::background);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Background", "Sounds"}));
    EXPECT_EQ(
        rowsOf("backgroundPropertyListView"),
        (std::set<std::string>{"image", "isVisible", "backgroundScrollOrientation", "pinned", "speed", "zPosition"}));

    scene().deselect();
    EXPECT_FALSE(view->showsSelection());
}

TEST_F(InspectorViewTest, AnEditThroughARowReachesTheSavedLevelAndUndoTakesItBack)
{
    const tessaro::Level before = comparable(saved());

    // A typed or stepped number of the obstacle.
    pick(K::obstacles);
    auto* z = row("primaryPropertyListView", P::zPosition)->findChild<LabelledCGFloatStepper*>();
    ASSERT_TRUE(z);
    emit z->valueChanged(42);
    EXPECT_EQ(front().selectedObject().zPosition, 42);
    EXPECT_EQ(saved().obstacles->front().zPosition, 42);

    // A switch of the character.
    pick(K::character);
    auto* visible = row("primaryPropertyListView", P::isVisible)->findChild<QCheckBox*>();
    ASSERT_TRUE(visible && visible->isChecked());
    QTest::mouseClick(visible, Qt::LeftButton, {}, QPoint(6, visible->height() / 2));
    EXPECT_FALSE(visible->isChecked());
    EXPECT_EQ(saved().characters->front().properties->isVisible, false);

    // A count of the ground, which lays the ground again.
    pick(K::ground);
    auto* count = row("primaryPropertyListView", P::repeatCount)->findChild<LabelledIntStepper*>();
    ASSERT_TRUE(count);
    emit count->valueChanged(3);
    EXPECT_EQ(saved().ground->front().repeatCount, 3);

    // A count of the coin, which lays its row again.
    pick(K::coin);
    auto* coins = row("primaryPropertyListView", P::repeatCount)->findChild<LabelledIntStepper*>();
    ASSERT_TRUE(coins);
    emit coins->valueChanged(4);
    EXPECT_EQ(saved().coins->coins->front().repeatCount, 4);

    // A depth of the background: its row reads the record in the document.
    pick(K::background);
    auto* depth = row("backgroundPropertyListView", P::zPosition)->findChild<LabelledCGFloatStepper*>();
    ASSERT_TRUE(depth);
    emit depth->valueChanged(7);
    EXPECT_EQ(saved().background->backgrounds->front().zPosition, 7);
    EXPECT_EQ(depth->value(), 7);

    EXPECT_TRUE(front().isProjectDirty());
    while (front().undoStack().canUndo())
        front().undoStack().undo();
    EXPECT_EQ(comparable(saved()), before);
    EXPECT_FALSE(front().isProjectDirty());
    // The record leaves the depth out again, which the row reads as 1.
    depth = row("backgroundPropertyListView", P::zPosition)->findChild<LabelledCGFloatStepper*>();
    ASSERT_TRUE(depth);
    EXPECT_EQ(depth->value(), 1);
}

TEST_F(InspectorViewTest, TheDevicePaneAddsAndDeletesAnOverrideOfTheShownDevice)
{
    pick(K::obstacles);
    QWidget* pane = view->findChild<QWidget*>("deviceSpecificPropertyView");
    auto* devices = pane->findChild<QComboBox*>("devicePicker");
    ASSERT_TRUE(devices);
    const int iPad = devices->findData(QString::fromUtf8(tessaro::caseText(tessaro::deviceName::iPad)));
    ASSERT_GE(iPad, 0);
    devices->setCurrentIndex(iPad);
    emit devices->activated(iPad);
    EXPECT_EQ(front().selectedDeviceObject().nameSelected, tessaro::deviceName::iPad);
    view->layNow();
    QCoreApplication::processEvents();

    const auto sizeButton = [&] { return pane->findChild<QWidget*>("device_size")->findChild<QPushButton*>(); };
    ASSERT_TRUE(sizeButton());
    EXPECT_EQ(sizeButton()->text(), QString::fromUtf8(addOverrideLabel(tessaro::deviceName::iPad)));
    sizeButton()->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(sizeButton()->text(), QString::fromUtf8(removeOverrideLabel(tessaro::deviceName::iPad)));
    ASSERT_TRUE(findDevice(*selected(), tessaro::deviceName::iPad));
    EXPECT_EQ(findDevice(*selected(), tessaro::deviceName::iPad)->size, "{0,0}");

    // The defined field has its control; a change stores it in the iPad's entry.
    auto* size = pane->findChild<QWidget*>("device_size")->findChild<LabelledSizeStepper*>();
    ASSERT_TRUE(size);
    emit size->valueChanged({64, 32});
    EXPECT_EQ(findDevice(*selected(), tessaro::deviceName::iPad)->size, "{64.0,32.0}");

    sizeButton()->click();
    QCoreApplication::processEvents();
    EXPECT_FALSE(findDevice(*selected(), tessaro::deviceName::iPad));
    EXPECT_EQ(sizeButton()->text(), QString::fromUtf8(addOverrideLabel(tessaro::deviceName::iPad)));
}

TEST_F(InspectorViewTest, HeadButtonsOpenTheSideEditorsOfTheKind)
{
    std::vector<PhysicsEditMode> opened;
    setPhysicsEditorOpener(
        [&](QWidget*, ProjectTab&, SceneSettings*, PhysicsEditMode mode) { opened.push_back(mode); });

    pick(K::obstacles);
    auto* physics = view->findChild<QPushButton*>("physicsButton");
    ASSERT_TRUE(physics);
    physics->click();
    EXPECT_EQ(opened, std::vector{PhysicsEditMode::element});
    EXPECT_FALSE(view->findChild<QPushButton*>("groundOrderButton"));

    EXPECT_TRUE(view->findChild<QPushButton*>("baseButton"));
    // Every button of the head has a picture, the theme's or the drawn one.
    for (const QPushButton* button : view->findChild<QWidget*>("inspectorHead")->findChildren<QPushButton*>())
        EXPECT_FALSE(button->icon().isNull()) << button->objectName().toStdString();

    pick(K::ground);
    EXPECT_FALSE(view->findChild<QPushButton*>("physicsButton"));
    EXPECT_FALSE(view->findChild<QPushButton*>("baseButton"));
    auto* order = view->findChild<QPushButton*>("groundOrderButton");
    ASSERT_TRUE(order);
    EXPECT_FALSE(order->icon().isNull());
    order->click();
    EXPECT_TRUE(settings->isGroundInspectorPresented());
    setPhysicsEditorOpener({});

    // Kinds with a catalogue record but no physics show no base sheet either.
    for (K kind : {K::coin, K::checkpoint, K::character}) {
        pick(kind);
        EXPECT_EQ(view->findChild<QPushButton*>("baseButton") != nullptr, kind == K::character)
            << tessaro::caseText(kind);
    }

    // A drawn symbol, where the desktop's theme has none, is not blank.
    for (InspectorSymbol symbol : {InspectorSymbol::physics, InspectorSymbol::cycleEnd, InspectorSymbol::close}) {
        const QImage picture = drawnInspectorIcon(symbol).pixmap(24, 24).toImage();
        int inked = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                inked += picture.pixelColor(x, y).alpha() > 0;
        EXPECT_GT(inked, 20) << inspectorThemeIconName(symbol).toStdString();
    }
}

TEST_F(InspectorViewTest, TheAnimationPaneSaysWhenTheElementsPictureIsMissing)
{
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    const auto showAnimation = [&]() -> AnimationPropertyView* {
        auto* tabs = view->findChild<QTabWidget*>();
        for (int i = 0; tabs && i < tabs->count(); ++i)
            if (tabs->tabText(i) == QStringLiteral("Animation"))
                tabs->setCurrentIndex(i);
        QApplication::processEvents(); // a pane laid in a shown window shows after the event
        return view->findChild<AnimationPropertyView*>();
    };

    pick(K::obstacles);
    AnimationPropertyView* pane = showAnimation();
    ASSERT_TRUE(pane);
    EXPECT_FALSE(pane->imageMissingAlert()); // the crate's picture is there

    edits().applyPrimaryProperty(P::image, std::string("lost"));
    pick(K::character);
    pick(K::obstacles);
    pane = showAnimation();
    ASSERT_TRUE(pane);
    QMessageBox* alert = pane->imageMissingAlert();
    ASSERT_TRUE(alert);
    EXPECT_TRUE(alert->isVisible());
    EXPECT_EQ(alert->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(alert->text().contains(QStringLiteral("\"lost\""))) << alert->text().toStdString();
    EXPECT_TRUE(alert->informativeText().contains(QStringLiteral("Assets/Images/Obstacles/")));
    alert->accept();
}

TEST_F(InspectorViewTest, EveryPaneFitsTheInspectorsWidthAndLongValuesElide)
{
    view->resize(450, 900);
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    for (K kind :
         {K::obstacles, K::character, K::coin, K::checkpoint, K::shield, K::artifact, K::ground, K::background}) {
        pick(kind);
        auto* tabs = view->findChild<QTabWidget*>();
        ASSERT_TRUE(tabs);
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            QApplication::processEvents();
            auto* scroll = qobject_cast<QScrollArea*>(tabs->widget(i));
            ASSERT_TRUE(scroll);
            EXPECT_LE(scroll->widget()->minimumSizeHint().width(), scroll->viewport()->width())
                << tessaro::caseText(kind) << " " << tabs->tabText(i).toStdString();
            // Every row's label starts inside the pane.
            for (const PropertyRow* row : scroll->widget()->findChildren<PropertyRow*>()) {
                if (row->isVisible()) {
                    EXPECT_GE(row->label()->mapTo(scroll->viewport(), QPoint(0, 0)).x(), 0)
                        << tessaro::caseText(kind) << " " << tessaro::caseText(row->entry().property);
                }
            }
        }
    }

    // A long value elides, whole in its tooltip.
    pick(K::obstacles);
    const std::string longName(120, 'w');
    edits().applyPrimaryProperty(P::image, longName);
    pick(K::character);
    pick(K::obstacles);
    QApplication::processEvents();
    auto* primary = qobject_cast<QScrollArea*>(view->findChild<QTabWidget*>()->widget(0));
    EXPECT_LE(primary->widget()->minimumSizeHint().width(), primary->viewport()->width());
    bool found = false;
    for (const ElidedLabel* label : view->findChildren<ElidedLabel*>())
        if (label->fullText() == QString::fromStdString(longName)) {
            found = true;
            EXPECT_TRUE(label->isElided());
            EXPECT_EQ(label->toolTip(), QString::fromStdString(longName));
        }
    EXPECT_TRUE(found);
}

TEST_F(InspectorViewTest, TargetRowsKeepTheirLimitsAndRowsWithoutAFieldAreReadOnly)
{
    pick(K::character);
    ASSERT_TRUE(row("animationPropertyView", P::target_near));
    EXPECT_TRUE(row("animationPropertyView", P::target_near)->isEnabled());
    EXPECT_TRUE(row("animationPropertyView", P::target_moveSpeed)->isEnabled());
    EXPECT_FALSE(row("animationPropertyView", P::animationCallbackFunction)->isEnabled());
    auto* cycleEnd = view->findChild<QPushButton*>("cycleEndButton");
    ASSERT_TRUE(cycleEnd);
    EXPECT_FALSE(cycleEnd->icon().isNull());

    // The target distances step by 0.5 between 0 and 10000.
    for (const SectionEntry& section : animationSections())
        if (section.title == std::string("Target distance properties"))
            for (const RowEntry& entry : section.rows) {
                EXPECT_EQ(entry.lower, 0) << tessaro::caseText(entry.property);
                EXPECT_EQ(entry.upper, 10000) << tessaro::caseText(entry.property);
                EXPECT_EQ(entry.step, 0.5) << tessaro::caseText(entry.property);
            }

    pick(K::obstacles);
    EXPECT_FALSE(row("animationPropertyView", P::target_near)->isEnabled());
    EXPECT_FALSE(row("animationPropertyView", P::target_moveSpeed)->isEnabled());
    EXPECT_TRUE(row("animationPropertyView", P::delay_idle)->isEnabled());
}

TEST_F(InspectorViewTest, EveryRowOfTheTablesIsBoundToAFieldOfItsModel)
{
    ASSERT_TRUE(select(K::obstacles));
    const auto bound = [&](ModelType model, const RowEntry& entry) {
        if (entry.control == RowControl::Label)
            return;
        EXPECT_FALSE(std::holds_alternative<std::monostate>(modelValue(front(), model, entry.property)))
            << tessaro::caseText(entry.property);
        EXPECT_FALSE(std::holds_alternative<std::monostate>(modelValue(front(), model, entry.propertyUpper)))
            << tessaro::caseText(entry.propertyUpper);
    };
    for (const SectionEntry& section : primarySections())
        for (const RowEntry& entry : section.rows)
            bound(ModelType::Primary, entry);
    for (const SectionEntry& section : animationSections())
        for (const RowEntry& entry : section.rows)
            bound(ModelType::Animation, entry);
    for (const RowEntry& entry : cycleEndRows())
        bound(ModelType::AnimationCycleEnd, entry);
    for (const RowEntry& entry : backgroundRows())
        bound(ModelType::Primary, entry);
    for (const DeviceFieldRow& field : deviceFieldRows())
        bound(ModelType::Devices, deviceRow(field.field, field.label));

    // A value of the wrong type writes nothing; a case name writes the case.
    setModelValue(front(), ModelType::Primary, P::zPosition, std::string("high"));
    EXPECT_EQ(front().selectedObject().zPosition, 10);
    setModelValue(front(), ModelType::Primary, P::rotateType, std::string("nonsense"));
    EXPECT_EQ(front().selectedObject().rotateType, tessaro::rotationType::none);
    setModelValue(front(), ModelType::Primary, P::category,
                  std::vector<std::string>{"humanPlayer", "nonsense", "floor"});
    EXPECT_EQ(modelValue(front(), ModelType::Primary, P::category),
              PropertyValue(std::vector<std::string>{"humanPlayer", "floor"}));
}

} // namespace
} // namespace stagewright::test
